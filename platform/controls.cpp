// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls.h"

#include "platform/form.h"

#include <algorithm>

namespace grimoval {

namespace {
void raise(const std::function<void()> &event) {
    if (event) {
        event();
    }
}
} // namespace

Control::Control(Form &form, const char *name, int index)
    : form_(form), name_(name), index_(index) {
    form.controls_.push_back(this);
}

Control::~Control() { std::erase(form_.controls_, this); }

std::string Control::name() const {
    return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

std::string Control::path() const { return form_.path() + "." + name(); }

bool Control::open(const std::function<void()> &event) {
    if (!isOpen() || !event) {
        return false;
    }
    event();
    return true;
}

void Control::changed(PropertyBase &property) { form_.controlChanged(*this, property); }

void Label::accept(ControlVisitor &visitor) { visitor.visit(*this); }
void PictureButton::accept(ControlVisitor &visitor) { visitor.visit(*this); }
void LetterButton::accept(ControlVisitor &visitor) { visitor.visit(*this); }
void Gauge::accept(ControlVisitor &visitor) { visitor.visit(*this); }
void List::accept(ControlVisitor &visitor) { visitor.visit(*this); }
void CheckBox::accept(ControlVisitor &visitor) { visitor.visit(*this); }
void ScrollBar::accept(ControlVisitor &visitor) { visitor.visit(*this); }
void TextField::accept(ControlVisitor &visitor) { visitor.visit(*this); }
void Picture::accept(ControlVisitor &visitor) { visitor.visit(*this); }
void Shape::accept(ControlVisitor &visitor) { visitor.visit(*this); }
void Table::accept(ControlVisitor &visitor) { visitor.visit(*this); }
void Timer::accept(ControlVisitor &visitor) { visitor.visit(*this); }

void Gauge::tick() {
    if (!EnMarche) {
        return;
    }
    if (Valeur < Maximum) {
        Valeur = Valeur + 1;
        raise(Progression);
    }
    if (EnMarche && Valeur >= Maximum) {
        EnMarche = false;
        raise(Fin);
    }
}

List::List(Form &form, const char *name, int index) : Control(form, name, index) {
    ListIndex.accept = [this](const int &item) {
        if (item < -1 || item >= ListCount()) {
            throw Failure(failure::invalidPropertyValue);
        }
        return item;
    };
    ListIndex.assigned = [this](bool) { raise(Click); };
}

const Texte &List::item(int index) const {
    if (index < 0 || index >= ListCount()) {
        throw Failure(failure::invalidPropertyValue);
    }
    return Items.get()[static_cast<std::size_t>(index)];
}

void List::AddItem(const Texte &text) {
    Items.edit([&](auto &items) { items.push_back(text); });
}

void List::RemoveItem(int index) {
    item(index); // fails for an index without an entry
    if (ListIndex == ListCount() - 1) {
        ListIndex.store(-1);
    }
    Items.edit([&](auto &items) { items.erase(items.begin() + index); });
}

void List::Clear() {
    ListIndex.store(-1);
    Items = {};
}

bool List::userSelect(int item) {
    if (!isOpen() || item < 0 || item >= ListCount()) {
        return false;
    }
    ListIndex = item;
    return true;
}

bool List::userDoubleClick() { return open(DblClick); }

CheckBox::CheckBox(Form &form, const char *name, int index) : Control(form, name, index) {
    Value.accept = [](const int &value) { return value != 0 ? 1 : 0; };
    Value.assigned = [this](bool different) {
        if (different) {
            raise(Click);
        }
    };
}

bool CheckBox::userClick() {
    if (!isOpen()) {
        return false;
    }
    Value = 1 - Value;
    return true;
}

ScrollBar::ScrollBar(Form &form, const char *name, int index) : Control(form, name, index) {
    Value.accept = [this](const int &value) {
        if (value < Min || value > Max) {
            throw Failure(failure::invalidPropertyValue);
        }
        return value;
    };
    Value.assigned = [this](bool) { raise(Change); };
}

bool ScrollBar::userScroll(int value) {
    if (!isOpen()) {
        return false;
    }
    Value = std::clamp(value, Min.get(), Max.get());
    return true;
}

TextField::TextField(Form &form, const char *name, int index) : Control(form, name, index) {
    Text.assigned = [this](bool different) {
        if (different) {
            raise(Change);
        }
    };
}

bool TextField::userType(const Texte &text) {
    if (!isOpen()) {
        return false;
    }
    Texte line = maxLength > 0 ? text.substr(0, maxLength) : text;
    std::replace_if(line.begin(), line.end(), isControl, u' ');
    Text = line;
    return true;
}

void Table::AddItem(const Texte &row) {
    std::vector<Texte> cells(1);
    for (const char16_t character : row) {
        if (character == u'\t') {
            cells.emplace_back();
        } else {
            cells.back() += character;
        }
    }
    Rows.edit([&](auto &rows) { rows.push_back(std::move(cells)); });
}

Texte Table::cell(int row, int column) const {
    const auto &rows = Rows.get();
    if (row < 0 || column < 0 || static_cast<std::size_t>(row) >= rows.size()) {
        throw Failure(failure::invalidPropertyValue);
    }
    const auto &cells = rows[static_cast<std::size_t>(row)];
    return static_cast<std::size_t>(column) < cells.size() ? cells[static_cast<std::size_t>(column)]
                                                           : Texte();
}

} // namespace grimoval
