// SPDX-License-Identifier: GPL-3.0-or-later
// The default printer of the system, by way of Qt's print support. The page unit is the twip.
//
// A print server that is away must not keep a child waiting: everything that asks it runs on a
// thread of its own, and an answer that does not come in time counts as no printer. Text is
// measured without the printer, as the font alone decides; a page is kept in memory until its end.
#pragma once

#include "platform/canvas.h"
#include "platform/qt/printedpage.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace grimoval {

class QtPrinter : public Canvas {
public:
    double pageWidth() override; // of the printable page
    double textWidth(const Texte &text) override;
    double textHeight(const Texte &text) override;
    void drawText(double x, double y, const Texte &text) override;
    void drawLine(double x1, double y1, double x2, double y2) override;
    void drawRectangle(double x1, double y1, double x2, double y2) override;
    void endDocument() override;

private:
    struct Asked; // a question that the print system has not answered yet

    // Runs the question beside; failure 482 if it fails, is late, or an earlier one still waits.
    double ask(std::function<double()> question, std::chrono::milliseconds patience);

    void forget(); // what has been drawn and measured

    PrintedPage page_;
    std::optional<double> width_;
    std::chrono::steady_clock::time_point measuredAt_;
    std::shared_ptr<Asked> asked_;
};

} // namespace grimoval
