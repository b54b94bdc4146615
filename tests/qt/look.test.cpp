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
