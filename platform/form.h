// SPDX-License-Identifier: GPL-3.0-or-later
// A window: its controls in order, its life cycle, its keys. And the screen on which windows come
// and go: what the program asks of a window system, told once for every toolkit.
//
// Life: load (at first use, raises Form_Load), show, activate, paint ... unload.
// Paint: the window came into view again: at its first showing, when a window or message box that
// stood over it goes, when the window system exposes it.
// Activate: the focus came to it from another window of the program: at its first showing and when
// a modal window above it goes. A message box is no window of the program.
#pragma once

#include "platform/controls.h"

#include <memory>

namespace grimoval {

class Screen;

// Keys as the windows know them: a character, or one of these.
struct Key {
    enum Code : int { none = 0, back = 8, tab = 9, enter = 13, escape = 27, space = 32, f4 = 115 };
    int code = none;        // of the key that went down; for letters and digits their capital
    char16_t character = 0; // what it types, if anything
    bool alt = false;
    bool shift = false;

    static Key typed(char16_t character);
};

enum class UnloadMode { person, code }; // the window manager's close request; the program's own

class Form : public Element {
public:
    Form(Screen &screen, const char *name);
    ~Form() override;

    std::string path() const override { return name_; }
    const std::vector<Control *> &controls() const { return controls_; }
    Screen &screen() const { return screen_; }

    bool isLoaded() const { return loaded_; }
    bool isShown() const { return shown_; }

    // What code does to a window. Every use of a window that is not loaded loads it.
    void load();
    void show();
    void showModal(); // returns when the window has been hidden or unloaded
    void hide();
    void unload(); // asks Form_QueryUnload first, which may refuse

    // The control that has the keyboard: at the first showing the first of the tab order. When that
    // control closes, nobody has it until the person moves on: a space bar must not press a
    // neighbour that nobody chose.
    Control *focus() const;
    // Ignored by a control that cannot take the keyboard.
    void setFocus(Control &control);

    // Doors of the person.
    void requestClose();
    // The window's own handlers see the key first; false if they swallowed it. `key` leaves as what
    // the control is to get.
    bool previewKey(Key &key);
    // previewKey, then what the key does to the control that has the keyboard.
    void pressKey(Key key);
    // Tab, Shift+Tab and the space bar, on behalf of pressKey and of mirrors; false for other keys.
    bool navigate(const Key &key);
    void userFocus(Control &control) { focus_ = &control; }
    void userHover() { Form_MouseMove(); }
    void expose() { Form_Paint(); } // it came into view again

    Property<Texte> Caption{*this, "Caption"};
    Property<int> Left{*this, "Left", 0}; // twips, on the screen
    Property<int> Top{*this, "Top", 0};
    Property<int> MousePointer{*this, "MousePointer", 0};
    Property<int> WindowState{*this, "WindowState", 0}; // 0 normal, 2 maximised
    Property<Colour> BackColor{*this, "BackColor", Colour{0xC0C0C0}};

    // What the design alone sets.
    int Width = 0, Height = 0; // inside, twips
    bool parchment = false;    // its picture is light: dark ink stands on it
    bool titleBar = false;
    bool centred = false;  // by the platform, on the screen
    bool backdrop = false; // lies under every other window of the program

protected:
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Paint() {}
    virtual void Form_QueryUnload(bool & /*cancel*/, UnloadMode /*mode*/) {}
    virtual void Form_Unload() {}
    virtual void Form_KeyDown(const Key & /*key*/) {}
    virtual void Form_KeyPress(Int16 & /*keyAscii*/) {}
    virtual void Form_MouseMove() {}

    void changed(PropertyBase &property) override;

private:
    friend class Control;
    friend class Screen;
    void controlChanged(Control &control, PropertyBase &property);
    void activateAndPaint();
    void close(UnloadMode mode);
    std::vector<Control *> tabOrder() const;
    void giveFirstFocus();

    Screen &screen_;
    const char *name_;
    std::vector<Control *> controls_;
    Control *focus_ = nullptr;
    bool loaded_ = false, shown_ = false, designKept_ = false;
};

// The title that the executable carries.
inline const Texte applicationTitle = u"Le Grimoval";

enum class MessageIcon { critical, information, exclamation };

struct Message {
    Texte text;
    MessageIcon icon = MessageIcon::information;
    Texte title;
};

// What a toolkit, a script or a test does behind the windows.
class WindowSystem {
public:
    virtual ~WindowSystem() = default;
    virtual int screenWidth() = 0; // twips
    virtual int screenHeight() = 0;
    virtual void loaded(Form &form) = 0;
    virtual void shown(Form &form, Form *opener) = 0; // opener: for modal windows only
    virtual void hidden(Form &form) = 0;
    virtual void unloaded(Form &form) = 0;
    virtual void changed(Element &element, PropertyBase &property) = 0;
    virtual void focusMoved(Control &control) = 0;
    virtual void runModal(Form &form) = 0; // until it is shown no more
    virtual void processEvents() = 0;
    virtual void message(const Message &message) = 0; // returns when it has been answered
    virtual void beep() = 0;
    // Failure 53 if there is no such file, 481 if it cannot be read as a picture.
    virtual void checkPicture(const Texte &path) = 0;
};

// The screen and the windows that are up.
class Screen : public Element {
public:
    explicit Screen(WindowSystem &system) : system_(system) {}
    std::string path() const override { return "Screen"; }
    WindowSystem &system() const { return system_; }

    int Width() const { return system_.screenWidth(); } // twips
    int Height() const { return system_.screenHeight(); }
    Property<int> MousePointer{*this, "MousePointer", 0}; // 0 arrow, 10 up arrow, 11 hourglass

    // The window that takes the person's actions: the modal one on top, or else the last shown.
    Form *active() const { return shown_.empty() ? nullptr : shown_.back(); }
    // Windows that are loaded, in the order of their loading.
    const std::vector<Form *> &loaded() const { return loaded_; }
    // A control that nothing stands over and that can be reached now.
    bool reaches(const Form &form) const { return active() == &form; }

    // Without a title of its own the box bears the application's.
    void message(const Texte &text, MessageIcon icon, const Texte &title = applicationTitle);
    void processEvents() { system_.processEvents(); }
    void beep() { system_.beep(); }
    // The path itself, of a picture that can be shown. Fails as WindowSystem::checkPicture.
    Texte loadPicture(const Texte &path);

protected:
    void changed(PropertyBase &property) override { system_.changed(*this, property); }

private:
    friend class Form;
    WindowSystem &system_;
    std::vector<Form *> loaded_;
    std::vector<Form *> shown_; // from the bottom to the top
};

} // namespace grimoval
