// SPDX-License-Identifier: GPL-3.0-or-later
// The drawings that are stored in the windows: what lies behind the controls, and the icon.
#include "qt/bench.h"

#include <QPainter>

namespace grimoval::test {
namespace {

struct WindowPicture : testing::Test {
    Bench bench;

    // Left half red, right half blue.
    void store(const char16_t *name, QSize size) {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::blue);
        QPainter(&picture).fillRect(0, 0, size.width() / 2, size.height(), Qt::red);
        const Texte path = Texte(u"IMAGES/") + name;
        bench.folder.makeFolder(u"IMAGES");
        ASSERT_TRUE(
            picture.save(QString::fromStdString(bench.folder.bytePath(path)), nullptr, 100));
    }
    static bool isRed(const QColor &seen) { return seen.red() > 200 && seen.blue() < 50; }
    static bool isBlue(const QColor &seen) { return seen.blue() > 200 && seen.red() < 50; }
};

TEST_F(WindowPicture, FillsTheWindowThatBearsItsName) {
    store(u"fond_Essai.jpg", {1200, 900});
    TestForm form(bench.screen);
    form.show();
    const QImage seen = bench.window(form)->grab().toImage();
    ASSERT_EQ(seen.size(), QSize(400, 300));
    for (const int y : {0, 150, 299}) {
        EXPECT_TRUE(isRed(seen.pixelColor(0, y))) << y;
        EXPECT_TRUE(isRed(seen.pixelColor(190, y))) << y;
        EXPECT_TRUE(isBlue(seen.pixelColor(210, y))) << y;
        EXPECT_TRUE(isBlue(seen.pixelColor(399, y))) << y;
    }
    TestForm other(bench.screen, "Autre");
    other.show();
    EXPECT_FALSE(isRed(bench.window(other)->grab().toImage().pixelColor(100, 150)));
}

TEST_F(WindowPicture, LiesWhereTheControlsLieInAWindowOfAnotherShape) {
    store(u"fond_Essai.jpg", {1200, 900});
    TestForm form(bench.screen);
    form.WindowState = 2;
    form.show();
    FormWindow *window = bench.window(form);
    window->resize(1000, 300); // room for 400 x 300: 300 stay on either side
    const QImage seen = window->grab().toImage();
    EXPECT_EQ(window->onScreen({0, 0, 6000, 4500}), QRect(300, 0, 400, 300));
    EXPECT_FALSE(isRed(seen.pixelColor(295, 150)));
    EXPECT_TRUE(isRed(seen.pixelColor(305, 150)));
    EXPECT_TRUE(isBlue(seen.pixelColor(695, 150)));
    EXPECT_FALSE(isBlue(seen.pixelColor(705, 150)));
}

TEST_F(WindowPicture, OfTheBackdropCoversTheScreenAndIsCutAtTheSides) {
    store(u"fond_Essai.jpg", {1600, 100});
    TestForm form(bench.screen);
    form.backdrop = true;
    form.show();
    const QImage seen = bench.window(form)->grab().toImage();
    const int middle = seen.width() / 2;
    for (const int y : {0, seen.height() - 1}) {
        EXPECT_TRUE(isRed(seen.pixelColor(0, y)));
        EXPECT_TRUE(isRed(seen.pixelColor(middle - 40, y)));
        EXPECT_TRUE(isBlue(seen.pixelColor(middle + 40, y)));
        EXPECT_TRUE(isBlue(seen.pixelColor(seen.width() - 1, y)));
    }
}

struct TitledForm : TestForm {
    explicit TitledForm(Screen &ownScreen, const char *ownName) : TestForm(ownScreen, ownName) {
        Titre.place = {300, 300, 5400, 1200};
        Titre.FontSize = 30;
        Titre.look = Label::Look::title;
        Titre.Caption = u"Le titre";
    }
    Label Titre{*this, "Titre"};
};

TEST_F(WindowPicture, ShowsTheTitleSoThatTheLabelKeepsItForWhoeverHearsTheWindow) {
    store(u"fond_Essai.jpg", {400, 300});
    TitledForm pictured(bench.screen, "Essai"), plain(bench.screen, "Autre");
    const auto inks = [this](TitledForm &form) {
        form.show();
        EXPECT_EQ(bench.mirror(form.Titre)->widget()->accessibleName(), QStringLiteral("Le titre"));
        const QImage seen = bench.window(form)->grab().toImage();
        int count = 0;
        for (int x = 20; x < 180; ++x) {
            for (int y = 20; y < 100; ++y) {
                count += qGray(seen.pixel(x, y)) > 150 ? 1 : 0; // the letters are pale
            }
        }
        return count;
    };
    EXPECT_EQ(inks(pictured), 0);
    EXPECT_GT(inks(plain), 100);
}

TEST_F(WindowPicture, AWindowWithoutAPictureOfItsOwnIsNeverGrey) {
    for (const bool parchment : {false, true}) {
        TestForm form(bench.screen);
        form.parchment = parchment;
        form.show();
        const QColor seen = bench.window(form)->grab().toImage().pixelColor(200, 150);
        EXPECT_GT(std::abs(seen.red() - seen.blue()), 20) << parchment;
    }
}

TEST_F(WindowPicture, IsTheSameWhenItWasForeseen) {
    store(u"fond_Essai.jpg", {1200, 900});
    for (const bool backdrop : {false, true}) {
        TestForm form(bench.screen);
        form.backdrop = backdrop;
        form.show();
        FormWindow *window = bench.window(form);
        EXPECT_EQ(window->size(), insideOf(form, 1)) << backdrop;
        const QImage read = window->grab().toImage();
        form.unload();
        bench.windows.foresee(form);
        form.show();
        EXPECT_EQ(bench.window(form)->grab().toImage(), read) << backdrop;
    }
}

TEST_F(WindowPicture, TheDesktopKnowsThemByTheMenuEntryAndTheIcon) {
    EXPECT_EQ(QGuiApplication::desktopFileName(), QStringLiteral("grimoval"));
    EXPECT_TRUE(QGuiApplication::windowIcon().isNull()); // no picture, no icon
    bench.folder.makeFolder(u"IMAGES");
    for (const int side : {32, 128}) {
        QImage image(side, side, QImage::Format_ARGB32);
        image.fill(Qt::red);
        const std::string name = "IMAGES/icone-" + std::to_string(side) + ".png";
        ASSERT_TRUE(image.save(QString::fromStdString(bench.folder.bytePath(fromUtf8(name)))));
    }
    QtWindows windows(bench.files, bench.folder.path());
    windows.setIcon();
    const QIcon icon = QGuiApplication::windowIcon();
    EXPECT_EQ(icon.availableSizes(), (QList<QSize>{{32, 32}, {128, 128}}));
    EXPECT_EQ(icon.pixmap(32, 32).toImage().pixelColor(16, 16), QColor(Qt::red));
}

} // namespace
} // namespace grimoval::test
