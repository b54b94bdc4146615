// SPDX-License-Identifier: GPL-3.0-or-later
// The real windows of the program on a screen that nobody sees: time is turned by hand, a modal
// window or a box waits for who plays the person, and what the screen shows is a picture.
#pragma once

#include "platform/qt/qtwindows.h"
#include "platform/scripted/time.h"

#include <QImage>

#include <exception>

namespace grimoval::vues {

// The whole screen with these windows, from the bottom to the top, as a person sees it but for the
// frames that a window manager draws.
QImage screenWith(const std::vector<QWidget *> &windows);

class Stage : public QtWindows {
public:
    // `person` is called while a window or a box waits, and returns once it waits no more.
    Stage(Files &files, const Texte &dataFolder, std::function<void(std::function<bool()>)> person);

    Screen screen{*this};
    scripted::ScriptedClock clock;
    scripted::TimeWheel wheel{screen, clock};

    // Answers the box that is up; false if there is none.
    bool answer();
    // The mouse comes over a control and stays there, or goes away from all.
    void point(Control *control);
    QImage picture();

    void loaded(Form &form) override;
    void unloaded(Form &form) override;
    void changed(Element &element, PropertyBase &property) override;
    void runModal(Form &form) override;
    void message(const Message &message) override;

private:
    std::function<void(std::function<bool()>)> person_;
    std::exception_ptr thrown_; // by the person, under a box
    QPointer<QWidget> pointed_;
};

} // namespace grimoval::vues
