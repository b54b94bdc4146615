// SPDX-License-Identifier: GPL-3.0-or-later
// A window that writes each of its events into the list of the world's.
#pragma once

#include "support/recorded_windows.h"

#include <functional>
#include <string>

namespace grimoval::test {

struct ToldWindow : Form {
    ToldWindow(Screen &screen, Events &record, const char *name)
        : Form(screen, name), events(record) {}

    Events &events;
    bool refusesToClose = false;
    std::function<void()> onLoad, onActivate, onPaint, onUnload;

    void tell(const std::string &what) { events.push_back(path() + " " + what); }

protected:
    void Form_Load() override { tellAndDo("load", onLoad); }
    void Form_Activate() override { tellAndDo("activate", onActivate); }
    void Form_Paint() override { tellAndDo("paint", onPaint); }
    void Form_QueryUnload(bool &cancel, UnloadMode mode) override {
        tell(mode == UnloadMode::person ? "queryunload person" : "queryunload code");
        cancel = refusesToClose;
    }
    void Form_Unload() override { tellAndDo("unload", onUnload); }
    void Form_MouseMove() override { tell("mousemove"); }

private:
    void tellAndDo(const std::string &what, const std::function<void()> &action) {
        tell(what);
        if (action) {
            action();
        }
    }
};

} // namespace grimoval::test
