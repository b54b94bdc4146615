// SPDX-License-Identifier: GPL-3.0-or-later
// The look of the house: fonts, surfaces, frames. Lengths come with the factor of the window, 1 on
// a screen where a pixel is 15 twips.
#pragma once

#include "platform/qt/palette.h"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace grimoval {

// A rounded, readable family that is installed.
const QString &fontFamily();
QFont fontOf(double pixels, bool bold = false);
// Points of the design to pixels.
inline double pixelsOf(int points, double factor) { return points * 96.0 / 72.0 * factor; }

// The largest size, from `pixels` down, at which the whole text stands in its place.
double fittingPixels(const QString &text, QSizeF place, double pixels, bool bold, bool wraps);
void drawFitted(QPainter &painter, const QRectF &place, const QString &text, double pixels,
                bool bold, bool wraps, Qt::Alignment alignment, const QColor &colour);

// The background of a window that has no picture.
void drawBackground(QPainter &painter, const QRectF &area, Surface surface, double factor);
// A picture of 600 units a side whose margin of 40 units keeps its size.
void drawNinePatch(QPainter &painter, const QRectF &area, const QImage &picture, double factor);

void drawPanel(QPainter &painter, const QRectF &area, Surface surface, double factor);
// The ring around what has the keyboard.
void drawFocusRing(QPainter &painter, const QRectF &area, double radius, double factor);
void drawGoldFrame(QPainter &painter, const QRectF &outer, double thickness);
// A raised tile; pressed, it lies lower.
void drawTile(QPainter &painter, const QRectF &area, const QColor &face, const QColor &edge,
              double factor, bool pressed = false);
// The face of a tile: what lies above its edge.
QRectF faceOfTile(const QRectF &area, double factor);
QPainterPath star(QPointF centre, double radius, int points, double waist);
// A small sign in a disc or in a square: it tells right and wrong without a colour.
void drawTick(QPainter &painter, QPointF centre, double radius);
void drawCross(QPainter &painter, QPointF centre, double radius);

// A picture as it fits a place of so many device pixels, its ratio kept.
QPixmap scaledPicture(const QImage &picture, QSizeF place, double deviceRatio);

} // namespace grimoval
