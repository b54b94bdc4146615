// SPDX-License-Identifier: GPL-3.0-or-later
// The world outside without the world: known numbers, and recorders that tell, one line each, all
// that is asked of them.
#pragma once

#include "platform/scripted/windows.h"
#include "platform/services.h"

#include <deque>

namespace grimoval::scripted {

// Answers the given numbers in their order, then 0. Seeding does not disturb them.
struct ScriptedRandom : Random {
    std::deque<float> numbers;
    int seeds = 0;
    int drawn = 0;

    void seed() override { ++seeds; }
    float next() override;
};

// `parole CesPBon.Wav`, `musique CLVMID1.mid`, `musique arret`: all that the program asks for, also
// where it would be silence.
struct RecordedSound : Sound {
    explicit RecordedSound(Sink toSink) : sink(std::move(toSink)) {}

    Sink sink;
    bool wave = true, midi = true; // the devices that exist
    bool looping = false;          // the last music was to start again at its end

    bool waveAvailable() override { return wave; }
    bool midiAvailable() override { return midi; }
    void playWave(const Texte &path) override;
    void playMidi(const Texte &path, bool loop) override;
    void stopMidi() override { sink("musique arret"); }
};

// `web X`, `courriel X`, `document X`, `aide X Y`; a text that holds blanks stands in quotes.
struct RecordedDocuments : Documents {
    explicit RecordedDocuments(Sink toSink) : sink(std::move(toSink)) {}

    Sink sink;

    void openWeb(const Texte &address) override;
    void openDocument(const Texte &path) override;
    void showHelp(const Texte &path, const Texte &keyword) override;
    void writeMail(const Texte &address) override;
};

struct ScriptedApplication : Application {
    Texte folder; // without a separator at its end
    std::optional<Texte> userData;
    bool secondInstance = false;

    bool previousInstance() override { return secondInstance; }
    Texte path() override { return folder; }
    std::optional<Texte> userDataFolder() override { return userData; }
};

} // namespace grimoval::scripted
