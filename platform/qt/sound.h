// SPDX-License-Identifier: GPL-3.0-or-later
// Sound by SDL2_mixer: one MIDI stream and one wave stream, together. All that may take its time in
// the library is done on one thread beside the program, in order: the device is opened and the
// soundfont looked for while the splash is up. A device that goes away, or its server, is silence,
// and so is a system without a thread to spare; each later call tries whether there is one again.
// When nothing has sounded for a while the device is closed, until the next call.
#pragma once

#include "platform/services.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace grimoval {

class MixerSound : public Sound {
public:
    explicit MixerSound(Files &files);
    ~MixerSound() override;

    // Begins to open the device, if that has not begun.
    void open();
    // Until the device is open, or is known to be missing, it counts as there: a server that is
    // late is not away. For that they wait a moment, once.
    bool waveAvailable() override;
    bool midiAvailable() override;
    // A new prompt takes the place of one that still sounds; what cannot be played takes none.
    void playWave(const Texte &path) override;
    void playMidi(const Texte &path, bool loop) override;
    void stopMidi() override;

    // Returns when no wave sounds any more, at the latest after this time.
    void finishWave(std::chrono::milliseconds patience);

private:
    struct Mixer; // its calls belong to the thread
    enum class Opening { underWay, silent, waveOnly, both };

    void post(std::function<void(Mixer &)> task);
    void work();
    Opening opened();
    bool hasThread();

    Files &files_;
    const std::unique_ptr<Mixer> mixer_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::function<void(Mixer &)>> tasks_;
    Opening opening_ = Opening::underWay;
    std::optional<std::chrono::steady_clock::time_point> waitedUntil_;
    bool deviceOpen_ = false; // when no task is being carried out
    bool busy_ = false;       // a task is being carried out
    bool closing_ = false;
    std::thread thread_; // last: it uses all the others
};

} // namespace grimoval
