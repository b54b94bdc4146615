// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/recorded_windows.h"

#include "platform/files.h"

#include <exception>
#include <fstream>
#include <gtest/gtest.h>
#include <utility>

namespace grimoval::test {

RecordedWindows::~RecordedWindows() {
    for (const Step &step : steps_) {
        ADD_FAILURE() << "the modal window " << step.form << " was expected and never came";
    }
}

void RecordedWindows::expectModal(const std::string &form, std::function<void(Form &)> step) {
    steps_.push_back({form, std::move(step)});
}

Events RecordedWindows::take() { return std::exchange(events, {}); }

void RecordedWindows::runModal(Form &form) {
    if (steps_.empty()) {
        throw ModalMistake("unexpected modal window " + form.path());
    }
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    if (step.form != form.path()) {
        throw ModalMistake("modal window " + form.path() + " where " + step.form + " was expected");
    }
    step.play(form);
    if (form.isShown()) {
        throw ModalMistake("modal window " + form.path() + " was left on the screen");
    }
}

void RecordedWindows::processEvents() {
    events.emplace_back("evenements");
    if (onProcessEvents) {
        onProcessEvents();
    }
}

void RecordedWindows::message(const Message &message) {
    Windows::message(message);
    messages.push_back(message);
    if (onMessage) {
        onMessage(message);
    }
}

} // namespace grimoval::test
