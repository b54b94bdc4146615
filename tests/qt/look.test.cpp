// SPDX-License-Identifier: GPL-3.0-or-later
// What can be read: contrast, texts that are never cut, the tiles of the word, the faces of the
// letters.
#include "qt/bench.h"

#include <QFontMetricsF>

#include <array>
#include <cmath>
#include <map>

namespace grimoval::test {
namespace {

TEST(Palette, EveryInkCanBeReadOnItsSurface) {
    for (const Surface surface : {Surface::night, Surface::parchment}) {
        for (const unsigned rgb : {0x000000U, 0xFFFFFFU, 0xFF0000U, 0x00FF00U, 0x0000FFU, 0xFFFF00U,
                                   0x00FFFFU, 0xFF00FFU, 0x808080U, 0xFFFFC0U}) {
            EXPECT_GE(contrast(ink(Colour{rgb}, surface), hardest(surface)), 4.5)
                << std::hex << rgb << " on " << static_cast<int>(surface);
        }
    }
}

TEST(Palette, ContrastIsThatOfTheGuidelines) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(contrast(Qt::white, Qt::white), 1, 0.01);
    EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

TEST(Palette, RedGreenAndBlueStayApart) {
    for (const Surface surface : {Surface::night, Surface::parchment}) {
        EXPECT_NE(ink(colours::red, surface), ink(colours::green, surface));
        EXPECT_NE(ink(colours::red, surface), ink(colours::blue, surface));
        EXPECT_NE(ink(colours::red, surface), ink(colours::black, surface));
    }
}

TEST(Text, IsMadeSmallerUntilItFits) {
    const QString text = QStringLiteral("Un texte bien trop long pour sa petite place");
    const QSizeF place(120, 20);
    const double pixels = fittingPixels(text, place, 18, true, false);
    EXPECT_LT(pixels, 18);
    EXPECT_LE(QFontMetricsF(fontOf(pixels, true)).horizontalAdvance(text), place.width() + 1);
    EXPECT_EQ(fittingPixels(QStringLiteral("A"), place, 14, true, false), 14);
}

struct Word : testing::Test {
    QWidget parent;
    WordView view{&parent};

    void write(const QString &text, int points = 15) {
        view.setFactor(1);
        view.resize(706, 82);
        LabelText label;
        label.text = text;
        label.points = points;
        label.look = Label::Look::word;
        view.write(label);
    }
    int count(WordView::Piece::Kind kind) {
        int n = 0;
        for (const auto &piece : view.pieces()) {
            n += piece.kind == kind;
        }
        return n;
    }
    bool allInside() {
        for (const auto &piece : view.pieces()) {
            if (!QRectF(view.rect()).contains(piece.place)) {
                return false;
            }
        }
        return true;
    }
};

TEST_F(Word, HasATileALetterAndAClosedOneForALetterToFind) {
    write(QStringLiteral("#R#-É#'12"));
    EXPECT_EQ(count(WordView::Piece::closed), 3);
    EXPECT_EQ(count(WordView::Piece::open), 2);
    EXPECT_EQ(count(WordView::Piece::plain), 4);
}

TEST_F(Word, StandsInItsStripFromOneToThirtyCharacters) {
    double before = 1000;
    for (int length = 1; length <= 30; ++length) {
        write(QString(length, u'#'));
        ASSERT_EQ(view.pieces().size(), static_cast<std::size_t>(length));
        EXPECT_TRUE(allInside()) << length;
        const double width = view.pieces()[0].place.width();
        EXPECT_LE(width, before + 0.01);
        EXPECT_GE(width, 18) << length;
        before = width;
    }
}

TEST_F(Word, GoesOverTwoLinesWhereThatMakesItLarger) {
    write(QStringLiteral("POMME DE TERRE"));
    const auto lines = [this] {
        return view.pieces().back().place.top() - view.pieces().front().place.top() > 1 ? 2 : 1;
    };
    EXPECT_EQ(lines(), 1);
    write(QStringLiteral("L'ARC-EN-CIEL DES PETITS ENFANT"));
    EXPECT_EQ(lines(), 2);
    EXPECT_TRUE(allInside());
}

TEST_F(Word, WritesWhatStandsInBracketsSmallBelow) {
    write(QStringLiteral("L'ÉT# (SAISON)"));
    EXPECT_EQ(view.pieces().size(), 5U);
    EXPECT_EQ(view.comment().toStdString(), "(SAISON)");
    EXPECT_TRUE(QRectF(view.rect()).contains(view.commentPlace()));
    EXPECT_GE(view.commentPlace().top(), view.pieces()[0].place.bottom() - 1);
}

TEST_F(Word, IsASentenceBelowFifteenPoints) {
    write(QStringLiteral("Pour commencer"), 12);
    EXPECT_TRUE(view.pieces().empty());
    write(QStringLiteral("POUR"), 15);
    EXPECT_EQ(view.pieces().size(), 4U);
}

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

TEST(TimeGauge, IsCalmThenBriefThenUrgentAndEachLooksSoInGreyToo) {
    QWidget parent;
    GaugeView view(&parent);
    view.setMeasure(Gauge::Measure::time);
    view.setFactor(2);
    view.resize(900, 80);
    std::vector<QImage> looks;
    const auto at = [&](int value) {
        view.set(value, 20, {}, Qt::white);
        looks.push_back(view.grab().toImage().convertToFormat(QImage::Format_Grayscale8));
        return view.haste();
    };
    EXPECT_EQ(at(0), GaugeView::Haste::calm);
    EXPECT_EQ(at(9), GaugeView::Haste::calm);
    EXPECT_EQ(at(10), GaugeView::Haste::brief);
    EXPECT_EQ(at(15), GaugeView::Haste::brief);
    EXPECT_EQ(at(16), GaugeView::Haste::urgent);
    EXPECT_EQ(at(20), GaugeView::Haste::urgent);
    // The stripes: along the middle of a full tube the light changes many times.
    const auto changes = [](const QImage &look) {
        int count = 0;
        for (int x = look.width() / 4; x < look.width() * 2 / 3; ++x) {
            count += std::abs(qGray(look.pixel(x, look.height() / 2)) -
                              qGray(look.pixel(x - 1, look.height() / 2))) > 6;
        }
        return count;
    };
    EXPECT_LT(changes(looks[3]), 4);
    EXPECT_GT(changes(looks[5]), 12);
    view.setMeasure(Gauge::Measure::count);
    view.set(20, 20, {}, Qt::white);
    EXPECT_EQ(view.haste(), GaugeView::Haste::none);
}

TEST_F(Word, TellsWonAndLostByItsFormToo) {
    const auto look = [this](Colour colour) {
        view.setFactor(1);
        view.resize(706, 104);
        LabelText label;
        label.text = QStringLiteral("ÂNESSE");
        label.points = 15;
        label.look = Label::Look::word;
        label.colour = colour;
        view.write(label);
        return view.mood();
    };
    EXPECT_EQ(look(colours::blue), WordView::Mood::playing);
    EXPECT_EQ(look(colours::green), WordView::Mood::won);
    const QImage won = view.grab().toImage();
    EXPECT_EQ(look(colours::red), WordView::Mood::lost);
    const QImage lost = view.grab().toImage();
    const auto outlines = [](const QImage &image) {
        std::vector<bool> dark;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                dark.push_back(qGray(image.pixel(x, y)) < 130);
            }
        }
        return dark;
    };
    const auto one = outlines(won), other = outlines(lost);
    int different = 0;
    for (std::size_t i = 0; i < one.size(); ++i) {
        different += one[i] != other[i];
    }
    EXPECT_GT(different, 1500);
}

TEST(Player, WhoseTurnItIsStandsOnAPlateOfGold) {
    QWidget parent;
    LabelView view(&parent);
    view.setFactor(2);
    view.resize(292, 112);
    LabelText text{QStringLiteral("MARIE D."), colours::white, 13};
    text.look = Label::Look::player;
    text.call = QStringLiteral("A toi");
    const auto gold = [&] {
        view.write(text);
        const QImage seen = view.grab().toImage();
        int count = 0;
        for (int y = 0; y < seen.height(); ++y) {
            for (int x = 0; x < seen.width(); ++x) {
                const QColor here = seen.pixelColor(x, y);
                count += here.red() > 220 && here.green() > 170 && here.blue() < 180;
            }
        }
        return count;
    };
    EXPECT_EQ(gold(), 0);
    text.text += QStringLiteral(" A toi");
    EXPECT_GT(gold(), 3000);
}

TEST(Buttons, AGreyedAHoveredAPressedAndAFocusedButtonEachLookSo) {
    Bench bench;
    TestForm form(bench.screen);
    PictureButton button(form, "Cmd"), other(form, "Autre");
    button.place = {0, 0, 1500, 1500};
    other.place = {3000, 0, 1500, 1500};
    QImage face(64, 64, QImage::Format_ARGB32);
    face.fill(Qt::green);
    ASSERT_TRUE(face.save(QString::fromStdString(bench.folder.bytePath(u"face.png"))));
    button.Face = bench.folder.path(u"face.png");
    bench.show(form);
    form.setFocus(other);
    auto *view = bench.view<FaceButton>(button);
    EXPECT_TRUE(view->hasFace());
    std::vector<QImage> looks{view->grab().toImage()};
    QEnterEvent enter(QPointF(9, 9), QPointF(9, 9), QPointF(9, 9));
    QCoreApplication::sendEvent(view, &enter);
    looks.push_back(view->grab().toImage());
    button.Click = [] {};
    QTest::mousePress(view, Qt::LeftButton);
    looks.push_back(view->grab().toImage());
    QTest::mouseRelease(view, Qt::LeftButton);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(view, &leave);
    EXPECT_EQ(view->grab().toImage(), looks[0]);
    form.setFocus(button);
    looks.push_back(view->grab().toImage());
    button.Inactif = true;
    looks.push_back(view->grab().toImage());
    const QColor grey = looks.back().pixelColor(50, 50);
    EXPECT_LT(std::abs(grey.green() - looks[0].pixelColor(50, 50).green()), 256);
    for (std::size_t a = 0; a < looks.size(); ++a) {
        for (std::size_t b = a + 1; b < looks.size(); ++b) {
            EXPECT_NE(looks[a], looks[b]) << a << " and " << b;
        }
    }
}

} // namespace
} // namespace grimoval::test
