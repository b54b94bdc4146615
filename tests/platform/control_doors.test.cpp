// SPDX-License-Identifier: GPL-3.0-or-later
// The doors by which a person and a test come in: what is hidden, greyed or disabled lets nobody
// in, and then nothing happens at all.
#include "every_control.h"
#include "support/failures.h"
#include "support/world.h"

#include <gtest/gtest.h>

namespace grimoval {
namespace {

using test::failureNumber;

struct ControlDoorsTest : testing::Test {
    test::World world;
    test::EveryControl window{world.screen};
    int events = 0;
    const std::function<void()> count = [this] { ++events; };

    ControlDoorsTest() {
        window.list.Items = std::vector<Texte>{u"a", u"b", u"c"};
        window.show();
        window.label.Click = window.button.Click = window.letter.Click = count;
        window.picture.Click = window.shape.Click = window.check.Click = count;
        window.list.Click = window.bar.Change = window.field.Change = count;
    }
    // How many events the door raised; -1 if it let nobody in. Then nothing may have happened.
    int through(const std::function<bool()> &door) {
        events = 0;
        world.windows.take();
        if (door()) {
            return events;
        }
        EXPECT_EQ(events, 0);
        EXPECT_EQ(world.windows.take(), test::Events{});
        return -1;
    }
    int clickOn(auto &control) {
        return through([&] { return control.userClick(); });
    }
    // Sets a property for one try.
    template <class T>
    void with(Property<T> &property, const T &value, const std::function<void()> &attempt) {
        const T before = property;
        property = value;
        attempt();
        property = before;
    }
};

TEST_F(ControlDoorsTest, AClickOnAnOpenControlIsItsEvent) {
    EXPECT_EQ(clickOn(window.label), 1);
    EXPECT_EQ(clickOn(window.button), 1);
    EXPECT_EQ(clickOn(window.letter), 1);
    EXPECT_EQ(clickOn(window.picture), 1);
    EXPECT_EQ(clickOn(window.shape), 1);
    EXPECT_EQ(clickOn(window.check), 1);
}

TEST_F(ControlDoorsTest, AHiddenControlTakesNoClick) {
    with(window.label.Visible, false, [&] { EXPECT_EQ(clickOn(window.label), -1); });
    with(window.button.Visible, false, [&] { EXPECT_EQ(clickOn(window.button), -1); });
    with(window.picture.Visible, false, [&] { EXPECT_EQ(clickOn(window.picture), -1); });
    with(window.shape.Visible, false, [&] { EXPECT_EQ(clickOn(window.shape), -1); });
    window.letter.shownOnScreen = false;
    EXPECT_EQ(clickOn(window.letter), -1);
}

TEST_F(ControlDoorsTest, AGreyedOrDisabledControlTakesNoClick) {
    with(window.button.Inactif, true, [&] { EXPECT_EQ(clickOn(window.button), -1); });
    with(window.letter.Enabled, false, [&] { EXPECT_EQ(clickOn(window.letter), -1); });
    with(window.check.Enabled, false, [&] {
        EXPECT_EQ(clickOn(window.check), -1);
        EXPECT_EQ(window.check.Value.get(), 0);
    });
}

TEST_F(ControlDoorsTest, AControlWithoutAClickEventTakesNone) {
    window.label.Click = window.button.Click = window.shape.Click = nullptr;
    EXPECT_EQ(clickOn(window.label), -1);
    EXPECT_EQ(clickOn(window.button), -1);
    EXPECT_EQ(clickOn(window.shape), -1);
}

TEST_F(ControlDoorsTest, WhatLiesInAHiddenContainerIsHidden) {
    Control *const inside[] = {&window.button, &window.letter, &window.list,  &window.check,
                               &window.bar,    &window.field,  &window.shape, &window.label};
    for (Control *control : inside) {
        control->container = &window.picture;
        EXPECT_TRUE(control->isVisible()) << control->path();
        EXPECT_TRUE(control->isOpen()) << control->path();
    }
    with(window.picture.Visible, false, [&] {
        for (const Control *control : inside) {
            EXPECT_FALSE(control->isVisible()) << control->path();
            EXPECT_FALSE(control->isOpen()) << control->path();
            EXPECT_FALSE(control->takesFocus()) << control->path();
        }
        EXPECT_EQ(clickOn(window.button), -1);
        EXPECT_EQ(clickOn(window.check), -1);
        EXPECT_EQ(through([&] { return window.list.userSelect(1); }), -1);
        EXPECT_EQ(through([&] { return window.bar.userScroll(3); }), -1);
        EXPECT_EQ(through([&] { return window.field.userType(u"a"); }), -1);
    });
    EXPECT_EQ(clickOn(window.button), 1);
}

TEST_F(ControlDoorsTest, AContainerInsideAHiddenOneIsHiddenWithAllThatLiesInIt) {
    window.label.container = &window.picture;
    window.button.container = &window.label;
    with(window.picture.Visible, false, [&] { EXPECT_EQ(clickOn(window.button), -1); });
    with(window.label.Visible, false, [&] { EXPECT_EQ(clickOn(window.button), -1); });
}

TEST_F(ControlDoorsTest, ACheckBoxTurnsAtEachClick) {
    EXPECT_EQ(clickOn(window.check), 1);
    EXPECT_EQ(window.check.Value.get(), 1);
    EXPECT_EQ(clickOn(window.check), 1);
    EXPECT_EQ(window.check.Value.get(), 0);
    window.check.Click = nullptr;
    EXPECT_EQ(clickOn(window.check), 0) << "also without an event";
    EXPECT_EQ(window.check.Value.get(), 1);
}

TEST_F(ControlDoorsTest, AListSelectsAnEntryThatItHas) {
    const auto select = [&](int item) {
        return through([&] { return window.list.userSelect(item); });
    };
    EXPECT_EQ(select(2), 1);
    EXPECT_EQ(window.list.ListIndex.get(), 2);
    EXPECT_EQ(select(3), -1);
    EXPECT_EQ(select(-1), -1);
    with(window.list.Enabled, false, [&] { EXPECT_EQ(select(0), -1); });
    EXPECT_EQ(window.list.ListIndex.get(), 2);
    window.list.shownOnScreen = false;
    EXPECT_EQ(select(0), -1);
}

TEST_F(ControlDoorsTest, ADisabledListTakesNoDoubleClick) {
    EXPECT_FALSE(window.list.userDoubleClick()) << "no event";
    window.list.DblClick = count;
    EXPECT_EQ(through([&] { return window.list.userDoubleClick(); }), 1);
    with(window.list.Enabled, false,
         [&] { EXPECT_EQ(through([&] { return window.list.userDoubleClick(); }), -1); });
}

TEST_F(ControlDoorsTest, AScrollBarIsBoundedForAPerson) {
    const auto scroll = [&](int value) {
        return through([&] { return window.bar.userScroll(value); });
    };
    window.bar.Min = 5;
    window.bar.Max = 120;
    EXPECT_EQ(scroll(30), 1);
    EXPECT_EQ(window.bar.Value.get(), 30);
    EXPECT_EQ(scroll(1000), 1);
    EXPECT_EQ(window.bar.Value.get(), 120);
    EXPECT_EQ(scroll(-1000), 1);
    EXPECT_EQ(window.bar.Value.get(), 5);
    with(window.bar.Visible, false, [&] { EXPECT_EQ(scroll(30), -1); });
    EXPECT_EQ(window.bar.Value.get(), 5);
}

TEST_F(ControlDoorsTest, AFieldCutsWhatAPersonTypesAndNotWhatTheCodeSets) {
    window.field.maxLength = 5;
    EXPECT_EQ(through([&] { return window.field.userType(u"Hélène"); }), 1);
    EXPECT_EQ(window.field.Text.get(), u"Hélèn");
    EXPECT_EQ(through([&] { return window.field.userType(u"Hélènes"); }), 0) << "no change";
    window.field.Text = u"Hélène et Zoé";
    EXPECT_EQ(window.field.Text.get(), u"Hélène et Zoé");
    window.field.maxLength = 0;
    EXPECT_EQ(through([&] { return window.field.userType(Texte(500, u'a')); }), 1);
    EXPECT_EQ(window.field.Text.get().size(), 500u);
}

TEST_F(ControlDoorsTest, AFieldTakesABlankForEachControlCharacterThatIsPasted) {
    window.field.maxLength = 9;
    window.field.userType(u"Zoé\r\nL\x1b[2\u009bJ");
    EXPECT_EQ(window.field.Text.get(), u"Zoé  L [2");
    window.field.userType(u"\u009bœ\x7f\u00A0\t");
    EXPECT_EQ(window.field.Text.get(), u" œ \u00A0 ");
}

TEST_F(ControlDoorsTest, TheMouseOverAControlIsItsEventIfItHasOne) {
    window.button.userHover();
    EXPECT_EQ(events, 0);
    window.button.MouseMove = count;
    window.button.userHover();
    EXPECT_EQ(events, 1);
}

TEST_F(ControlDoorsTest, OnlyOpenControlsThatAPersonWorksWithTakeTheKeyboard) {
    const auto taking = [&] {
        std::vector<std::string> names;
        for (const Control *control : window.controls()) {
            if (control->takesFocus()) {
                names.push_back(control->name());
            }
        }
        return names;
    };
    using Names = std::vector<std::string>;
    EXPECT_EQ(taking(),
              (Names{"Bouton", "Lettre(7)", "Liste", "Case", "Barre", "Champ", "Image", "Forme"}));
    window.picture.Click = window.shape.Click = nullptr;
    window.button.Inactif = true;
    window.letter.Enabled = false;
    window.list.Enabled = false;
    window.check.Enabled = false;
    window.bar.Visible = false;
    EXPECT_EQ(taking(), Names{"Champ"});
}

TEST(ControlArray, HasTheControlsFromItsFirstToItsLastIndex) {
    test::World world;
    struct Window : Form {
        explicit Window(Screen &screen) : Form(screen, "FEssai") {}
        ControlArray<Label, 2, 4> words{*this, "AffMot"};
    } window(world.screen);
    EXPECT_EQ(window.words[2].path(), "FEssai.AffMot(2)");
    EXPECT_EQ(window.words[4].name(), "AffMot(4)");
    EXPECT_EQ(window.words[3].index(), 3);
    EXPECT_EQ(std::distance(window.words.begin(), window.words.end()), 3);
    EXPECT_EQ(window.controls().size(), 3u);
    for (const int index : {1, 5, -1, 32767}) {
        EXPECT_EQ(failureNumber([&] { window.words[index]; }), failure::noSuchElement) << index;
    }
}

struct KindNames : ControlVisitor {
    std::vector<std::string> names;
    void visit(Label &) override { names.push_back("Label"); }
    void visit(PictureButton &) override { names.push_back("PictureButton"); }
    void visit(LetterButton &) override { names.push_back("LetterButton"); }
    void visit(Gauge &) override { names.push_back("Gauge"); }
    void visit(List &) override { names.push_back("List"); }
    void visit(CheckBox &) override { names.push_back("CheckBox"); }
    void visit(ScrollBar &) override { names.push_back("ScrollBar"); }
    void visit(TextField &) override { names.push_back("TextField"); }
    void visit(Picture &) override { names.push_back("Picture"); }
    void visit(Shape &) override { names.push_back("Shape"); }
    void visit(Table &) override { names.push_back("Table"); }
    void visit(Timer &) override { names.push_back("Timer"); }
};

TEST(ControlVisitor, SeesEachControlAsItsKindInOrderOfDeclaration) {
    test::World world;
    const test::EveryControl window(world.screen);
    KindNames kinds;
    for (Control *control : window.controls()) {
        control->accept(kinds);
    }
    EXPECT_EQ(kinds.names,
              (std::vector<std::string>{"Label", "PictureButton", "LetterButton", "Gauge", "List",
                                        "CheckBox", "ScrollBar", "TextField", "Picture", "Shape",
                                        "Table", "Timer"}));
}

} // namespace
} // namespace grimoval
