// SPDX-License-Identifier: GPL-3.0-or-later
// Short movements: what they show is there from the first frame, and a desktop that wants none has
// none.
#include "qt/bench.h"

#include "platform/qt/motion.h"

namespace grimoval::test {
namespace {

struct Motion : testing::Test {
    ~Motion() override { motion::setWanted(false); }
};

struct Settings : testing::Test {
    TemporaryFolder folder;
    void write(const Texte &file, const std::string &text) { folder.write(file, text); }
    bool wanted() {
        return motion::settingsWantMotion(QString::fromStdString(folder.bytePath(u"")));
    }
};

TEST_F(Settings, WantMotionUnlessOneSaysNo) {
    EXPECT_TRUE(wanted());
    write(u"kdeglobals", "[KDE]\nAnimationDurationFactor=0.5\n");
    EXPECT_TRUE(wanted());
    write(u"kdeglobals", "[KDE]\nAnimationDurationFactor=0\n");
    EXPECT_FALSE(wanted());
}

TEST_F(Settings, OfGtkAreReadInEveryWayThatTheyAreWritten) {
    folder.makeFolder(u"gtk-3.0");
    for (const char *no : {"0", "false", "False", "FALSE"}) {
        write(u"gtk-3.0/settings.ini",
              std::string("[Settings]\ngtk-enable-animations=") + no + "\n");
        EXPECT_FALSE(wanted()) << no;
    }
    for (const char *yes : {"1", "true", "", "sottise"}) {
        write(u"gtk-3.0/settings.ini",
              std::string("[Settings]\ngtk-enable-animations=") + yes + "\n");
        EXPECT_TRUE(wanted()) << yes;
    }
    folder.makeFolder(u"gtk-4.0");
    write(u"gtk-4.0/settings.ini", "[Settings]\ngtk-enable-animations=0\n");
    EXPECT_FALSE(wanted());
}

TEST_F(Motion, AGlideArrivesAtOnceWhereNoneIsWanted) {
    int moves = 0;
    Glide glide([&] { ++moves; });
    glide.moveTo(1, 10'000);
    EXPECT_EQ(glide.value(), 1);
    EXPECT_FALSE(glide.isMoving());
    EXPECT_EQ(moves, 1);
}

TEST_F(Motion, AGlideGoesThroughTheMiddleAndArrives) {
    motion::setWanted(true);
    bool between = false;
    Glide *moving = nullptr;
    Glide glide([&] { between = between || (moving->value() > 0.05 && moving->value() < 0.95); });
    moving = &glide;
    glide.moveTo(1, 120);
    EXPECT_TRUE(glide.isMoving());
    EXPECT_LT(glide.value(), 0.5);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !glide.isMoving(); }, 5000));
    EXPECT_EQ(glide.value(), 1);
    EXPECT_TRUE(between);
}

QImage seen(QWidget &view) { return view.grab().toImage(); }

TEST_F(Motion, AFoundLetterCanBeReadFromItsFirstFrame) {
    motion::setWanted(true);
    QWidget parent;
    WordView view(&parent);
    view.setFactor(1);
    view.resize(706, 104);
    parent.show();
    LabelText text;
    text.points = 15;
    text.look = Label::Look::word;
    text.colour = colours::blue;
    text.text = QStringLiteral("####");
    view.write(text);
    const QImage closed = seen(view);
    text.text = QStringLiteral("#A#A");
    view.write(text);
    EXPECT_FALSE(view.pieces()[0].fresh);
    EXPECT_TRUE(view.pieces()[1].fresh && view.pieces()[3].fresh);
    const QImage landing = seen(view);
    // White ground and blue ink in the middle of the tile: the letter is there.
    const QRect tile = view.pieces()[1].place.toRect();
    int light = 0, dark = 0;
    for (int y = tile.top(); y < tile.bottom(); ++y) {
        for (int x = tile.left(); x < tile.right(); ++x) {
            const QColor here = landing.pixelColor(x, y);
            light += here.lightness() > 230;
            dark += here.blue() > here.red() + 60 && here.lightness() < 140;
        }
    }
    EXPECT_GT(light, tile.width() * tile.height() / 3);
    EXPECT_GT(dark, tile.width() * tile.height() / 30);
    EXPECT_NE(landing, closed);
    WordView still(&parent);
    motion::setWanted(false);
    still.setFactor(1);
    still.resize(706, 104);
    still.write(text);
    const QImage landed = seen(still);
    EXPECT_NE(landed, landing);
    EXPECT_TRUE(QTest::qWaitFor([&] { return seen(view) == landed; }));
}

TEST_F(Motion, TheCurtainFallsAndEndsWhereItWouldHaveStood) {
    QImage white(300, 300, QImage::Format_RGB32);
    white.fill(Qt::white);
    QWidget parent;
    PictureView view(&parent), still(&parent);
    for (PictureView *one : {&view, &still}) {
        one->setFactor(1);
        one->resize(272, 204);
        one->setPicture(white);
        one->setFramed(true);
    }
    still.setCurtain(0.005);
    motion::setWanted(true);
    view.setCurtain(0.005);
    EXPECT_TRUE(QTest::qWaitFor([&] { return seen(view) == seen(still); }));
    motion::setWanted(false);
    still.setCurtain(0.5);
    motion::setWanted(true);
    view.setCurtain(0.5);
    EXPECT_DOUBLE_EQ(view.curtain().height(), view.inner().height() / 2)
        << "the state is told at once";
    EXPECT_NE(seen(view), seen(still));
    EXPECT_TRUE(QTest::qWaitFor([&] { return seen(view) == seen(still); }));
    view.setCurtain(-1);
    still.setCurtain(-1);
    EXPECT_EQ(seen(view), seen(still)) << "it is drawn up at once";
}

TEST_F(Motion, AnUnchangedViewPaintsNothing) {
    Bench bench;
    TestForm form(bench.screen);
    Picture picture(form, "VSDessin");
    picture.place = {0, 0, 3000, 3000};
    picture.scaleHeight = 200;
    Shape curtain(form, "Shape1");
    curtain.container = &picture;
    Label word(form, "AffMot", 0);
    word.look = Label::Look::word;
    word.FontSize = 15;
    word.place = {0, 3000, 6000, 1500};
    motion::setWanted(true);
    bench.show(form);
    curtain.Height = 120;
    word.Caption = u"##";
    word.Caption = u"A#";
    struct Painted : QObject {
        int count = 0;
        bool eventFilter(QObject *, QEvent *event) override {
            count += event->type() == QEvent::Paint;
            return false;
        }
    } painted;
    bench.mirror(picture)->widget()->installEventFilter(&painted);
    bench.mirror(word)->widget()->installEventFilter(&painted);
    bench.window(form)->installEventFilter(&painted);
    // All comes to rest, and then nothing is painted for longer than any step of a motion takes.
    EXPECT_TRUE(QTest::qWaitFor([&] {
        painted.count = 0;
        QTest::qWait(400);
        return painted.count == 0;
    }));
    word.Caption = u"AB";
    EXPECT_TRUE(QTest::qWaitFor([&] { return painted.count > 0; }));
}

} // namespace
} // namespace grimoval::test
