// SPDX-License-Identifier: GPL-3.0-or-later
// The window system without a screen, which keeps its events and plays the modal windows that a
// test expects:
//
//     windows.expectModal("FCHoix", [&](Form &form) { choix.CmdOk.userClick(); });
//     menu.CmdChoix.userClick();
#pragma once

#include "platform/scripted/windows.h"

#include <deque>
#include <stdexcept>
#include <string>
#include <vector>

namespace grimoval::test {

using Events = std::vector<std::string>;

// A modal window came that was not expected, or was left on the screen. It ends the test.
struct ModalMistake : std::logic_error {
    using std::logic_error::logic_error;
};

class RecordedWindows : public scripted::Windows {
public:
    explicit RecordedWindows(Files &files)
        : Windows(files, [this](const std::string &line) { events.push_back(line); }) {}
    // Fails the test if an expected modal window never came.
    ~RecordedWindows() override;

    // What the person does with the next modal window, in the order of their coming. The step
    // must leave the window hidden or unloaded.
    void expectModal(const std::string &form, std::function<void(Form &)> step);
    std::size_t expectedModals() const { return steps_.size(); }

    Events events;
    std::vector<Message> messages;                  // every message box so far
    std::function<void(const Message &)> onMessage; // while the box is up
    std::function<void()> onProcessEvents;

    // Events since the last call.
    Events take();

    void runModal(Form &form) override;
    void processEvents() override;
    void message(const Message &message) override;

private:
    struct Step {
        std::string form;
        std::function<void(Form &)> play;
    };
    std::deque<Step> steps_;
};

} // namespace grimoval::test
