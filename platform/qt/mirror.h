// SPDX-License-Identifier: GPL-3.0-or-later
// What shows one control: it copies what the control holds into a widget, and hands what the person
// does to the control's doors. It decides nothing.
#pragma once

#include "platform/controls.h"

#include <QRect>
#include <memory>

class QWidget;

namespace grimoval {

class FormWindow;

class Mirror {
public:
    Mirror(FormWindow &window, Control &control) : window_(window), control_(control) {}
    virtual ~Mirror() = default;
    Mirror(const Mirror &) = delete;
    Mirror &operator=(const Mirror &) = delete;

    Control &control() const { return control_; }
    virtual QWidget *widget() const { return nullptr; }

    // Copies the property that has changed; all of them if there is none.
    virtual void refresh(const PropertyBase *property) = 0;
    // The window's scale has changed.
    virtual void fit() {}
    // Stops what goes on by itself: the control is there no more.
    virtual void stop() {}
    // Copies at once what was to be copied later.
    virtual void settle() {}
    // Shown or not, open or not, and what the accessibility bus says of it.
    void refreshWidget();

protected:
    virtual Texte name() const;
    virtual Texte description() const { return control_.accessibleDescription; }
    virtual Texte tip() const { return {}; } // what the mouse is told

    FormWindow &window_;

private:
    Control &control_;
};

// Nothing for a control that is never on the screen.
std::unique_ptr<Mirror> makeMirror(FormWindow &window, Control &control);

} // namespace grimoval
