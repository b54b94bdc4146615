// SPDX-License-Identifier: GPL-3.0-or-later
// What controls and windows are made of: observable properties with a name.
#pragma once

#include "platform/text.h"

#include <functional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace grimoval {

class PropertyBase;

// A control, a window or the screen: a name and a list of properties.
class Element {
public:
    virtual ~Element() = default;
    Element(const Element &) = delete;
    Element &operator=(const Element &) = delete;

    // The name that the code uses, with its index: "AffMot(0)"; that of a control follows its
    // window's: "FMenu.AffMot(0)".
    virtual std::string path() const = 0;

    // In order of declaration.
    const std::vector<PropertyBase *> &properties() const { return properties_; }

protected:
    Element() = default;
    virtual void changed(PropertyBase &property) = 0;

private:
    friend class PropertyBase;
    std::vector<PropertyBase *> properties_;
};

// The type-free side of a property: what mirrors, transcripts and the reload of a window need.
class PropertyBase {
public:
    PropertyBase(Element &owner, const char *name) : name_(name), owner_(owner) {
        owner.properties_.push_back(this);
    }
    virtual ~PropertyBase() = default;
    PropertyBase(const PropertyBase &) = delete;
    PropertyBase &operator=(const PropertyBase &) = delete;

    const char *name() const { return name_; }
    Element &owner() const { return owner_; }

    // The value as a transcript shows it: texts quoted with \" \\ and \n, Booleans Vrai and Faux,
    // colours #RRGGBB, numbers plain.
    virtual std::string shown() const = 0;
    // The same as lines `Name = value`; a table gives one for each cell, `Cell(0, 1) = "3"`.
    virtual std::vector<std::string> lines() const { return {name_ + (" = " + shown())}; }

    // The value of the design, which each loading of the window starts from.
    virtual void keepAsDesign() = 0;
    virtual void resetToDesign() = 0;

protected:
    void notify() { owner_.changed(*this); }

private:
    const char *name_;
    Element &owner_;
};

// A colour, 0xRRGGBB.
struct Colour {
    unsigned rgb = 0;
    bool operator==(const Colour &) const = default;
};

namespace colours {
inline constexpr Colour black{0x000000};
inline constexpr Colour white{0xFFFFFF};
inline constexpr Colour red{0xFF0000};
inline constexpr Colour green{0x00FF00};
inline constexpr Colour blue{0x0000FF};
} // namespace colours

std::string shownValue(bool value);
std::string shownValue(int value);
std::string shownValue(Colour value);
std::string shownValue(const Texte &value);
std::string shownValue(const std::vector<Texte> &value);
using Rows = std::vector<std::vector<Texte>>;
std::string shownValue(const Rows &value);
std::vector<std::string> shownCells(const char *name, const Rows &value);

// Assigning an equal value does nothing; another one is stored and told to the mirror. `accept`
// turns an assigned value into the one to hold, or throws; `assigned` is the event, if the kind of
// control has one, and is told whether the value is another one.
template <class T>
class Property : public PropertyBase {
public:
    Property(Element &owner, const char *name, T value = {})
        : PropertyBase(owner, name), value_(std::move(value)) {}

    Property &operator=(const T &value) {
        set(value);
        return *this;
    }
    Property &operator=(T &&value) {
        set(std::move(value));
        return *this;
    }
    Property &operator=(const Property &other) {
        set(other.value_);
        return *this;
    }
    operator const T &() const { return value_; }
    const T &get() const { return value_; }

    template <class Value>
    void set(Value &&value) {
        const bool different = accept ? store(accept(value)) : store(std::forward<Value>(value));
        if (assigned) {
            assigned(different);
        }
    }

    // Stores without the event: what a person's doing has brought about, whose event follows.
    template <class Value>
    bool store(Value &&value) {
        if (value == value_) {
            return false;
        }
        value_ = std::forward<Value>(value);
        notify();
        return true;
    }

    // Changes the value where it lies.
    template <class Change>
    void edit(Change change) {
        change(value_);
        notify();
    }

    std::string shown() const override { return shownValue(value_); }
    std::vector<std::string> lines() const override {
        if constexpr (std::is_same_v<T, Rows>) {
            return shownCells(name(), value_);
        } else {
            return PropertyBase::lines();
        }
    }
    void keepAsDesign() override { design_ = value_; }
    void resetToDesign() override { store(design_); }

    std::function<T(const T &)> accept;
    std::function<void(bool different)> assigned;

private:
    T value_;
    T design_{};
};

template <class T>
bool operator==(const Property<T> &property, const T &value) {
    return property.get() == value;
}

} // namespace grimoval
