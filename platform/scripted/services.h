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

// A page recorded: `page texte X Y "..."`, `page ligne X1 Y1 X2 Y2`, `page cadre X1 Y1 X2 Y2`,
// `page fin`, in the printer's unit. Without a printer every operation is failure 482.
struct RecordedPrinter : Canvas {
    explicit RecordedPrinter(Sink toSink) : sink(std::move(toSink)) {}

    struct Measures {
        double width, character, line;
    };
    std::optional<Measures> measures;
    Sink sink;

    double pageWidth() override { return printer().width; }
    double textWidth(const Texte &text) override {
        return static_cast<double>(text.size()) * printer().character;
    }
    double textHeight(const Texte & /*text*/) override { return printer().line; }
    void drawText(double x, double y, const Texte &text) override;
    void drawLine(double x1, double y1, double x2, double y2) override;
    void drawRectangle(double x1, double y1, double x2, double y2) override;
    void endDocument() override;

private:
    const Measures &printer() const;
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
