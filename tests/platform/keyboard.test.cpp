// SPDX-License-Identifier: GPL-3.0-or-later
// Keys: the window sees them first, then the control that has the keyboard.
#include "support/world.h"

#include <gtest/gtest.h>

namespace grimoval {
namespace {

using test::Events;

struct Window : Form {
    explicit Window(Screen &screen) : Form(screen, "FEssai") {}

    PictureButton first{*this, "Premier"};
    Label label{*this, "Etiquette"};
    TextField field{*this, "Champ"};
    CheckBox check{*this, "Case"};
    Events keys;
    std::function<void(Int16 &)> onKeyPress;

protected:
    void Form_KeyDown(const Key &key) override {
        keys.push_back("down " + std::to_string(key.code));
    }
    void Form_KeyPress(Int16 &keyAscii) override {
        keys.push_back("press " + std::to_string(keyAscii));
        if (onKeyPress) {
            onKeyPress(keyAscii);
        }
    }
};

Key key(int code, bool shift = false) {
    Key made;
    made.code = code;
    made.shift = shift;
    return made;
}

Key space() { return Key::typed(u' '); }

struct KeyboardTest : testing::Test {
    test::World world;
    Window window{world.screen};
    int clicks = 0;

    KeyboardTest() {
        window.first.Click = [this] { ++clicks; };
        window.show();
    }
    void type(const Texte &text) {
        for (const char16_t character : text) {
            window.pressKey(Key::typed(character));
        }
    }
    std::string focused() const { return window.focus() == nullptr ? "" : window.focus()->name(); }
};

TEST_F(KeyboardTest, ATypedCharacterHasTheCodeOfItsCapital) {
    EXPECT_EQ(Key::typed(u'a').code, 'A');
    EXPECT_EQ(Key::typed(u'A').code, 'A');
    EXPECT_EQ(Key::typed(u'7').code, '7');
    EXPECT_EQ(Key::typed(u'é').code, 0xC9);
    EXPECT_EQ(Key::typed(u'é').character, u'é');
    EXPECT_EQ(space().code, Key::space);
}

TEST_F(KeyboardTest, TheWindowSeesTheKeyAndThenItsCharacterInWindows1252) {
    type(u"aé€");
    EXPECT_EQ(window.keys,
              (Events{"down 65", "press 97", "down 201", "press 233", "down 128", "press 128"}));
}

TEST_F(KeyboardTest, ACharacterOutsideWindows1252ReachesTheWindowAsAQuestionMark) {
    type(u"ж");
    EXPECT_EQ(window.keys.back(), "press 63");
}

TEST_F(KeyboardTest, EnterEscapeBackAndTabAreCharactersToo) {
    for (const int code : {Key::enter, Key::escape, Key::back, Key::tab}) {
        window.pressKey(key(code));
    }
    EXPECT_EQ(window.keys, (Events{"down 13", "press 13", "down 27", "press 27", "down 8",
                                   "press 8", "down 9", "press 9"}));
}

TEST_F(KeyboardTest, AKeyWithoutACharacterIsNoKeyPress) {
    window.pressKey(key(Key::f4));
    window.pressKey(key(37));
    EXPECT_EQ(window.keys, (Events{"down 115", "down 37"}));
}

TEST_F(KeyboardTest, WithAltAKeyIsNoKeyPressAndTypesNothing) {
    window.setFocus(window.field);
    Key alt = Key::typed(u'a');
    alt.alt = true;
    window.pressKey(alt);
    EXPECT_EQ(window.keys, Events{"down 65"});
    EXPECT_EQ(window.field.Text.get(), u"");
}

TEST_F(KeyboardTest, TheSpaceBarClicksTheControlThatHasTheKeyboard) {
    window.pressKey(space());
    EXPECT_EQ(clicks, 1);
    window.setFocus(window.check);
    window.pressKey(space());
    EXPECT_EQ(window.check.Value.get(), 1);
    EXPECT_EQ(clicks, 1);
}

TEST_F(KeyboardTest, TheWindowSwallowsAKeyByPuttingZero) {
    window.onKeyPress = [](Int16 &keyAscii) { keyAscii = 0; };
    window.pressKey(space());
    EXPECT_EQ(clicks, 0);
    window.pressKey(key(Key::tab));
    EXPECT_EQ(focused(), "Premier");
    window.setFocus(window.field);
    type(u"a");
    EXPECT_EQ(window.field.Text.get(), u"");
}

TEST_F(KeyboardTest, TheWindowMayTurnACharacterIntoAnother) {
    window.onKeyPress = [](Int16 &keyAscii) {
        if (keyAscii == 'e') {
            keyAscii = 0xE9;
        }
    };
    window.setFocus(window.field);
    type(u"bec");
    EXPECT_EQ(window.field.Text.get(), u"béc");
}

TEST_F(KeyboardTest, TheFieldSeesTheCharacterAfterTheWindowAndMaySwallowItToo) {
    window.setFocus(window.field);
    window.onKeyPress = [](Int16 &keyAscii) { keyAscii = keyAscii == 'a' ? 'b' : int(keyAscii); };
    window.field.KeyPress = [&](Int16 &keyAscii) {
        window.keys.push_back("champ " + std::to_string(keyAscii));
        if (keyAscii == 'c') {
            keyAscii = 0;
        }
    };
    type(u"ac");
    EXPECT_EQ(window.keys,
              (Events{"down 65", "press 97", "champ 98", "down 67", "press 99", "champ 99"}));
    EXPECT_EQ(window.field.Text.get(), u"b");
    window.setFocus(window.first);
    type(u"d");
    EXPECT_EQ(window.keys.back(), "press 100") << "a field without the keyboard sees nothing";
}

TEST_F(KeyboardTest, AWindowThatGoesAtAKeyGivesItToNobody) {
    window.onKeyPress = [&](Int16 &) { window.hide(); };
    window.setFocus(window.field);
    type(u"a");
    EXPECT_EQ(window.field.Text.get(), u"");
    window.show();
    window.setFocus(window.first);
    window.pressKey(space());
    EXPECT_EQ(clicks, 0);
}

TEST_F(KeyboardTest, ACharacterIsTypedIntoTheFieldThatHasTheKeyboardAlone) {
    type(u"a");
    EXPECT_EQ(window.field.Text.get(), u"");
    window.setFocus(window.field);
    type(u"Zoé et Max");
    EXPECT_EQ(window.field.Text.get(), u"Zoé et Max");
    EXPECT_EQ(clicks, 0) << "in a field the space bar is a blank";
}

TEST_F(KeyboardTest, BackTakesTheLastCharacterIfThereIsOne) {
    window.setFocus(window.field);
    type(u"né");
    window.pressKey(key(Key::back));
    EXPECT_EQ(window.field.Text.get(), u"n");
    window.pressKey(key(Key::back));
    window.pressKey(key(Key::back));
    EXPECT_EQ(window.field.Text.get(), u"");
}

TEST_F(KeyboardTest, EnterAndEscapeLeaveTheFieldAsItIs) {
    window.setFocus(window.field);
    type(u"a");
    window.pressKey(key(Key::enter));
    window.pressKey(key(Key::escape));
    window.pressKey(key(Key::f4));
    EXPECT_EQ(window.field.Text.get(), u"a");
}

TEST_F(KeyboardTest, TheFieldTakesNoMoreThanItsLength) {
    window.field.maxLength = 3;
    window.setFocus(window.field);
    int changes = 0;
    window.field.Change = [&] { ++changes; };
    type(u"Zoélie");
    EXPECT_EQ(window.field.Text.get(), u"Zoé");
    EXPECT_EQ(changes, 3);
}

} // namespace
} // namespace grimoval
