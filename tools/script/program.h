// SPDX-License-Identifier: GPL-3.0-or-later
// The whole program on scripted services: every window, every rule, real files, no screen.
#pragma once

#include "platform/scripted/services.h"
#include "shell/MAINGRIM.h"

namespace grimoval::script {

// What the outside looks like to a program that is about to start.
struct Surroundings {
    int width = 15360, height = 11520; // twips
    bool wave = true, midi = true;
    std::optional<scripted::RecordedPrinter::Measures> printer;
    scripted::ScriptedClock clock;
    scripted::ScriptedRandom random;
};

class Program : private scripted::Windows {
public:
    // `converse` is the person: called while a modal window waits, it returns once the window has
    // gone.
    Program(Surroundings &around, const scripted::Sink &sink, std::function<void(Form &)> converse,
            const Texte &folder, const std::optional<Texte> &userData);

    // Until the program ends, which it tells as `fin 0` or `echec 340`.
    void run();
    void wait(long long milliseconds) { wheel_.advance(milliseconds); }
    void printState();

    Screen screen{*this};

private:
    Program(Surroundings &around, const std::shared_ptr<bool> &over, const scripted::Sink &sink,
            std::function<void(Form &)> converse, const Texte &folder,
            const std::optional<Texte> &userData);
    void runModal(Form &form) override { converse_(form); }

    std::shared_ptr<bool> over_; // the process has ended
    scripted::Sink sink_;
    std::function<void(Form &)> converse_;
    Files files_;
    scripted::RecordedSound sound_;
    scripted::RecordedDocuments documents_;
    scripted::ScriptedApplication application_;
    scripted::RecordedPrinter printer_;
    scripted::TimeWheel wheel_;
    Services services_;
    Globales g_;
    FenetresDuJeu windows_;
};

// Every public variable of the game, the settings, the current base and the score, one
// `Nom = valeur` a line.
void printVariables(const Globales &g, const FMenu &menu, const scripted::Sink &sink);

} // namespace grimoval::script
