// SPDX-License-Identifier: GPL-3.0-or-later
// The program on services that only record, over any window system.
#pragma once

#include "platform/scripted/services.h"
#include "shell/MAINGRIM.h"
#include "support/temporary_folder.h"

namespace grimoval::test {

// A window system that shows nothing and tells nobody.
struct NoWindows : WindowSystem {
    int screenWidth() override { return 15360; }
    int screenHeight() override { return 11520; }
    void loaded(Form &) override {}
    void shown(Form &, Form *) override {}
    void hidden(Form &) override {}
    void unloaded(Form &) override {}
    void changed(Element &, PropertyBase &) override {}
    void focusMoved(Control &) override {}
    void runModal(Form &) override {}
    void processEvents() override {}
    void message(const Message &) override { throw Failure(failure::internal); }
    void beep() override {}
    void checkPicture(const Texte &) override {}
};

struct Program {
    explicit Program(WindowSystem &system) : screen(system) {
        folder.makeFolder(u"MASK");
        g.dossiers.DossierBases = asFolder(folder.path(u"MASK"));
        g.dossiers.DossierTemp = asFolder(folder.path());
        g.SautLigne = u"\n";
    }

    TemporaryFolder folder;
    Files files;
    Screen screen;
    scripted::ScriptedClock clock;
    scripted::ScriptedRandom random;
    scripted::RecordedSound sound{[](const std::string &) {}};
    scripted::RecordedDocuments documents{[](const std::string &) {}};
    scripted::ScriptedApplication application;
    scripted::RecordedPrinter printer{[](const std::string &) {}};
    Services services{screen, files, clock, random, sound, documents, application, printer};
    Globales g{services};
    FenetresDuJeu windows{g};
};

} // namespace grimoval::test
