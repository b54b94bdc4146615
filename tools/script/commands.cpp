// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/script/commands.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <istream>
#include <ostream>

namespace grimoval::script {

namespace {

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

} // namespace

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

Refusal Interpreter::act(const Words &words) {
    const Texte &name = words.front();
    if (!program_) {
        return "programme arrete";
    }
    if (name == u"etat" && words.size() == 1) {
        program_->printState();
        return {};
    }
    if (name == u"attendre" && words.size() == 2) {
        const auto seconds = numericValue(words[1]);
        if (!seconds || *seconds < 0 || *seconds > 1e7) {
            return "duree";
        }
        program_->wait(std::llround(*seconds * 1000));
        return {};
    }
    return script::act(program_->screen, words);
}

} // namespace grimoval::script
