// SPDX-License-Identifier: GPL-3.0-or-later
// A page that is kept until it is printed: texts, lines and rectangles at positions in twips, in
// the printer's font, which measures without a printer.
#pragma once

#include "platform/text.h"

#include <QFont>
#include <QPainter>

#include <functional>
#include <vector>

namespace grimoval {

class PrintedPage {
public:
    PrintedPage();

    double textWidth(const Texte &text) const; // twips
    double lineHeight() const;

    void text(double x, double y, const Texte &text); // its left top corner
    void line(double x1, double y1, double x2, double y2);
    void rectangle(double x1, double y1, double x2, double y2); // outline

    // False if the device takes no painting, or ends it badly.
    bool paintOn(QPaintDevice &device, double dotsPerInch) const;

    static constexpr double twipsPerInch = 1440;

private:
    using Drawing = std::function<void(QPainter &)>;

    QFont font_;
    std::vector<Drawing> drawings_;
};

} // namespace grimoval
