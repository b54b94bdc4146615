// SPDX-License-Identifier: GPL-3.0-or-later
// What the program asks of the world outside its windows and files, one small interface a thing.
#pragma once

#include "platform/canvas.h"
#include "platform/files.h"
#include "platform/form.h"

#include <optional>

namespace grimoval {

struct Clock {
    virtual ~Clock() = default;
    virtual DateTime now() = 0; // local time
};

// Uniform numbers.
struct Random {
    virtual ~Random() = default;
    virtual void seed() = 0;  // from the clock
    virtual float next() = 0; // at least 0, below 1
};

// One MIDI stream and one wave stream, which sound together and never block. What cannot be played
// is silence.
struct Sound {
    virtual ~Sound() = default;
    virtual bool waveAvailable() = 0;
    virtual bool midiAvailable() = 0;
    virtual void playWave(const Texte &path) = 0;
    virtual void playMidi(const Texte &path, bool loop) = 0;
    virtual void stopMidi() = 0;
};

// Programs of the system that show something; they go their own way and report nothing.
struct Documents {
    virtual ~Documents() = default;
    virtual void openWeb(const Texte &address) = 0;
    virtual void openDocument(const Texte &path) = 0;
    virtual void showHelp(const Texte &path, const Texte &keyword) = 0;
    virtual void writeMail(const Texte &address) = 0;
};

struct Application {
    virtual ~Application() = default;
    virtual bool previousInstance() = 0;
    virtual Texte path() = 0; // the folder of the installed data, without a separator at its end
    // The system's place for a user's application data; nothing if there is none.
    virtual std::optional<Texte> userDataFolder() = 0;
    // Ends the process at once; no handler runs any more.
    [[noreturn]] void end(int status = 0) { throw ProgramEnd{status}; }

    static inline const Texte &title = applicationTitle;
    static constexpr int major = 1, minor = 0, revision = 9;
};

struct Services {
    Screen &screen;
    Files &files;
    Clock &clock;
    Random &random;
    Sound &sound;
    Documents &documents;
    Application &application;
    Canvas &printer;
};

} // namespace grimoval
