// SPDX-License-Identifier: GPL-3.0-or-later
// What every eye can see: contrast of letters and signs, states that differ by form, and the same
// through eyes that miss a kind of cone.
#include "qt/bench.h"

#include <array>
#include <cmath>
#include <map>

namespace grimoval::test {
namespace {

TEST(Letters, TheFourStatesAreToldApartWithoutColour) {
    QWidget parent;
    std::vector<QImage> seen;
    for (const char *face : {"A.libre", "A.trouvee", "A.fausse", "A.repos"}) {
        LetterView view(&parent);
        view.setFactor(2);
        view.resize(112, 108);
        view.setFaces(QString::fromLatin1(face), {});
        // Outlines alone: where neighbouring greys differ much.
        const QImage grey = view.grab().toImage().convertToFormat(QImage::Format_Grayscale8);
        QImage outline(grey.size(), QImage::Format_Grayscale8);
        outline.fill(0);
        for (int y = 1; y < grey.height(); ++y) {
            for (int x = 1; x < grey.width(); ++x) {
                const int here = qGray(grey.pixel(x, y));
                const int step = std::abs(here - qGray(grey.pixel(x - 1, y))) +
                                 std::abs(here - qGray(grey.pixel(x, y - 1)));
                outline.scanLine(y)[x] = step > 40 ? 255 : 0;
            }
        }
        seen.push_back(outline);
    }
    for (std::size_t a = 0; a < seen.size(); ++a) {
        for (std::size_t b = a + 1; b < seen.size(); ++b) {
            int different = 0;
            for (int y = 0; y < seen[a].height(); ++y) {
                for (int x = 0; x < seen[a].width(); ++x) {
                    different += seen[a].pixel(x, y) != seen[b].pixel(x, y);
                }
            }
            EXPECT_GT(different, 250) << a << " and " << b;
        }
    }
}

// What is seen of a face for each of its states, alone on the night.
QImage faceOf(const char *state) {
    QWidget parent;
    LetterView view(&parent);
    view.setFactor(2);
    view.resize(108, 106);
    view.setFaces(QString::fromLatin1(state), {});
    QImage seen(view.size(), QImage::Format_RGB32);
    seen.fill(shade::nightMiddle);
    view.render(&seen, {}, {}, QWidget::DrawChildren);
    return seen;
}

// The two colours that make up most of the middle of a picture: ground and letter.
std::pair<QColor, QColor> groundAndLetter(const QImage &seen) {
    std::map<QRgb, int> counts;
    for (int y = seen.height() / 4; y < seen.height() * 3 / 4; ++y) {
        for (int x = seen.width() / 4; x < seen.width() * 3 / 4; ++x) {
            const QRgb here = seen.pixel(x, y);
            ++counts[qRgb(qRed(here) & 0xF0, qGreen(here) & 0xF0, qBlue(here) & 0xF0)];
        }
    }
    const auto most = [&counts](const std::function<bool(const QColor &)> &wanted) {
        QColor best;
        int seenMost = 0;
        for (const auto &[colour, count] : counts) {
            if (count > seenMost && wanted(QColor(colour))) {
                best = QColor(colour);
                seenMost = count;
            }
        }
        return best;
    };
    const QColor ground = most([](const QColor &) { return true; });
    return {ground, most([&](const QColor &c) { return contrast(c, ground) > 2; })};
}

TEST(Letters, CanBeReadInEveryState) {
    for (const char *state : {"I.libre", "I.trouvee", "I.fausse", "I.repos"}) {
        const auto [ground, letter] = groundAndLetter(faceOf(state));
        EXPECT_GE(contrast(ground, letter), 4.5) << state;
    }
}

// How an eye without one kind of cone sees a colour: Machado, Oliveira and Fernandes, "A
// Physiologically-based Model for Simulation of Color Vision Deficiency" (2009), severity 1, on
// linear light.
using Eye = std::array<double, 9>;
constexpr Eye eyes[] = {
    {0.152286, 1.052583, -0.204868, 0.114503, 0.786281, 0.099216, -0.003882, -0.048116, 1.051998},
    {0.367322, 0.860646, -0.227968, 0.280085, 0.672501, 0.047413, -0.011820, 0.042940, 0.968881},
    {1.255528, -0.076749, -0.178779, -0.078411, 0.930809, 0.147602, 0.004733, 0.691367, 0.303900},
};

QColor through(const Eye &eye, const QColor &colour) {
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    const auto shown = [](double c) {
        c = std::clamp(c, 0.0, 1.0);
        return static_cast<float>(c <= 0.0031308 ? c * 12.92
                                                 : 1.055 * std::pow(c, 1 / 2.4) - 0.055);
    };
    const double r = linear(colour.redF()), g = linear(colour.greenF()), b = linear(colour.blueF());
    return QColor::fromRgbF(shown(eye[0] * r + eye[1] * g + eye[2] * b),
                            shown(eye[3] * r + eye[4] * g + eye[5] * b),
                            shown(eye[6] * r + eye[7] * g + eye[8] * b));
}

TEST(Letters, StayApartAndReadableForEveryEye) {
    for (const Eye &eye : eyes) {
        std::vector<QColor> grounds;
        for (const char *state : {"I.libre", "I.trouvee", "I.fausse"}) {
            const auto [ground, letter] = groundAndLetter(faceOf(state));
            EXPECT_GE(contrast(through(eye, ground), through(eye, letter)), 4.5) << state;
            grounds.push_back(through(eye, ground));
        }
        // A letter to press stands out from one that is gone at a glance.
        EXPECT_GE(contrast(grounds[0], grounds[1]), 3);
        EXPECT_GE(contrast(grounds[0], grounds[2]), 3);
    }
}

TEST(Palette, SignsAndTextsOfTheViewsCanBeSeen) {
    struct Pair {
        const char *what;
        QColor sign, ground;
        double least;
    };
    const Pair pairs[] = {
        {"a free letter", shade::ink, shade::parchment, 4.5},
        {"a free letter at the shaded foot of its tile", shade::ink, shade::parchment.darker(107),
         4.5},
        {"a found letter", Qt::white, shade::emerald.lighter(108), 4.5},
        {"the ring of a found letter", shade::gold, shade::emerald, 3},
        {"the tick", shade::emerald, Qt::white, 4.5},
        {"the cross", shade::velvetDark, shade::coral, 4.5},
        {"a resting letter", shade::mist, hardest(Surface::night), 4.5},
        {"the star of a closed tile", shade::gold, shade::cover.lighter(108), 3},
        {"a closed tile on its strip", shade::cover, shade::parchment, 3},
        {"the focus ring by night", shade::gold, hardest(Surface::night), 3},
        {"the focus ring on parchment", shade::ink, shade::parchment, 3},
        {"the call to play", shade::night, shade::gold, 4.5},
        {"the edge of a won word", shade::emerald, shade::parchment, 3},
        {"the edge of a lost word", shade::coralDark, shade::parchment, 3},
        {"text on a gauge", Qt::white, shade::night, 4.5},
    };
    for (const Pair &pair : pairs) {
        EXPECT_GE(contrast(pair.sign, pair.ground), pair.least) << pair.what;
    }
}

} // namespace
} // namespace grimoval::test
