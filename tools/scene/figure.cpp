// SPDX-License-Identifier: GPL-3.0-or-later
#include "figure.h"

#include "blur.h"
#include "sign.h"

#include <QTransform>
#include <algorithm>
#include <cmath>

namespace scene {
namespace {

// Without the empty border.
QImage trimmed(const QImage &image) {
    int left = image.width(), right = -1, top = image.height(), bottom = -1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 24) {
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
        }
    }
    return image.copy(left, top, right - left + 1, bottom - top + 1);
}

int mixed(int own, int other, double amount) {
    return static_cast<int>(std::lround(own + (other - own) * amount));
}

// The colour drawn towards another by so much; the picture is premultiplied.
QRgb towards(QRgb p, const QColor &colour, double amount) {
    const int alpha = qAlpha(p);
    return qRgba(mixed(qRed(p), colour.red() * alpha / 255, amount),
                 mixed(qGreen(p), colour.green() * alpha / 255, amount),
                 mixed(qBlue(p), colour.blue() * alpha / 255, amount), alpha);
}

} // namespace

QImage figure(const Pose &pose, const Look &look) {
    QImage image = sign(pose.sign);
    if (pose.flip) {
        image = image.mirrored(true, false);
    }
    if (pose.turn != 0) {
        image = image.transformed(QTransform().rotate(pose.turn), Qt::SmoothTransformation);
    }
    image = trimmed(image);
    const double scale = pose.tall > 0 ? pose.tall / image.height() : pose.wide / image.width();
    image = image
                .scaled(std::max(1, static_cast<int>(std::lround(image.width() * scale))),
                        std::max(1, static_cast<int>(std::lround(image.height() * scale))),
                        Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                .convertToFormat(QImage::Format_ARGB32_Premultiplied);

    // The blurred shape falls off towards its edges like the side of something round: the edge that
    // looks towards the light gets light, the other one shade.
    const int reach = std::max(1, std::max(image.width(), image.height()) / 28);
    Cover cover(image, 3 * reach);
    cover.blur(reach);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const double right = cover(x + 1, y) - cover(x - 1, y);
            const double down = cover(x, y + 1) - cover(x, y - 1);
            const double lit = std::clamp(
                -(right * look.light.x() + down * look.light.y()) * reach * 2.2, -1.0, 1.0);
            const double depth = static_cast<double>(y) / image.height();
            QRgb p = line[x];
            if (lit > 0) {
                p = towards(p, look.lightColour, lit * look.lightAmount);
            } else {
                p = towards(p, look.shadeColour, -lit * look.shadeAmount);
            }
            p = towards(p, look.shadeColour, depth * depth * look.shadeAmount * 0.35);
            line[x] = towards(p, look.tint, look.tintAmount);
        }
    }
    return image;
}

Shadow shadow(const QImage &figure, const Look &look) {
    Shadow made{{}, 0, 3};
    const QImage small =
        figure.scaled(std::max(1, static_cast<int>(figure.width() / made.smaller)),
                      std::max(1, static_cast<int>(figure.height() / made.smaller)),
                      Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const int reach = std::max(1, std::max(small.width(), small.height()) / 34);
    made.border = 3 * reach + 1;
    Cover cover(small, made.border);
    cover.blur(reach);
    made.image = QImage(cover.w, cover.h, QImage::Format_ARGB32);
    for (int y = 0; y < cover.h; ++y) {
        auto *line = reinterpret_cast<QRgb *>(made.image.scanLine(y));
        for (int x = 0; x < cover.w; ++x) {
            const int alpha = static_cast<int>(
                std::lround(255 * cover(x - made.border, y - made.border) * look.dark));
            line[x] = qRgba(look.shadowColour.red(), look.shadowColour.green(),
                            look.shadowColour.blue(), alpha);
        }
    }
    return made;
}

std::pair<int, int> sole(const QImage &figure) {
    int left = figure.width(), right = 0;
    for (int y = figure.height() * 9 / 10; y < figure.height(); ++y) {
        for (int x = 0; x < figure.width(); ++x) {
            if (qAlpha(figure.pixel(x, y)) > 128) {
                left = std::min(left, x);
                right = std::max(right, x);
            }
        }
    }
    return left < right ? std::pair{left, right} : std::pair{0, figure.width() - 1};
}

} // namespace scene
