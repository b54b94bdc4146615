// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/form.h"

#include <algorithm>

namespace grimoval {

Key Key::typed(char16_t character) {
    Key key;
    key.character = character;
    key.code = ansiCode(upper(character));
    return key;
}

Form::Form(Screen &screen, const char *name) : screen_(screen), name_(name) {}

Form::~Form() {
    if (loaded_) {
        screen_.system_.unloaded(*this);
    }
    std::erase(screen_.loaded_, this);
    std::erase(screen_.shown_, this);
}

void Form::changed(PropertyBase &property) {
    if (loaded_) {
        screen_.system_.changed(*this, property);
    }
}

void Form::controlChanged(Control &control, PropertyBase &property) {
    if (loaded_) {
        screen_.system_.changed(control, property);
    }
}

void Form::load() {
    if (loaded_) {
        return;
    }
    const auto everyProperty = [this](auto action) {
        std::for_each(properties().begin(), properties().end(), action);
        for (Control *control : controls_) {
            std::for_each(control->properties().begin(), control->properties().end(), action);
        }
    };
    if (designKept_) {
        everyProperty([](PropertyBase *property) { property->resetToDesign(); });
    } else {
        everyProperty([](PropertyBase *property) { property->keepAsDesign(); });
        designKept_ = true;
    }
    focus_ = nullptr;
    loaded_ = true;
    screen_.loaded_.push_back(this);
    screen_.system_.loaded(*this);
    Form_Load();
}

void Form::activateAndPaint() {
    Form_Activate();
    if (shown_) {
        Form_Paint();
    }
}

void Form::show() {
    load();
    if (!loaded_ || shown_) {
        return;
    }
    shown_ = true;
    screen_.shown_.push_back(this);
    screen_.system_.shown(*this, nullptr);
    giveFirstFocus();
    activateAndPaint();
}

void Form::showModal() {
    load();
    if (!loaded_ || shown_) {
        return;
    }
    Form *opener = screen_.active();
    shown_ = true;
    screen_.shown_.push_back(this);
    screen_.system_.shown(*this, opener);
    giveFirstFocus();
    activateAndPaint();
    if (shown_) {
        screen_.system_.runModal(*this);
    }
    if (opener != nullptr && opener->shown_) {
        opener->activateAndPaint();
    }
}

void Form::hide() {
    if (!shown_) {
        return;
    }
    shown_ = false;
    std::erase(screen_.shown_, this);
    screen_.system_.hidden(*this);
}

void Form::unload() { close(UnloadMode::code); }

void Form::requestClose() { close(UnloadMode::person); }

void Form::close(UnloadMode mode) {
    if (!loaded_) {
        return;
    }
    bool cancel = false;
    Form_QueryUnload(cancel, mode);
    if (cancel || !loaded_) {
        return;
    }
    Form_Unload();
    shown_ = false;
    loaded_ = false;
    std::erase(screen_.shown_, this);
    std::erase(screen_.loaded_, this);
    screen_.system_.unloaded(*this);
}

Control *Form::focus() const {
    return focus_ != nullptr && focus_->takesFocus() ? focus_ : nullptr;
}

std::vector<Control *> Form::tabOrder() const {
    std::vector<Control *> order = controls_;
    std::stable_sort(order.begin(), order.end(), [](const Control *left, const Control *right) {
        return left->tabIndex < right->tabIndex;
    });
    return order;
}

void Form::giveFirstFocus() {
    if (focus_ != nullptr) {
        return;
    }
    for (Control *control : tabOrder()) {
        if (control->takesFocus()) {
            setFocus(*control);
            return;
        }
    }
}

void Form::setFocus(Control &control) {
    if (control.takesFocus()) {
        focus_ = &control;
        screen_.system_.focusMoved(control);
    }
}

bool Form::previewKey(Key &key) {
    Form_KeyDown(key);
    if (!shown_ || key.alt) {
        return shown_;
    }
    const bool controlKey = key.code == Key::enter || key.code == Key::escape ||
                            key.code == Key::back || key.code == Key::tab;
    if (key.character == 0 && !controlKey) {
        return true;
    }
    // A character outside Windows-1252 reaches the handlers as the '?' that it would be in a file.
    const int typed = ansiCode(key.character);
    Int16 keyAscii = controlKey ? key.code : (typed < 0 ? u'?' : typed);
    const Int16 before = keyAscii;
    Form_KeyPress(keyAscii);
    if (!shown_ || keyAscii == 0) {
        return false;
    }
    if (auto *field = dynamic_cast<TextField *>(focus()); field != nullptr && field->KeyPress) {
        field->KeyPress(keyAscii);
        if (!shown_ || keyAscii == 0) {
            return false;
        }
    }
    if (!controlKey && keyAscii != before) {
        key.character = fromAnsiCode(keyAscii);
    }
    return true;
}

bool Form::navigate(const Key &key) {
    if (key.code == Key::tab) {
        std::vector<Control *> order = tabOrder();
        if (key.shift) {
            std::reverse(order.begin(), order.end());
        }
        // From the control after the last one that had the keyboard, once round.
        const auto last = std::find(order.begin(), order.end(), focus_);
        if (last != order.end()) {
            std::rotate(order.begin(), last + 1, order.end());
        }
        const auto next = std::find_if(order.begin(), order.end(),
                                       [](Control *control) { return control->takesFocus(); });
        if (next != order.end()) {
            setFocus(**next);
        }
        return true;
    }
    Control *current = focus();
    if (key.code == Key::space && current != nullptr &&
        dynamic_cast<TextField *>(current) == nullptr) {
        current->userSpace();
        return true;
    }
    return false;
}

void Form::pressKey(Key key) {
    if (!previewKey(key) || key.alt || navigate(key)) {
        return;
    }
    auto *field = dynamic_cast<TextField *>(focus());
    if (field == nullptr) {
        return;
    }
    const Texte text = field->Text;
    if (key.code == Key::back) {
        field->userType(text.substr(0, text.empty() ? 0 : text.size() - 1));
    } else if (key.character >= u' ') {
        field->userType(text + key.character);
    }
}

void Screen::message(const Texte &text, MessageIcon icon, const Texte &title) {
    system_.message({text, icon, title});
    if (Form *below = active()) {
        below->expose();
    }
}

Texte Screen::loadPicture(const Texte &path) {
    system_.checkPicture(path);
    return path;
}

} // namespace grimoval
