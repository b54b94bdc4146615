// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/script/person.h"

#include <algorithm>
#include <cmath>

namespace grimoval::script {

std::optional<std::vector<Texte>> splitCommand(const Texte &line) {
    std::vector<Texte> words;
    bool inside = false, quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char16_t character = line[i];
        if (quoted && character == u'\\' && i + 1 < line.size() &&
            (line[i + 1] == u'"' || line[i + 1] == u'\\')) {
            words.back() += line[++i];
        } else if (character == u'"') {
            if (!inside) {
                words.emplace_back();
                inside = true;
            }
            quoted = !quoted;
        } else if (!quoted && (character == u' ' || character == u'\t')) {
            inside = false;
        } else {
            if (!inside) {
                words.emplace_back();
                inside = true;
            }
            words.back() += character;
        }
    }
    return quoted ? std::nullopt : std::optional(words);
}

std::optional<int> wholeNumber(const Texte &text) {
    const auto value = numericValue(text);
    if (!value || *value != std::floor(*value) || std::abs(*value) > 1e9) {
        return {};
    }
    return static_cast<int>(*value);
}

Control *findControl(const Screen &screen, const std::string &path) {
    for (const Form *form : screen.loaded()) {
        for (Control *control : form->controls()) {
            if (control->path() == path) {
                return control;
            }
        }
    }
    return nullptr;
}

namespace {

Form *findForm(const Screen &screen, const std::string &path) {
    for (Form *form : screen.loaded()) {
        if (form->path() == path) {
            return form;
        }
    }
    return nullptr;
}

Refusal covered(const Screen &screen, const Form &form) {
    if (!form.isShown()) {
        return "fenetre cachee";
    }
    return screen.active() == &form ? Refusal() : "fenetre couverte";
}

// A click is taken by every kind that has a sense for it.
class Clicker : public ControlVisitor {
public:
    bool taken = false;
    void visit(Label &label) override { taken = label.userClick(); }
    void visit(PictureButton &button) override { taken = button.userClick(); }
    void visit(LetterButton &button) override { taken = button.userClick(); }
    void visit(Gauge &) override {}
    void visit(List &) override {}
    void visit(CheckBox &box) override { taken = box.userClick(); }
    void visit(ScrollBar &) override {}
    void visit(TextField &) override {}
    void visit(Picture &picture) override { taken = picture.userClick(); }
    void visit(Shape &shape) override { taken = shape.userClick(); }
    void visit(Table &) override {}
    void visit(Timer &) override {}
};

Refusal taken(bool done) { return done ? Refusal() : "commande sans prise"; }

void type(Form &form, const Texte &text) {
    for (const char16_t character : text) {
        form.pressKey(Key::typed(character));
    }
}

Refusal press(Screen &screen, const Texte &name) {
    static const std::pair<const char16_t *, int> named[] = {
        {u"Entree", Key::enter}, {u"Echap", Key::escape}, {u"Tab", Key::tab},
        {u"Espace", Key::space}, {u"Retour", Key::back},
    };
    Form *form = screen.active();
    if (form == nullptr) {
        return "aucune fenetre";
    }
    for (const auto &[word, code] : named) {
        if (name == word) {
            Key key;
            key.code = code;
            key.character = code == Key::space ? u' ' : u'\0';
            form->pressKey(key);
            return {};
        }
    }
    if (name.size() != 1) {
        return "touche inconnue";
    }
    form->pressKey(Key::typed(name.front()));
    return {};
}

} // namespace

Refusal act(Screen &screen, const Words &words) {
    if (words.size() < 2) {
        return "commande inconnue";
    }
    const Texte &name = words.front();
    if (name == u"touche" && words.size() == 2) {
        return press(screen, words[1]);
    }
    const std::string target = toUtf8(words[1]);
    if ((name == u"fermer" || name == u"couvrir") && words.size() == 2) {
        Form *form = findForm(screen, target);
        if (form == nullptr) {
            return "fenetre inconnue";
        }
        if (const Refusal refusal = covered(screen, *form)) {
            return refusal;
        }
        name == u"fermer" ? form->requestClose() : form->expose();
        return {};
    }
    static const std::pair<const char16_t *, std::size_t> onControls[] = {
        {u"clic", 2}, {u"double-clic", 2}, {u"saisir", 3}, {u"choisir", 3}, {u"regler", 3}};
    bool known = false;
    for (const auto &[word, count] : onControls) {
        known = known || (name == word && words.size() == count);
    }
    if (!known) {
        return "commande inconnue";
    }
    Control *control = findControl(screen, target);
    if (control == nullptr) {
        return "controle inconnu";
    }
    if (const Refusal refusal = covered(screen, control->form())) {
        return refusal;
    }
    if (name == u"clic") {
        Clicker clicker;
        control->accept(clicker);
        return taken(clicker.taken);
    }
    if (name == u"double-clic") {
        auto *list = dynamic_cast<List *>(control);
        return taken(list != nullptr && list->userDoubleClick());
    }
    if (name == u"saisir") {
        auto *field = dynamic_cast<TextField *>(control);
        if (field == nullptr || !field->takesFocus()) {
            return taken(false);
        }
        field->form().setFocus(*field);
        field->userType(u"");
        type(field->form(), words[2]);
        return {};
    }
    const auto number = wholeNumber(words[2]);
    if (!number) {
        return "nombre";
    }
    if (name == u"choisir") {
        auto *list = dynamic_cast<List *>(control);
        return taken(list != nullptr && list->userSelect(*number));
    }
    auto *bar = dynamic_cast<ScrollBar *>(control);
    return taken(bar != nullptr && bar->userScroll(*number));
}

} // namespace grimoval::script
