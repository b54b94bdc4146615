// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/bench.h"

#include <QDialog>
#include <QExposeEvent>
#include <QIcon>
#include <QPointer>
#include <QScreen>
#include <QWindow>

#include <optional>

namespace grimoval::test {
namespace {

struct Windows : testing::Test {
    Bench bench;
};

TEST_F(Windows, TheScreenIsTold15TwipsAPixel) {
    const QSize size = QGuiApplication::primaryScreen()->geometry().size();
    EXPECT_EQ(bench.screen.Width(), size.width() * 15);
    EXPECT_EQ(bench.screen.Height(), size.height() * 15);
}

TEST_F(Windows, OneFactorFillsMostOfTheScreenAndLeavesRoomForATitleBarAndAPanel) {
    EXPECT_DOUBLE_EQ(QtWindows::factorFor({800, 600}), 1);
    EXPECT_NEAR(QtWindows::factorFor({1024, 600}), 0.910, 0.001);
    EXPECT_NEAR(QtWindows::factorFor({1024, 768}), 1.165, 0.001);
    EXPECT_NEAR(QtWindows::factorFor({1366, 768}), 1.165, 0.001);
    EXPECT_NEAR(QtWindows::factorFor({1920, 1080}), 1.639, 0.001);
    EXPECT_DOUBLE_EQ(QtWindows::factorFor({640, 480}), 0.8);
    EXPECT_NEAR(QtWindows::factorFor({3840, 2160}), 3.277, 0.001);
    EXPECT_NEAR(QtWindows::factorFor({1280, 480}), 0.728, 0.001);
}

TEST_F(Windows, AWindowGrowsAroundItsOwnCentre) {
    TestForm form(bench.screen);
    form.centred = false;
    form.Left = 4500;
    form.Top = 3000;
    bench.windows.setFactor(1.5);
    form.show();
    EXPECT_EQ(bench.window(form)->geometry(), QRect(200, 125, 600, 450));
    form.Left = 6000;
    EXPECT_EQ(bench.window(form)->geometry().left(), 300);
    EXPECT_EQ(bench.window(form)->minimumSize(), bench.window(form)->maximumSize());
}

// This platform has one screen of one size: what is fitted is what the windows take it for.
TEST_F(Windows, OnAScreenThatHasChangedTheyComeBackToItsMiddleAndFitIt) {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    TestForm form(bench.screen), centred(bench.screen, "Milieu");
    Label label(form, "Txt");
    label.place = {0, 0, 6000, 4500};
    form.centred = false;
    form.Left = 13000;
    form.Top = 9000;
    form.show();
    centred.show();
    for (const double part : {2.0, 0.5, 1.0}) {
        bench.windows.fitScreen({});
        bench.windows.fitScreen(screen.size() * part);
        const double factor =
            std::min(screen.width() * part * 0.92 / 800, screen.height() * part * 0.88 / 580);
        EXPECT_DOUBLE_EQ(bench.windows.factor(), factor);
        for (const TestForm *each : {&form, &centred}) {
            const QRect place = bench.windows.windowOf(*each)->geometry();
            EXPECT_NEAR(place.width(), 400 * factor, 1);
            EXPECT_NEAR(place.height(), 300 * factor, 1);
        }
        const QPoint middle = bench.window(form)->geometry().center();
        EXPECT_NEAR(middle.x(), screen.width() * part / 2, 1);
        EXPECT_NEAR(middle.y(), screen.height() * part / 2, 1);
        EXPECT_NEAR(bench.mirror(label)->widget()->width(), 400 * factor, 1);
    }
}

TEST_F(Windows, AMaximisedWindowScalesItsContentToItsSizeAndCentresIt) {
    TestForm form(bench.screen);
    Label label(form, "Txt");
    label.place = {0, 0, 6000, 4500};
    form.WindowState = 2;
    form.show();
    bench.settle();
    FormWindow *window = bench.window(form);
    EXPECT_TRUE(window->isMaximized());
    window->resize(800, 900);
    EXPECT_EQ(bench.mirror(label)->widget()->geometry(), QRect(0, 150, 800, 600));
}

TEST_F(Windows, AWindowWithoutATitleBarHasNoFrameAndTheCaptionIsTheTitle) {
    TestForm bare(bench.screen, "Nue"), titled(bench.screen, "Titre");
    titled.titleBar = true;
    titled.Caption = u"Le titre";
    bare.show();
    titled.show();
    EXPECT_TRUE(bench.window(bare)->windowFlags() & Qt::FramelessWindowHint);
    EXPECT_EQ(bench.window(bare)->windowTitle().toStdString(), " "); // not the program's own
    EXPECT_EQ(bench.window(bare)->accessibleName().toStdString(), "Le Grimoval");
    EXPECT_FALSE(bench.window(titled)->windowFlags() & Qt::FramelessWindowHint);
    EXPECT_TRUE(bench.window(titled)->windowFlags() & Qt::WindowCloseButtonHint);
    EXPECT_EQ(bench.window(titled)->windowTitle().toStdString(), "Le titre");
    titled.Caption = u"Autre";
    EXPECT_EQ(bench.window(titled)->windowTitle().toStdString(), "Autre");
}

TEST_F(Windows, TheBackdropFillsTheScreenInItsColourUnderTheOthers) {
    TestForm backdrop(bench.screen, "Fplein"), menu(bench.screen, "FMenu"),
        about(bench.screen, "FAbout");
    backdrop.backdrop = about.titleBar = true;
    backdrop.BackColor = Colour{0x000040};
    backdrop.show();
    FormWindow *plain = bench.window(backdrop);
    EXPECT_TRUE(plain->windowFlags() & Qt::WindowDoesNotAcceptFocus);
    EXPECT_EQ(plain->geometry(), QGuiApplication::primaryScreen()->geometry());
    EXPECT_EQ(plain->grab().toImage().pixelColor(3, 3), QColor(0, 0, 0x40));
    Bench::later([&] {
        EXPECT_EQ(bench.window(menu)->windowHandle()->transientParent(), plain->windowHandle());
        EXPECT_EQ(bench.window(menu)->windowModality(), Qt::NonModal);
        Bench::later([&] {
            EXPECT_EQ(bench.window(about)->windowHandle()->transientParent(),
                      bench.window(menu)->windowHandle());
            EXPECT_EQ(bench.window(about)->windowModality(), Qt::ApplicationModal);
            EXPECT_TRUE(bench.window(about)->windowFlags() & Qt::WindowTitleHint);
            EXPECT_FALSE(bench.window(about)->windowFlags() & Qt::WindowCloseButtonHint);
            about.unload();
        });
        about.showModal();
        menu.unload();
    });
    menu.showModal();
    EXPECT_FALSE(menu.isLoaded());
}

TEST_F(Windows, AModalWindowReturnsWhenItIsHiddenOrUnloaded) {
    for (const bool hides : {true, false}) {
        TestForm form(bench.screen);
        bool during = false;
        Bench::later([&] {
            during = bench.window(form)->isVisible();
            hides ? form.hide() : form.unload();
        });
        form.showModal();
        EXPECT_TRUE(during);
        EXPECT_FALSE(form.isShown());
        EXPECT_EQ(form.isLoaded(), hides);
    }
}

TEST_F(Windows, ModalWindowsNestAndEachReturnsByItself) {
    TestForm outer(bench.screen, "Dehors"), inner(bench.screen, "Dedans");
    std::vector<std::string> order;
    Bench::later([&] {
        Bench::later([&] { inner.unload(); });
        inner.showModal();
        order.push_back("dedans");
        outer.unload();
    });
    outer.showModal();
    order.push_back("dehors");
    EXPECT_EQ(order, (std::vector<std::string>{"dedans", "dehors"}));
}

TEST_F(Windows, TheCloseButtonAsksTheFormAndClosesNothingItself) {
    TestForm form(bench.screen);
    form.refuses = true;
    form.show();
    const QPointer<FormWindow> window = bench.window(form);
    window->close();
    EXPECT_EQ(form.asked, std::vector<UnloadMode>{UnloadMode::person});
    EXPECT_TRUE(window->isVisible());
    form.refuses = false;
    window->close();
    EXPECT_EQ(form.unloads, 1);
    EXPECT_EQ(bench.windows.windowOf(form), nullptr);
    bench.settle();
    EXPECT_TRUE(window.isNull());
}

TEST_F(Windows, AFormMayUnloadItselfInAHandlerOfItsOwnControl) {
    TestForm form(bench.screen);
    PictureButton button(form, "Cmd");
    button.place = {0, 0, 1500, 1500};
    button.Click = [&] { form.unload(); };
    form.show();
    const QPointer<QWidget> view = bench.mirror(button)->widget();
    QTest::mouseClick(view, Qt::LeftButton);
    EXPECT_FALSE(form.isLoaded());
    ASSERT_FALSE(view.isNull()); // we stood inside it
    bench.settle();
    EXPECT_TRUE(view.isNull());
}

TEST_F(Windows, AFormUnloadedUnderAModalWindowOfItsOwnOutlivesItsHandler) {
    TestForm below(bench.screen, "Dessous"), above(bench.screen, "Dessus");
    PictureButton button(below, "Cmd");
    button.place = {0, 0, 1500, 1500};
    bool aliveInside = false, aliveAfter = false;
    QPointer<QWidget> view;
    button.Click = [&] {
        Bench::later([&] {
            below.unload();
            Bench::later([&] {
                Bench::settle();
                aliveInside = !view.isNull();
                above.unload();
            });
        });
        above.showModal();
        aliveAfter = !view.isNull();
    };
    below.show();
    view = bench.mirror(button)->widget();
    QTest::mouseClick(view, Qt::LeftButton);
    EXPECT_TRUE(aliveInside);
    EXPECT_TRUE(aliveAfter);
    bench.settle();
    EXPECT_TRUE(view.isNull());
}

TEST_F(Windows, AFormThatDiesTakesItsWindowWithItAndNothingReachesItAfter) {
    std::optional<TestForm> form(std::in_place, bench.screen);
    std::optional<PictureButton> button(std::in_place, *form, "Cmd");
    std::optional<Gauge> gauge(std::in_place, *form, "Flux");
    std::optional<Timer> timer(std::in_place, *form, "Minut");
    int clicks = 0;
    button->place = {0, 0, 1500, 1500};
    button->Click = [&] { ++clicks; };
    timer->Interval = 1;
    timer->Tick = [&] { ++clicks; };
    form->show();
    gauge->Lancer();
    const QPointer<FormWindow> window = bench.window(*form);
    const QPointer<QWidget> view = bench.mirror(*button)->widget();
    timer.reset();
    gauge.reset();
    button.reset(); // as the members of a window go before it
    form.reset();
    ASSERT_FALSE(view.isNull());
    QTest::mouseClick(view, Qt::LeftButton);
    QTest::qWait(10);
    EXPECT_EQ(clicks, 0);
    bench.settle();
    EXPECT_TRUE(window.isNull());
}

TEST_F(Windows, WindowsThatGoFirstLeaveTheFormWhole) {
    // The order in which a program may also take them down: the windows, then the form.
    TemporaryFolder folder;
    Files files;
    auto windows = std::make_unique<QtWindows>(files, folder.path());
    struct Passing : WindowSystem {
        WindowSystem *to = nullptr;
        int screenWidth() override { return 0; }
        int screenHeight() override { return 0; }
        void loaded(Form &f) override { to->loaded(f); }
        void shown(Form &f, Form *opener) override { to->shown(f, opener); }
        void hidden(Form &f) override {
            if (to)
                to->hidden(f);
        }
        void unloaded(Form &f) override {
            if (to)
                to->unloaded(f);
        }
        void changed(Element &e, PropertyBase &p) override {
            if (to)
                to->changed(e, p);
        }
        void focusMoved(Control &c) override {
            if (to)
                to->focusMoved(c);
        }
        void runModal(Form &) override {}
        void processEvents() override {}
        void message(const Message &) override {}
        void beep() override {}
        void checkPicture(const Texte &) override {}
    } passing;
    passing.to = windows.get();
    Screen screen(passing);
    TestForm form(screen);
    Label label(form, "Txt");
    form.show();
    const QPointer<FormWindow> window = windows->windowOf(form);
    passing.to = nullptr;
    windows.reset();
    EXPECT_TRUE(window.isNull());
    label.Caption = u"encore là";
    EXPECT_TRUE(form.isShown());
}

TEST_F(Windows, PaintComesFromTheCoreAtTheFirstShowingAndFromAReturnIntoViewAfter) {
    TestForm form(bench.screen);
    form.show();
    bench.settle();
    EXPECT_EQ(form.paints, 1);
    EXPECT_EQ(form.activations, 1);
    bench.window(form)->repaint(); // the toolkit's own painting is none of it
    bench.settle();
    EXPECT_EQ(form.paints, 1);
    bench.window(form)->windowHandle()->setVisible(false);
    bench.settle();
    bench.window(form)->windowHandle()->setVisible(true);
    bench.settle();
    EXPECT_EQ(form.paints, 2);
    EXPECT_EQ(form.activations, 1);
}

TEST_F(Windows, AWindowHiddenAndShownByTheCodeIsPaintedByTheCoreAlone) {
    TestForm form(bench.screen);
    form.show();
    bench.settle();
    form.hide();
    bench.settle();
    form.show();
    bench.settle();
    EXPECT_EQ(form.paints, 2);
}

TEST_F(Windows, AWindowHiddenAndShownAgainInOneGoHasTheKeyboard) {
    TestForm form(bench.screen);
    TextField field(form, "Saisie", 0);
    field.place = {0, 0, 3000, 450};
    bench.show(form);
    form.hide();
    form.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(bench.window(form)));
    EXPECT_TRUE(bench.mirror(field)->widget()->hasFocus());
}

TEST_F(Windows, TheOpenerHasTheKeyboardAgainWhenAModalWindowHasGone) {
    TestForm below(bench.screen, "Dessous"), above(bench.screen, "Dessus");
    bench.show(below);
    Bench::later([&] {
        EXPECT_TRUE(QTest::qWaitForWindowActive(bench.window(above)));
        above.unload();
    });
    above.showModal();
    EXPECT_TRUE(QTest::qWaitForWindowActive(bench.window(below)));
}

TEST_F(Windows, TheHourglassIsUpExactlyWhileTheScreenAsksForIt) {
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    bench.screen.MousePointer = 11;
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    bench.screen.MousePointer = 0;
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(Windows, AtTheEndAllOfThemGoTheBackdropToo) {
    TestForm backdrop(bench.screen, "Fplein"), menu(bench.screen, "FMenu"),
        above(bench.screen, "FScore2");
    backdrop.backdrop = true;
    for (TestForm *form : {&backdrop, &menu, &above}) {
        form->show();
    }
    bench.windows.leave();
    for (const TestForm *form : {&backdrop, &menu, &above}) {
        EXPECT_FALSE(bench.windows.windowOf(*form)->isVisible()) << form->path();
        EXPECT_FALSE(bench.windows.windowOf(*form)->windowHandle()->isVisible()) << form->path();
    }
}

TEST_F(Windows, ProcessEventsLetsTimersIn) {
    bool done = false;
    Bench::later([&] { done = true; });
    bench.screen.processEvents();
    EXPECT_TRUE(done);
}

} // namespace
} // namespace grimoval::test
