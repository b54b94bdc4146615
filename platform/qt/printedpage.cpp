// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/printedpage.h"

#include "platform/qt/strings.h"

#include <QFontMetricsF>

namespace grimoval {

namespace {

constexpr double fontPoints = 10;
constexpr double pen = 10; // twips

} // namespace

// A monospaced face, for which the columns of the report come out aligned. Its size is in twips,
// the unit of the page, so that its measures are too.
PrintedPage::PrintedPage() {
    font_.setFamilies({"Liberation Mono", "DejaVu Sans Mono", "monospace"});
    font_.setStyleHint(QFont::Monospace);
    font_.setPixelSize(static_cast<int>(fontPoints / 72 * twipsPerInch));
    font_.setHintingPreference(QFont::PreferNoHinting);
}

double PrintedPage::textWidth(const Texte &text) const {
    return QFontMetricsF(font_).horizontalAdvance(toQt(text));
}

double PrintedPage::lineHeight() const { return QFontMetricsF(font_).height(); }

void PrintedPage::text(double x, double y, const Texte &text) {
    drawings_.push_back([at = QPointF(x, y), line = toQt(text)](QPainter &painter) {
        painter.drawText(at + QPointF(0, painter.fontMetrics().ascent()), line);
    });
}

void PrintedPage::line(double x1, double y1, double x2, double y2) {
    drawings_.push_back(
        [=](QPainter &painter) { painter.drawLine(QPointF(x1, y1), QPointF(x2, y2)); });
}

void PrintedPage::rectangle(double x1, double y1, double x2, double y2) {
    drawings_.push_back(
        [=](QPainter &painter) { painter.drawRect(QRectF(QPointF(x1, y1), QPointF(x2, y2))); });
}

bool PrintedPage::paintOn(QPaintDevice &device, double dotsPerInch) const {
    QPainter painter;
    if (!painter.begin(&device)) {
        return false;
    }
    const double scale = dotsPerInch / twipsPerInch;
    painter.scale(scale, scale);
    painter.setFont(font_);
    painter.setPen(QPen(Qt::black, pen));
    for (const Drawing &draw : drawings_) {
        draw(painter);
    }
    return painter.end();
}

} // namespace grimoval
