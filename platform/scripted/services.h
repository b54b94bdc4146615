// SPDX-License-Identifier: GPL-3.0-or-later
// The world outside without the world: a clock turned by hand, known numbers, and recorders that
// tell, one line each, all that is asked of them.
#pragma once

#include "platform/scripted/windows.h"
#include "platform/services.h"

#include <deque>

namespace grimoval::scripted {

// The moment so many seconds later (or earlier), by the calendar; no summer time.
DateTime later(const DateTime &moment, long long seconds);

struct ScriptedClock : Clock {
    DateTime start{2026, 1, 1, 12, 0, 0};
    long long elapsed = 0; // milliseconds since start

    DateTime now() override { return later(start, elapsed / 1000); }
    void set(const DateTime &moment) {
        start = moment;
        elapsed = 0;
    }
};

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

// Time passes for the windows that are loaded: timers fire and running gauges tick when their
// milliseconds are due; at one instant timers come first, then gauges, in the order of their
// windows and controls. The clock stands at the instant of each.
class TimeWheel {
public:
    TimeWheel(Screen &screen, ScriptedClock &clock) : screen_(screen), clock_(clock) {}
    void advance(long long milliseconds);
    // To be told of windows that go and of gauges that start or stop.
    void forget(const Form &form);
    void gaugeChanged(const Gauge &gauge);

private:
    Control *next(long long until);
    Screen &screen_;
    ScriptedClock &clock_;
    long long now_ = 0;
    std::unordered_map<const Control *, long long> due_;
};

} // namespace grimoval::scripted
