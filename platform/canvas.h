// SPDX-License-Identifier: GPL-3.0-or-later
// What the printed page asks: measures of the default printer and of its default font, text, lines
// and rectangles at positions, the end of the document. And the pen that writes on it line by line.
#pragma once

#include "platform/text.h"

namespace grimoval {

// The default printer. Any operation but foresee may fail, with number 482 where there is no usable
// printer. Positions and measures are in the page unit of the printer, from the left top corner of
// the printable page.
struct Canvas {
    virtual ~Canvas() = default;
    virtual void foresee() {} // it will soon be asked: one that is slow begins now; returns at once
    virtual double pageWidth() = 0;
    virtual double textWidth(const Texte &text) = 0;
    virtual double textHeight(const Texte &text) = 0;                 // the first measure of a page
    virtual void drawText(double x, double y, const Texte &text) = 0; // its left top corner
    virtual void drawLine(double x1, double y1, double x2, double y2) = 0;
    virtual void drawRectangle(double x1, double y1, double x2, double y2) = 0; // outline
    virtual void endDocument() = 0; // sends the page; the next drawing begins another
};

// Writes at a current position. After the end of a line X is the left edge of the page and Y lies
// one line further down.
class Pen {
public:
    explicit Pen(Canvas &canvas) : canvas_(canvas) {}

    double x = 0, y = 0;

    void print(const Texte &text);     // ends the line
    void printStay(const Texte &text); // stays on the line, behind the text
    // From the next print zone: zones are 14 columns wide, a column the width of a character.
    void printZone(const Texte &text);
    // With a blank where the sign would stand and one behind; ends the line.
    void print(int number);

    static constexpr int zoneColumns = 14;

private:
    Canvas &canvas_;
};

} // namespace grimoval
