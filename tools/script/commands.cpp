// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/script/commands.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <istream>
#include <ostream>

namespace grimoval::script {

namespace {

using Refusal = std::optional<std::string>;

std::optional<int> wholeNumber(const Texte &text) {
    const auto value = numericValue(text);
    if (!value || *value != std::floor(*value) || std::abs(*value) > 1e9) {
        return {};
    }
    return static_cast<int>(*value);
}

std::optional<DateTime> dateTime(const Texte &day, const Texte &hour) {
    DateTime moment;
    char rest = 0;
    const std::string text = toUtf8(day + u" " + hour);
    const int fields =
        std::sscanf(text.c_str(), "%4d-%2d-%2d %2d:%2d:%2d%c", &moment.year, &moment.month,
                    &moment.day, &moment.hour, &moment.minute, &moment.second, &rest);
    const bool good = fields == 6 && moment.year >= 1600 && moment.month >= 1 &&
                      moment.month <= 12 && moment.day >= 1 && moment.day <= 31 &&
                      moment.hour >= 0 && moment.hour < 24 && moment.minute >= 0 &&
                      moment.minute < 60 && moment.second >= 0 && moment.second < 60;
    return good ? std::optional(moment) : std::nullopt;
}

Form *findForm(const Screen &screen, const std::string &path) {
    for (Form *form : screen.loaded()) {
        if (form->path() == path) {
            return form;
        }
    }
    return nullptr;
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

} // namespace

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

void Interpreter::run() {
    try {
        converse([] { return true; });
    } catch (const EndOfInput &) {
        output_.flush();
    }
}

void Interpreter::converse(const std::function<bool()> &waiting) {
    std::string line;
    while (waiting()) {
        if (!std::getline(input_, line)) {
            throw EndOfInput();
        }
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        obey(fromUtf8(line));
    }
}

void Interpreter::obey(const Texte &line) {
    const auto words = splitCommand(line);
    if (words && (words->empty() || words->front().starts_with(u'#'))) {
        return;
    }
    const Refusal refusal = words ? carryOut(*words) : "guillemet sans fin";
    if (refusal) {
        output_ << "refus " << *refusal << '\n';
    }
    output_.flush();
}

Refusal Interpreter::carryOut(const Words &words) {
    if (words.front() == u"demarrer") {
        if (program_) {
            return "programme en marche";
        }
        if (words.size() != 3) {
            return "arguments";
        }
        start(words);
        return {};
    }
    static const Texte preparations[] = {u"ecran", u"date", u"hasard", u"peripheriques",
                                         u"imprimante"};
    for (const Texte &name : preparations) {
        if (words.front() == name) {
            return prepare(words);
        }
    }
    return act(words);
}

Refusal Interpreter::prepare(const Words &words) {
    const Texte &name = words.front();
    if (name == u"date") {
        const auto moment = words.size() == 3 ? dateTime(words[1], words[2]) : std::nullopt;
        if (!moment) {
            return "date";
        }
        around_.clock.set(*moment);
        return {};
    }
    if (name == u"hasard") {
        std::vector<float> numbers;
        for (std::size_t i = 1; i < words.size(); ++i) {
            const auto value = numericValue(words[i]);
            if (!value || *value < 0 || static_cast<float>(*value) >= 1) {
                return "nombre hors de 0 a 1";
            }
            numbers.push_back(static_cast<float>(*value));
        }
        around_.random.numbers.insert(around_.random.numbers.end(), numbers.begin(), numbers.end());
        return {};
    }
    if (program_) {
        return "programme en marche";
    }
    if (name == u"ecran") {
        const auto width = words.size() == 3 ? wholeNumber(words[1]) : std::nullopt;
        const auto height = words.size() == 3 ? wholeNumber(words[2]) : std::nullopt;
        if (!width || !height || *width <= 0 || *height <= 0) {
            return "arguments";
        }
        around_.width = *width;
        around_.height = *height;
        return {};
    }
    if (name == u"peripheriques") {
        around_.wave = around_.midi = false;
        for (std::size_t i = 1; i < words.size(); ++i) {
            if (words[i] != u"wav" && words[i] != u"midi") {
                return "peripherique inconnu";
            }
            (words[i] == u"wav" ? around_.wave : around_.midi) = true;
        }
        return {};
    }
    // imprimante: page width, character width and line height, in its page unit.
    std::vector<double> measures;
    for (std::size_t i = 1; i < words.size(); ++i) {
        measures.push_back(numericValue(words[i]).value_or(-1));
    }
    if (measures.size() != 3 || *std::min_element(measures.begin(), measures.end()) < 0) {
        return "arguments";
    }
    around_.printer = {measures[0], measures[1], measures[2]};
    return {};
}

void Interpreter::start(const Words &words) {
    const auto say = [this](const std::string &line) { output_ << line << '\n'; };
    const auto folder = words[1].size() > 1 && words[1].back() == separator
                            ? words[1].substr(0, words[1].size() - 1)
                            : words[1];
    program_ = std::make_unique<Program>(
        around_, say, [this](Form &form) { converse([&form] { return form.isShown(); }); }, folder,
        words[2] == u"-" ? std::nullopt : std::optional(words[2]));
    program_->run();
    program_.reset();
}

Refusal Interpreter::press(const Texte &name) {
    static const std::pair<const char16_t *, int> named[] = {
        {u"Entree", Key::enter}, {u"Echap", Key::escape}, {u"Tab", Key::tab},
        {u"Espace", Key::space}, {u"Retour", Key::back},
    };
    Form *form = program_->screen.active();
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

Refusal Interpreter::act(const Words &words) {
    const Texte &name = words.front();
    if (!program_) {
        return "programme arrete";
    }
    Screen &screen = program_->screen;
    if (name == u"etat" && words.size() == 1) {
        program_->printState();
        return {};
    }
    if (words.size() < 2) {
        return "commande inconnue";
    }
    if (name == u"attendre" && words.size() == 2) {
        const auto seconds = numericValue(words[1]);
        if (!seconds || *seconds < 0 || *seconds > 1e7) {
            return "duree";
        }
        program_->wait(std::llround(*seconds * 1000));
        return {};
    }
    if (name == u"touche" && words.size() == 2) {
        return press(words[1]);
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
