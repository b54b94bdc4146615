// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/bench.h"

#include <QInputMethodEvent>

namespace grimoval::test {
namespace {

struct Keys : testing::Test {
    Bench bench;
    TestForm form{bench.screen};
    int clicks = 0;

    void commit(QWidget *field, const QString &text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(field, &event);
    }
};

TEST_F(Keys, LettersEnterEscapeBackAndTabReachTheWindow) {
    bench.show(form);
    bench.press(form, Qt::Key_E, QStringLiteral("e"));
    bench.press(form, Qt::Key_Eacute, QStringLiteral("é"));
    bench.press(form, Qt::Key_Return, QStringLiteral("\r"));
    bench.press(form, Qt::Key_Enter, QStringLiteral("\r"), Qt::KeypadModifier);
    bench.press(form, Qt::Key_Escape, QStringLiteral("\x1b"));
    bench.press(form, Qt::Key_Backspace, QStringLiteral("\b"));
    bench.press(form, Qt::Key_Tab, QStringLiteral("\t"));
    EXPECT_EQ(form.keys, (std::vector<int>{'e', 0xE9, 13, 13, 27, 8, 9}));
}

TEST_F(Keys, AWordOfControlOrAltTypesNothing) {
    std::vector<Key> down;
    form.onKeyDown = [&](const Key &key) { down.push_back(key); };
    bench.show(form);
    bench.press(form, Qt::Key_E, QStringLiteral("\x05"), Qt::ControlModifier);
    bench.press(form, Qt::Key_E, QStringLiteral("e"), Qt::AltModifier);
    bench.press(form, Qt::Key_Shift, {}, Qt::ShiftModifier);
    EXPECT_TRUE(form.keys.empty());
    ASSERT_EQ(down.size(), 2U);
    EXPECT_TRUE(down[1].alt);
}

TEST_F(Keys, TheWindowSeesAKeyBeforeTheFieldAndMaySwallowIt) {
    TextField field(form, "Saisie", 0);
    field.place = {0, 0, 4000, 450};
    form.onKeyPress = [](Int16 &key) {
        if (key == 'x') {
            key = 0;
        }
    };
    bench.show(form);
    bench.press(form, Qt::Key_X, QStringLiteral("x"));
    bench.press(form, Qt::Key_Y, QStringLiteral("y"));
    EXPECT_EQ(toUtf8(field.Text.get()), "y");
    EXPECT_EQ(form.keys, (std::vector<int>{'x', 'y'})); // each once
}

TEST_F(Keys, TheFieldGetsTheCharacterThatTheHandlersMadeOfIt) {
    TextField field(form, "Saisie", 0);
    field.place = {0, 0, 4000, 450};
    field.maxLength = 4;
    field.KeyPress = [](Int16 &key) { key = ansiCode(upper(fromAnsiCode(key))); };
    bench.show(form);
    auto *view = bench.view<FieldView>(field);
    bench.press(form, Qt::Key_Eacute, QStringLiteral("é"));
    bench.press(form, Qt::Key_L, QStringLiteral("l"));
    bench.press(form, Qt::Key_U, QStringLiteral("u"));
    EXPECT_EQ(toUtf8(field.Text.get()), "ÉLU");
    view->setSelection(1, 2);
    bench.press(form, Qt::Key_A, QStringLiteral("a")); // takes the place of what is selected
    EXPECT_EQ(toUtf8(field.Text.get()), "ÉA");
    bench.press(form, Qt::Key_Left);
    bench.press(form, Qt::Key_B, QStringLiteral("b")); // where the cursor is
    EXPECT_EQ(toUtf8(field.Text.get()), "ÉBA");
    bench.press(form, Qt::Key_C, QStringLiteral("c"));
    bench.press(form, Qt::Key_D, QStringLiteral("d")); // no room
    EXPECT_EQ(toUtf8(field.Text.get()), "ÉBCA");
    bench.press(form, Qt::Key_Backspace, QStringLiteral("\b"));
    EXPECT_EQ(toUtf8(field.Text.get()), "ÉBA");
    EXPECT_EQ(view->text().toStdString(), "ÉBA");
}

TEST_F(Keys, ABlankIsTypedInAFieldAndPressesAButton) {
    TextField field(form, "Saisie", 0);
    field.place = {0, 0, 4000, 450};
    PictureButton button(form, "Cmd");
    button.place = {0, 1000, 1500, 1500};
    button.Click = [this] { ++clicks; };
    bench.show(form);
    bench.press(form, Qt::Key_Space, QStringLiteral(" "));
    EXPECT_EQ(toUtf8(field.Text.get()), " ");
    EXPECT_EQ(clicks, 0);
    bench.press(form, Qt::Key_Tab, QStringLiteral("\t"));
    EXPECT_EQ(form.focus(), &button);
    bench.press(form, Qt::Key_Space, QStringLiteral(" "));
    EXPECT_EQ(clicks, 1);
}

TEST_F(Keys, TabGoesRoundAndBackAndTheFocusIsShown) {
    PictureButton a(form, "A"), greyed(form, "B"), c(form, "C");
    for (PictureButton *button : {&a, &greyed, &c}) {
        button->place = {0, 0, 1500, 1500};
    }
    greyed.Inactif = true;
    bench.show(form);
    EXPECT_TRUE(bench.mirror(a)->widget()->hasFocus());
    bench.press(form, Qt::Key_Tab, QStringLiteral("\t"));
    EXPECT_TRUE(bench.mirror(c)->widget()->hasFocus());
    bench.press(form, Qt::Key_Tab, QStringLiteral("\t"));
    EXPECT_TRUE(bench.mirror(a)->widget()->hasFocus());
    bench.press(form, Qt::Key_Backtab, {}, Qt::ShiftModifier);
    EXPECT_TRUE(bench.mirror(c)->widget()->hasFocus());
}

TEST_F(Keys, AHeldKeyNeitherProposesNorPressesTwice) {
    PictureButton button(form, "Cmd");
    button.place = {0, 0, 1500, 1500};
    button.Click = [this] { ++clicks; };
    bench.show(form);
    bench.press(form, Qt::Key_E, QStringLiteral("e"));
    bench.press(form, Qt::Key_E, QStringLiteral("e"), {}, true);
    bench.press(form, Qt::Key_Return, QStringLiteral("\r"));
    bench.press(form, Qt::Key_Return, QStringLiteral("\r"), {}, true);
    bench.press(form, Qt::Key_Space, QStringLiteral(" "));
    bench.press(form, Qt::Key_Space, QStringLiteral(" "), {}, true);
    EXPECT_EQ(form.keys, (std::vector<int>{'e', 13, ' '}));
    EXPECT_EQ(clicks, 1);
}

TEST_F(Keys, AHeldLetterGoesOnInAFieldButAHeldEnterDoesNot) {
    TextField field(form, "Saisie", 0);
    field.place = {0, 0, 4000, 450};
    bench.show(form);
    bench.press(form, Qt::Key_E, QStringLiteral("e"));
    bench.press(form, Qt::Key_E, QStringLiteral("e"), {}, true);
    bench.press(form, Qt::Key_Return, QStringLiteral("\r"), {}, true);
    EXPECT_EQ(toUtf8(field.Text.get()), "ee");
    EXPECT_EQ(form.keys, (std::vector<int>{'e', 'e'}));
}

TEST_F(Keys, ADeadKeyAloneDoesNothing) {
    std::vector<Key> down;
    form.onKeyDown = [&](const Key &key) { down.push_back(key); };
    bench.show(form);
    bench.press(form, Qt::Key_Dead_Circumflex);
    EXPECT_TRUE(form.keys.empty());
    EXPECT_TRUE(down.empty());
}

TEST_F(Keys, ADeadKeyAndItsLetterProposeNothingAndTheNextLetterCounts) {
    bench.show(form);
    bench.press(form, Qt::Key_Dead_Circumflex);
    bench.press(form, Qt::Key_Shift, {}, Qt::ShiftModifier);
    bench.press(form, Qt::Key_E, QStringLiteral("e"));
    EXPECT_TRUE(form.keys.empty());
    bench.press(form, Qt::Key_E, QStringLiteral("e"));
    EXPECT_EQ(form.keys, std::vector<int>{'e'});
    // The accent may come in the text of the key that cannot be composed.
    bench.press(form, Qt::Key_Dead_Diaeresis, QStringLiteral("¨"));
    bench.press(form, Qt::Key_Z, QStringLiteral("z"));
    EXPECT_EQ(form.keys, std::vector<int>{'e'});
}

// The keys of one character after the Compose key: signs and letters, in any order.
TEST_F(Keys, TheComposeKeyAndItsKeysProposeNothingAndTheNextLetterCounts) {
    bench.show(form);
    for (const char *keys :
         {"'e", "e'", "oe", "OE", ",c", "c,", "'^a", "_^a", "\"'u", "a'", "12"}) {
        form.keys.clear();
        bench.press(form, Qt::Key_Multi_key);
        for (const QChar key : QString::fromLatin1(keys)) {
            if (key.isUpper()) {
                bench.press(form, Qt::Key_Shift, {}, Qt::ShiftModifier);
            }
            bench.press(form, key.toUpper().unicode(), QString(key));
        }
        bench.press(form, Qt::Key_R, QStringLiteral("r"));
        EXPECT_EQ(form.keys, std::vector<int>{'r'}) << keys;
    }
}

TEST_F(Keys, TheComposeKeyBeforeAKeyWithoutACharacterIsForgotten) {
    bench.show(form);
    bench.press(form, Qt::Key_Multi_key);
    bench.press(form, Qt::Key_Return, QStringLiteral("\r"));
    bench.press(form, Qt::Key_A, QStringLiteral("a"));
    EXPECT_EQ(form.keys, (std::vector<int>{13, 'a'}));
    // And pressed twice it is one.
    bench.press(form, Qt::Key_Multi_key);
    bench.press(form, Qt::Key_Multi_key);
    bench.press(form, Qt::Key_Apostrophe, QStringLiteral("'"));
    bench.press(form, Qt::Key_E, QStringLiteral("e"));
    bench.press(form, Qt::Key_B, QStringLiteral("b"));
    EXPECT_EQ(form.keys, (std::vector<int>{13, 'a', 'b'}));
}

TEST_F(Keys, EnterAfterADeadKeyIsEnter) {
    bench.show(form);
    bench.press(form, Qt::Key_Dead_Circumflex);
    bench.press(form, Qt::Key_Return, QStringLiteral("\r"));
    bench.press(form, Qt::Key_A, QStringLiteral("a"));
    EXPECT_EQ(form.keys, (std::vector<int>{13, 'a'}));
}

TEST_F(Keys, AComposedCharacterGoesThroughTheHandlersIntoTheField) {
    TextField field(form, "Saisie", 0);
    field.place = {0, 0, 4000, 450};
    field.maxLength = 3;
    field.KeyPress = [](Int16 &key) { key = ansiCode(upper(fromAnsiCode(key))); };
    bench.show(form);
    auto *view = bench.view<FieldView>(field);
    commit(view, QStringLiteral("ê"));
    EXPECT_EQ(toUtf8(field.Text.get()), "Ê");
    EXPECT_EQ(view->text().toStdString(), "Ê");
    EXPECT_EQ(form.keys, std::vector<int>{0xEA});
    commit(view, QStringLiteral("ïôû"));
    EXPECT_EQ(toUtf8(field.Text.get()), "ÊÏÔ");
}

TEST_F(Keys, AltF4AsksToClose) {
    form.refuses = true;
    bench.show(form);
    bench.press(form, Qt::Key_F4, {}, Qt::AltModifier);
    EXPECT_EQ(form.asked, std::vector<UnloadMode>{UnloadMode::person});
    bench.press(form, Qt::Key_F4);
    EXPECT_EQ(form.asked.size(), 1U);
}

TEST_F(Keys, KeysGoOnArrivingWhenNothingCanHaveTheFocus) {
    PictureButton button(form, "Cmd");
    button.place = {0, 0, 1500, 1500};
    bench.show(form);
    EXPECT_TRUE(bench.mirror(button)->widget()->hasFocus());
    button.Inactif = true;
    bench.settle();
    EXPECT_TRUE(bench.window(form)->hasFocus());
    QTest::keyClick(bench.window(form)->windowHandle(), Qt::Key_A);
    EXPECT_EQ(form.keys, std::vector<int>{'a'});
    button.Inactif = false;
    bench.settle();
    EXPECT_TRUE(bench.mirror(button)->widget()->hasFocus());
}

TEST_F(Keys, TheFocusFollowsTheCodeAndTheMouse) {
    TextField first(form, "Saisie", 0), second(form, "Saisie", 1);
    PictureButton button(form, "Cmd");
    first.place = {0, 0, 4000, 450};
    second.place = {0, 600, 4000, 450};
    button.place = {0, 1500, 1500, 1500};
    button.Click = [] {};
    bench.show(form);
    form.setFocus(second);
    EXPECT_TRUE(bench.mirror(second)->widget()->hasFocus());
    QTest::mouseClick(bench.view<FieldView>(first), Qt::LeftButton);
    EXPECT_EQ(form.focus(), &first);
    QTest::mouseClick(bench.view<FaceButton>(button), Qt::LeftButton);
    EXPECT_EQ(form.focus(), &first); // a button does not take it from the mouse
    EXPECT_TRUE(bench.mirror(first)->widget()->hasFocus());
}

TEST_F(Keys, AFocusSetBeforeTheWindowIsShownIsKept) {
    TextField first(form, "Saisie", 0), second(form, "Saisie", 1);
    form.load();
    form.setFocus(second);
    bench.show(form);
    EXPECT_TRUE(bench.mirror(second)->widget()->hasFocus());
    EXPECT_EQ(form.focus(), &second);
}

TEST_F(Keys, NoKeyArrivesUnderAModalWindow) {
    TestForm above(bench.screen, "Dessus");
    bench.show(form);
    Bench::later([&] {
        bench.press(form, Qt::Key_A, QStringLiteral("a"));
        bench.press(above, Qt::Key_B, QStringLiteral("b"));
        above.unload();
    });
    above.showModal();
    EXPECT_TRUE(form.keys.empty());
    EXPECT_EQ(above.keys, std::vector<int>{'b'});
}

} // namespace
} // namespace grimoval::test
