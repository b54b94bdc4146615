// SPDX-License-Identifier: GPL-3.0-or-later
// Which control has the keyboard, and how the Tab key moves it.
#include "support/world.h"

#include <gtest/gtest.h>

namespace grimoval {
namespace {

struct Window : Form {
    explicit Window(Screen &screen) : Form(screen, "FEssai") {}

    Label label{*this, "Etiquette"};
    PictureButton a{*this, "A"};
    PictureButton b{*this, "B"};
    Picture panel{*this, "Cadre"};
    TextField c{*this, "C"};
    CheckBox d{*this, "D"};
    std::function<void()> onActivate;

protected:
    void Form_Activate() override {
        if (onActivate) {
            onActivate();
        }
    }
};

struct FocusTest : testing::Test {
    test::World world;
    Window window{world.screen};

    std::string focused() const { return window.focus() == nullptr ? "" : window.focus()->name(); }
    std::string tab(bool shift = false) {
        Key key;
        key.code = Key::tab;
        key.shift = shift;
        window.pressKey(key);
        return focused();
    }
};

TEST_F(FocusTest, TheFirstControlThatTakesItHasItFromTheFirstShowing) {
    EXPECT_EQ(focused(), "");
    std::string seen;
    window.onActivate = [&] { seen = focused(); };
    window.show();
    EXPECT_EQ(seen, "A") << "already when the window is activated";
}

TEST_F(FocusTest, TheFirstOfTheTabOrderHasItNotTheFirstDeclared) {
    window.d.tabIndex = 1;
    window.c.tabIndex = 2;
    window.show();
    EXPECT_EQ(focused(), "D");
    EXPECT_EQ(tab(), "C");
    EXPECT_EQ(tab(), "A");
    EXPECT_EQ(tab(), "B");
    EXPECT_EQ(tab(), "D");
}

TEST_F(FocusTest, TabGoesRoundAndShiftTabBack) {
    window.show();
    EXPECT_EQ(tab(), "B");
    EXPECT_EQ(tab(), "C");
    EXPECT_EQ(tab(), "D");
    EXPECT_EQ(tab(), "A");
    EXPECT_EQ(tab(true), "D");
    EXPECT_EQ(tab(true), "C");
}

TEST_F(FocusTest, TabPassesOverWhatIsClosed) {
    window.show();
    window.b.Inactif = true;
    window.c.container = &window.panel;
    window.panel.Visible = false;
    EXPECT_EQ(tab(), "D");
    EXPECT_EQ(tab(true), "A");
}

TEST_F(FocusTest, TabOnTheOnlyOpenControlStaysThere) {
    window.show();
    window.b.Visible = false;
    window.c.container = &window.panel;
    window.panel.Visible = false;
    window.d.Enabled = false;
    EXPECT_EQ(tab(), "A");
    window.a.Visible = false;
    EXPECT_EQ(tab(), "") << "and nowhere when there is none";
}

TEST_F(FocusTest, AControlThatClosesGivesItToNobodyAndTabGoesOnFromThere) {
    window.show();
    tab();
    window.b.Inactif = true;
    EXPECT_EQ(focused(), "");
    int clicks = 0;
    window.a.Click = [&] { ++clicks; };
    window.pressKey(Key::typed(u' '));
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(window.d.Value.get(), 0);
    EXPECT_EQ(tab(), "C");
}

TEST_F(FocusTest, AControlThatOpensAgainHasItBack) {
    window.show();
    window.a.Inactif = true;
    EXPECT_EQ(focused(), "");
    window.a.Inactif = false;
    EXPECT_EQ(focused(), "A");
}

TEST_F(FocusTest, TheCodeGivesItToAControlThatCanTakeItAndToNoOther) {
    window.show();
    window.setFocus(window.c);
    EXPECT_EQ(focused(), "C");
    window.b.Inactif = true;
    window.setFocus(window.b);
    EXPECT_EQ(focused(), "C");
    window.setFocus(window.label);
    EXPECT_EQ(focused(), "C");
}

TEST_F(FocusTest, ThePersonTakesItToAControl) {
    window.show();
    window.userFocus(window.d);
    EXPECT_EQ(focused(), "D");
    EXPECT_EQ(tab(), "A");
}

TEST_F(FocusTest, AHiddenWindowKeepsItsPlaceAndAReloadedOneStartsAnew) {
    window.show();
    window.setFocus(window.c);
    window.hide();
    window.show();
    EXPECT_EQ(focused(), "C");
    window.unload();
    window.show();
    EXPECT_EQ(focused(), "A");
}

TEST_F(FocusTest, TheWindowSystemIsToldOfEachMoveOfTheCode) {
    struct Told : test::RecordedWindows {
        using RecordedWindows::RecordedWindows;
        void focusMoved(Control &control) override { events.push_back("focus " + control.name()); }
    } system(world.files);
    Screen screen(system);
    Window other(screen);
    other.show();
    other.setFocus(other.c);
    other.setFocus(other.label);
    other.userFocus(other.d);
    EXPECT_EQ(system.take(), (test::Events{"fenetre FEssai affichee", "focus A", "focus C"}));
}

} // namespace
} // namespace grimoval
