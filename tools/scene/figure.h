// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QString>

namespace scene {

// How the things of a part of a scene look: what a group says holds for all that is in it.
struct Look {
    QPointF light{-0.6, -0.8}; // the way to the light
    QColor lightColour{0xff, 0xf2, 0xd0};
    double lightAmount = 0.35;
    QColor shadeColour{0x1c, 0x24, 0x58};
    double shadeAmount = 0.3;
    QColor tint{0, 0, 0};
    double tintAmount = 0;
    // The shadow on the ground: how far it leans for each step up, how long it is, how dark.
    double lean = 0.7, length = 0.3, dark = 0.3;
    QColor shadowColour{0x10, 0x16, 0x3c};
};

// An emoji as it stands in a scene.
struct Pose {
    QString sign;
    double tall = 0, wide = 0; // what is seen of it; one of the two
    bool flip = false;
    double turn = 0;
};

// Without empty border, lit and tinted.
QImage figure(const Pose &pose, const Look &look);

// The shadow of a figure: its shape in the colour of the look, blurred, with a border around.
struct Shadow {
    QImage image;
    int border;     // in the pixels of the picture of the shadow
    double smaller; // one pixel of it stands for so many of the figure
};
Shadow shadow(const QImage &figure, const Look &look);

// Where a figure touches the ground: the first and last column of its lowest part.
std::pair<int, int> sole(const QImage &figure);

} // namespace scene
