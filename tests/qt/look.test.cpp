// SPDX-License-Identifier: GPL-3.0-or-later
// What can be read: contrast, texts that are never cut, the tiles of the word, the faces of the
// letters.
#include "qt/bench.h"

#include <QFontMetricsF>

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
