// SPDX-License-Identifier: GPL-3.0-or-later
// Everything around the windows under test, in one place. Windows are made after their world and go
// before it.
#pragma once

#include "platform/scripted/services.h"
#include "support/recorded_windows.h"
#include "support/temporary_folder.h"

namespace grimoval::test {

struct World {
    // The application lies in the folder "grimoval" and the user's data in "donnees", both inside
    // `folder`; neither is made.
    World();

    TemporaryFolder folder;
    Files files;
    RecordedWindows windows{files};
    Events &events = windows.events;
    Screen screen{windows};
    scripted::ScriptedClock clock;
    scripted::TimeWheel wheel{screen, clock};
    scripted::ScriptedRandom random;
    scripted::RecordedSound sound{sink()};
    scripted::RecordedDocuments documents{sink()};
    scripted::ScriptedApplication application;
    scripted::RecordedPrinter printer{sink()}; // none, until it has measures
    Services services{screen, files, clock, random, sound, documents, application, printer};

private:
    scripted::Sink sink() {
        return [this](const std::string &line) { events.push_back(line); };
    }
};

// Seconds pass: timers fire and running gauges tick at each instant that is due.
inline void advance(World &world, int seconds) { world.wheel.advance(seconds * 1000LL); }

} // namespace grimoval::test
