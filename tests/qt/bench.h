// SPDX-License-Identifier: GPL-3.0-or-later
// What a test of the mirrors stands on: windows, a screen, and an end of the process that is noted
// instead.
#pragma once

#include "platform/qt/mirrors.h"
#include "platform/qt/qtwindows.h"
#include "support/temporary_folder.h"

#include <QCoreApplication>
#include <QTest>
#include <gtest/gtest.h>

#include <vector>

namespace grimoval::test {

struct Bench {
    Bench() {
        windows.setFactor(1);
        windows.guard().end = [this](int status) { ends.push_back(status); };
    }

    TemporaryFolder folder;
    Files files;
    QtWindows windows{files, folder.path()};
    Screen screen{windows};
    std::vector<int> ends;

    // Everything that waits its turn, deletions included.
    static void settle() {
        QTest::qWait(1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    Mirror *mirror(Control &control) {
        return windows.windowOf(control.form())->mirrorOf(&control);
    }
    template <class View>
    View *view(Control &control) {
        Mirror *found = mirror(control);
        return found == nullptr ? nullptr : dynamic_cast<View *>(found->widget());
    }
    FormWindow *window(Form &form) { return windows.windowOf(form); }

    // And waits until the window system has given it the keyboard.
    void show(Form &form) {
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window(form)));
    }

    // The window system hands a key to what has the keyboard.
    void press(Form &form, int key, const QString &text = {},
               Qt::KeyboardModifiers held = Qt::NoModifier, bool repeated = false) {
        QWidget *target = window(form)->focusWidget();
        QKeyEvent event(QEvent::KeyPress, key, held, text, repeated);
        QCoreApplication::sendEvent(target == nullptr ? window(form) : target, &event);
    }

    // Does something as soon as the next event loop runs.
    static void later(const std::function<void()> &action) { QTimer::singleShot(0, qApp, action); }
};

// A window that records its events and asks what a test wants it to do.
struct TestForm : Form {
    explicit TestForm(Screen &ownScreen, const char *ownName = "Essai") : Form(ownScreen, ownName) {
        Width = 6000;
        Height = 4500;
        centred = true;
    }

    std::vector<int> keys;
    int paints = 0, activations = 0, unloads = 0, hovers = 0;
    bool refuses = false;
    std::vector<UnloadMode> asked;
    std::function<void(Int16 &)> onKeyPress;
    std::function<void(const Key &)> onKeyDown;

protected:
    void Form_Paint() override { ++paints; }
    void Form_Activate() override { ++activations; }
    void Form_Unload() override { ++unloads; }
    void Form_MouseMove() override { ++hovers; }
    void Form_QueryUnload(bool &cancel, UnloadMode mode) override {
        asked.push_back(mode);
        cancel = refuses;
    }
    void Form_KeyDown(const Key &key) override {
        if (onKeyDown) {
            onKeyDown(key);
        }
    }
    void Form_KeyPress(Int16 &key) override {
        keys.push_back(key);
        if (onKeyPress) {
            onKeyPress(key);
        }
    }
};

} // namespace grimoval::test
