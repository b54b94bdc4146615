// SPDX-License-Identifier: GPL-3.0-or-later
// The observable controls: plain data and plain handlers, the only truth of a window. A toolkit
// mirrors them; a person and a test come in by the same doors (userClick and its like), which check
// that the control takes the action, store, and raise the event.
#pragma once

#include "platform/element.h"
#include "platform/failure.h"
#include "platform/int16.h"

#include <deque>

namespace grimoval {

class Form;
class ControlVisitor;

// Twips: 15 to a pixel of a 96-dpi screen; from the left top corner of the window's inside.
struct Place {
    int left = 0, top = 0, width = 0, height = 0;
};

class Control : public Element {
public:
    // An index below 0 means a control that stands alone.
    Control(Form &form, const char *name, int index = -1);
    ~Control() override;

    Form &form() const { return form_; }
    int index() const { return index_; }
    std::string path() const override; // with the window's name
    std::string name() const;          // without it

    virtual void accept(ControlVisitor &visitor) = 0;

    // Nobody sees a control that is hidden or lies in a hidden container.
    virtual bool isVisible() const { return container == nullptr || container->isVisible(); }
    // It takes the person's clicks or typing now.
    virtual bool isOpen() const { return isVisible(); }
    // The keyboard can go to it.
    virtual bool takesFocus() const { return false; }
    // The space bar on the control: what a click does, where that has a sense.
    virtual void userSpace() {}
    // The mouse moves over the control.
    void userHover() {
        if (MouseMove) {
            MouseMove();
        }
    }

    Place place;
    int tabIndex = 1000;          // order of the Tab key; equal ones in order of declaration
    Control *container = nullptr; // a panel or picture that it lies in; `place` stays the window's
    Texte accessibleName;         // empty: what the kind says of itself
    Texte accessibleDescription;
    Control *labelledBy = nullptr; // the label beside it, which names it
    std::function<void()> MouseMove;

protected:
    void changed(PropertyBase &property) override;
    // Raises the event if the control is open and has one.
    bool open(const std::function<void()> &event);

private:
    Form &form_;
    std::string name_;
    int index_;
};

enum class Alignment { left, centre, right };

class Label : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override;
    bool isVisible() const override { return Visible && Control::isVisible(); }
    bool isOpen() const override { return isVisible(); }
    bool userClick() { return open(Click); }

    Property<Texte> Caption{*this, "Caption"};
    Property<Colour> ForeColor{*this, "ForeColor"};
    Property<int> FontSize{*this, "FontSize", 10}; // points
    Property<bool> Visible{*this, "Visible", true};
    Property<Texte> Tag{*this, "Tag"};
    Property<Texte> ToolTipText{*this, "ToolTipText"};
    std::function<void()> Click;

    // What the design alone sets.
    enum class Look {
        plain,
        panel, // a frame with nothing written on it
        word,  // the hidden word: as large as its place allows
        title, // large and set off; the picture of the window shows it where there is one
        badge, // a short figure in a small frame
        player // a name; when the call of the tooltip follows it, that player's turn is seen
    };
    Look look = Look::plain;
    Alignment alignment = Alignment::left;
    bool bold = false;
    bool wraps = false;
};

class PictureButton : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override;
    bool isVisible() const override { return Visible && Control::isVisible(); }
    bool isOpen() const override { return isVisible() && !Inactif; }
    bool takesFocus() const override { return isOpen(); }
    void userSpace() override { userClick(); }
    // False, and nothing happens, when the button is greyed or hidden.
    bool userClick() { return open(Click); }

    Property<Texte> Face{*this, "Face"}; // the full path of a picture file
    Property<bool> Inactif{*this, "Inactif", false};
    Property<bool> Visible{*this, "Visible", true};
    std::function<void()> Click;
    bool tooltip = false;   // shows its accessible name under the mouse
    bool prominent = false; // draws the eye while it can be pressed
};

// A graphical button for one letter; its faces are names of pictures.
class LetterButton : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override;
    bool isVisible() const override { return shownOnScreen && Control::isVisible(); }
    bool isOpen() const override { return isVisible() && Enabled; }
    bool takesFocus() const override { return isOpen(); }
    void userSpace() override { userClick(); }
    bool userClick() { return open(Click); }

    Property<bool> Enabled{*this, "Enabled", true};
    Property<Texte> Picture{*this, "Picture"};
    Property<Texte> DownPicture{*this, "DownPicture"};
    Property<Texte> DisabledPicture{*this, "DisabledPicture"};
    std::function<void()> Click;
    Texte caption;
    bool shownOnScreen = true; // false: a mere store of faces
};

// A bar that fills by itself, one unit a second, and reports. Setting its value raises no event.
class Gauge : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override;
    bool isVisible() const override { return Visible && Control::isVisible(); }

    Property<int> Valeur{*this, "Valeur", 0};
    Property<int> Maximum{*this, "Maximum", 100};
    Property<Texte> TexteFlux{*this, "TexteFlux"};
    Property<Colour> CouleurTexte{*this, "CouleurTexte", colours::black};
    Property<bool> EnMarche{*this, "EnMarche", false};
    Property<bool> Visible{*this, "Visible", true};

    void Lancer() { EnMarche = true; }
    // Raises no event.
    void Arreter() { EnMarche = false; }
    // One second has passed while it runs: Progression, and Fin when the maximum is reached.
    void tick();

    std::function<void()> Progression;
    std::function<void()> Fin;

    // What fills it; the design alone sets it. Time runs out, a count is a gain.
    enum class Measure { count, time };
    Measure measure = Measure::count;
};

// A list of strings. Events: a click when the selected index is assigned.
class List : public Control {
public:
    List(Form &form, const char *name, int index = -1);
    void accept(ControlVisitor &visitor) override;
    bool isVisible() const override { return shownOnScreen && Control::isVisible(); }
    bool isOpen() const override { return isVisible() && Enabled; }
    bool takesFocus() const override { return isOpen(); }
    bool userSelect(int item);
    bool userDoubleClick();

    int ListCount() const { return static_cast<int>(Items.get().size()); }
    // Failure 380 for an index that addresses no entry.
    const Texte &item(int index) const;
    void AddItem(const Texte &text);
    void RemoveItem(int index);
    void Clear();

    Property<std::vector<Texte>> Items{*this, "Items"};
    Property<int> ListIndex{*this, "ListIndex", -1};
    Property<bool> Enabled{*this, "Enabled", true};
    std::function<void()> Click;
    std::function<void()> DblClick;
    bool shownOnScreen = true;
    std::size_t shownColumns = 0; // characters of an entry meant for the eye; 0: all
};

// Holds 0 or 1. Event: a click when the value changes, whoever changes it.
class CheckBox : public Control {
public:
    CheckBox(Form &form, const char *name, int index = -1);
    void accept(ControlVisitor &visitor) override;
    bool isOpen() const override { return isVisible() && Enabled; }
    bool takesFocus() const override { return isOpen(); }
    void userSpace() override { userClick(); }
    bool userClick();

    Property<int> Value{*this, "Value", 0};
    Property<bool> Enabled{*this, "Enabled", true};
    std::function<void()> Click;
};

// Event: a change at every assignment. Failure 380 for a value outside Min to Max.
class ScrollBar : public Control {
public:
    ScrollBar(Form &form, const char *name, int index = -1);
    void accept(ControlVisitor &visitor) override;
    bool isVisible() const override { return Visible && Control::isVisible(); }
    bool takesFocus() const override { return isOpen(); }
    bool userScroll(int value); // bounded to Min to Max

    Property<int> Value{*this, "Value", 0};
    Property<int> Min{*this, "Min", 0};
    Property<int> Max{*this, "Max", 100};
    Property<bool> Visible{*this, "Visible", true};
    std::function<void()> Change;
    int smallChange = 1, largeChange = 1;
};

// Event: a change when the text becomes another one, whoever changes it.
class TextField : public Control {
public:
    TextField(Form &form, const char *name, int index = -1);
    void accept(ControlVisitor &visitor) override;
    bool takesFocus() const override { return isOpen(); }
    // The person has edited the text; it is cut at the greatest length. What was pasted may hold
    // breaks of lines, tabs or worse: a blank stands for each.
    bool userType(const Texte &text);

    Property<Texte> Text{*this, "Text"};
    std::function<void()> Change;
    std::function<void(Int16 &keyAscii)> KeyPress;
    std::size_t maxLength = 0; // characters that a person can type; 0: any number
};

class Picture : public Control {
public:
    explicit Picture(Form &form, const char *name, int index = -1) : Control(form, name, index) {}
    void accept(ControlVisitor &visitor) override;
    bool isVisible() const override { return Visible && Control::isVisible(); }
    bool takesFocus() const override { return Click && isOpen(); }
    void userSpace() override { userClick(); }
    bool userClick() { return open(Click); }

    Property<Texte> PictureFile{*this, "Picture"}; // full path; the design's own picture if empty
    Property<bool> Visible{*this, "Visible", true};
    Property<Texte> Tag{*this, "Tag"};
    Property<Texte> ToolTipText{*this, "ToolTipText"};
    std::function<void()> Click;
    std::string design;  // the name of the picture stored in the window; may be empty
    int scaleHeight = 0; // units of its inner height that shapes inside it are measured in
    Colour backColour{0x1B1F4B}, foreColour{0x1B1F4B};
};

// A filled rectangle; inside a picture its height counts in the picture's own units.
class Shape : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override;
    bool isVisible() const override { return Visible && Control::isVisible(); }
    bool takesFocus() const override { return Click && isOpen(); }
    void userSpace() override { userClick(); }
    bool userClick() { return open(Click); }

    Property<int> Height{*this, "Height", 1};
    Property<bool> Visible{*this, "Visible", true};
    Property<Colour> BackColor{*this, "BackColor"};
    Property<Colour> ForeColor{*this, "ForeColor"};
    std::function<void()> Click;
};

// A table of text cells, no fixed row or column.
class Table : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override;
    // Cells of one row separated by tab characters.
    void AddItem(const Texte &row);
    void Clear() { Rows = {}; }
    Texte cell(int row, int column) const;

    Property<grimoval::Rows> Rows{*this, "Cell"};
    std::vector<int> columnWidths; // twips
    std::vector<bool> mergedRows;  // rows whose equal neighbours become one cell
};

// Ticks while it is enabled and its window is loaded.
class Timer : public Control {
public:
    using Control::Control;
    void accept(ControlVisitor &visitor) override;
    bool isVisible() const override { return false; }
    void fire() {
        if (Tick) {
            Tick();
        }
    }

    Property<int> Interval{*this, "Interval", 0}; // milliseconds; 0: never
    Property<bool> Enabled{*this, "Enabled", true};
    std::function<void()> Tick;
};

class ControlVisitor {
public:
    virtual ~ControlVisitor() = default;
    virtual void visit(Label &) = 0;
    virtual void visit(PictureButton &) = 0;
    virtual void visit(LetterButton &) = 0;
    virtual void visit(Gauge &) = 0;
    virtual void visit(List &) = 0;
    virtual void visit(CheckBox &) = 0;
    virtual void visit(ScrollBar &) = 0;
    virtual void visit(TextField &) = 0;
    virtual void visit(Picture &) = 0;
    virtual void visit(Shape &) = 0;
    virtual void visit(Table &) = 0;
    virtual void visit(Timer &) = 0;
};

// Like controls addressed by an index from First to Last. Another index is failure 340.
template <class Kind, int First, int Last>
class ControlArray {
public:
    ControlArray(Form &form, const char *name) {
        for (int index = First; index <= Last; ++index) {
            controls_.emplace_back(form, name, index);
        }
    }
    Kind &operator[](int index) {
        if (index < First || index > Last) {
            throw Failure(failure::noSuchElement);
        }
        return controls_[static_cast<std::size_t>(index - First)];
    }
    auto begin() { return controls_.begin(); }
    auto end() { return controls_.end(); }

private:
    std::deque<Kind> controls_;
};

} // namespace grimoval
