// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace scene {

// A scene is an SVG drawing with two elements more, each replaced here by what any SVG program can
// draw:
//
//   <thing sign="🐄" foot="420 760" tall="190"/>
//       An emoji with its foot, the middle of its lower edge, at that place, and its shadow on the
//       ground. at="X Y"            in place of foot: the middle of it is there, in the air or on a
//       wall, no shadow tall= or wide=      the size of what is seen of it flip="yes" mirrored;
//       emoji mostly look to the left turn="-15"          turned by so many degrees
//   <scatter sign="🌼 🌷" box="0 700 1200 200" count="40" sizes="20 45"/>
//       Many of them spread over a box; the sizes are the heights of the farthest and nearest.
//       of="#tuft #stone"   in place of sign: drawings of the scene, the sizes being scales
//       turn="20"           each turned by chance, up to so many degrees to either side
//       seed="3"            another chance
//
// On any element, for all in it:
//   light="-0.6 -0.8 #fff2d0 0.35"   the way to the light, its colour, how strong
//   shade="#1c2458 0.3"              the colour of the sides away from it
//   tint="#8fb4e0 0.4"               drawn towards a colour: haze, night
//   shadow="0.7 0.3 0.3 #10163c"     on the ground: how it leans, how long, how dark, its colour;
//   none: "no"
//
// Every other attribute of a thing goes with it (opacity, filter...).
QByteArray placed(const QByteArray &scene);

} // namespace scene
