// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/rules.h"

#include <algorithm>
#include <cmath>

namespace grimoval::test {

namespace {
bool plainLetter(char16_t character) {
    return (character >= u'A' && character <= u'Z') || (character >= u'a' && character <= u'z');
}
} // namespace

std::size_t lengthInPlay(const Texte &word) { return std::min(word.find(u'('), word.size()); }

Texte maskedWord(const Texte &word) {
    Texte masked = word;
    for (std::size_t i = 0; i < lengthInPlay(word); ++i) {
        if (plainLetter(word[i])) {
            masked[i] = u'#';
        }
    }
    return masked;
}

Rules::Rules(const Start &start, const std::vector<float> &draws)
    : start_(start), mode_(start.mode), draws_(draws.begin(), draws.end()) {
    showNames();
    begin();
}

void Rules::showNames() {
    const auto &n = start_.names;
    label[1] = n[1] + u" " + n[0].front() + u".";
    label[2] = mode_ == 1 ? Texte() : n[3] + u" " + n[2].front() + u".";
}

float Rules::draw() {
    if (draws_.empty()) {
        return 0;
    }
    const float number = draws_.front();
    draws_.pop_front();
    return number;
}

Texte Rules::take() {
    const auto place =
        static_cast<std::ptrdiff_t>(std::floor(static_cast<float>(left.size()) * draw()));
    const Texte taken = left[static_cast<std::size_t>(place)];
    left.erase(left.begin() + place);
    return taken;
}

void Rules::begin() {
    if (start_.limited) {
        gauge = 0;
    }
    say("AttCaCOm");
    first_ = true;
    progress = count = u"";
    next();
    gameRuns = true;
    begun_ = clock_;
}

void Rules::next() {
    if (first_) {
        left = start_.words;
        first_ = false;
    }
    colour = colours::blue;
    errors = {};
    player = 1;
    word = masked = {};
    curtain = 1;
    curtainShown = false;
    closed.clear();
    hits.clear();
    if (left.size() < (mode_ == 3 ? 2u : 1u)) {
        ++messages;
        stop();
        return;
    }
    for (int i = 1; i <= (mode_ == 3 ? 2 : 1); ++i) {
        const auto s = static_cast<std::size_t>(i);
        word[s] = take();
        masked[s] = maskedWord(word[s]);
    }
    display = masked[1];
    count = decimal(static_cast<int>(std::count(masked[1].begin(), masked[1].end(), u'#') -
                                     std::count(word[1].begin(), word[1].end(), u'#')));
    ++proposed;
    if (start_.limited) {
        gauge = 0;
        gaugeWanted_ = gaugeRuns = true;
    }
    showNames();
    label[1] += u" A toi";
    state = State::word;
}

void Rules::stop() {
    state = State::rest;
    gameRuns = false;
    stopGauge();
    say("Score");
    records.push_back({proposed, score[1], found[1], bad[1], good[1], givenUp[1], score[2],
                       found[2], bad[2], good[2], givenUp[2]});
    // The score window clears the counts, and the window that comes back zeroes its gauge.
    score = found = bad = good = givenUp = {};
    proposed = 0;
    gauge = 0;
    colour = colours::blue;
    display = u"Pour commencer : appuie sur le bouton vert";
    curtain = 1;
    showNames();
}

void Rules::stopGauge() {
    if (start_.limited) {
        gaugeRuns = gaugeWanted_ = false;
    }
}

void Rules::restartGauge() {
    gauge = 0;
    gaugeRuns = gaugeWanted_ = true;
}

bool Rules::propose(char16_t letter) {
    if (state != State::word || closed.contains(letter)) {
        return false;
    }
    const auto s = static_cast<std::size_t>(slot()), p = static_cast<std::size_t>(player);
    closed.insert(letter);
    bool hit = false;
    for (std::size_t i = 0; i < lengthInPlay(word[s]); ++i) {
        if (word[s][i] == letter) {
            masked[s][i] = letter;
            hit = true;
        }
    }
    if (hit) {
        hits.insert(letter);
        display = masked[s];
        ++good[p];
        ++score[p];
        points[p] = decimal(score[p]);
        judge(false);
        return true;
    }
    ++errors[p];
    say("CesPBon");
    if (mode_ == 2) {
        pass();
    } else if (errors[p] >= start_.errors) {
        judge(false);
    } else {
        curtainShown = true;
        curtain += 200 / start_.errors;
    }
    return true;
}

void Rules::judge(bool timeOut) {
    const auto s = static_cast<std::size_t>(slot()), p = static_cast<std::size_t>(player);
    if (masked[s] == word[s]) {
        stopGauge();
        score[p] += 5;
        ++found[p];
        const int third = start_.errors / 3;
        if (mode_ == 2 || (errors[p] > third && errors[p] < 2 * third)) {
            say("CesBien");
        } else {
            say(errors[p] == 2 * third ? "Cesmoy" : "Cestbien");
        }
        colour = colours::green;
        finish();
    } else if (byWord()) {
        if (errors[p] < start_.errors) {
            return;
        }
        stopGauge();
        if (mode_ == 1) {
            colour = colours::red;
            display = word[1];
        } else {
            left.push_back(word[1]);
        }
        if (!timeOut) {
            say("FauFaEff");
        }
        curtain = 200;
        curtainShown = true;
        finish();
    } else if (start_.limited) {
        gaugeWanted_ ? restartGauge() : pass();
    }
}

void Rules::pass() {
    const auto p = static_cast<std::size_t>(player);
    ++turns[p];
    bad[p] += errors[p];
    errors = {};
    player = 3 - player;
    showNames();
    label[static_cast<std::size_t>(player)] += u" A toi";
    if (mode_ == 2 && start_.limited && gaugeWanted_) {
        restartGauge();
    }
}

void Rules::finish() {
    const auto p = static_cast<std::size_t>(player);
    bad[p] += errors[p];
    points[p] = decimal(score[p]);
    if (mode_ == 3 && player == 1) {
        // Player 2's word begins; the errors of player 1 are booked once more.
        pass();
        closed.clear();
        hits.clear();
        display = masked[2];
        count = decimal(static_cast<int>(std::count(masked[2].begin(), masked[2].end(), u'#') -
                                         std::count(word[2].begin(), word[2].end(), u'#')));
        colour = colours::blue;
        curtain = 1;
        if (start_.limited) {
            restartGauge();
        }
        return;
    }
    state = State::between;
    if (mode_ == 1) {
        progress = decimal(found[1]) + u"/" + decimal(proposed);
    } else {
        showNames();
    }
}

void Rules::abandon() {
    stopGauge();
    if (mode_ == 1) {
        colour = colours::red;
        display = word[1];
    } else {
        left.push_back(word[1]);
    }
    say("FauFaEff");
    ++givenUp[static_cast<std::size_t>(player)];
    finish();
}

void Rules::second() {
    ++clock_;
    if (gameRuns) {
        elapsed = clock_ - begun_;
    }
    if (!gaugeRuns || ++gauge < start_.seconds) {
        return;
    }
    gaugeRuns = false;
    say(draw() < 0.5f ? "TropTar" : "PaassRap");
    if (byWord()) {
        errors[static_cast<std::size_t>(player)] = start_.errors;
    }
    judge(true);
}

bool Rules::act(const Action &action) {
    prompts.clear();
    const bool playing = state == State::word;
    switch (action.kind) {
    case Action::click:
        return propose(action.character);
    case Action::key: {
        const char16_t letter = upper(action.character);
        if (proposed > 0 && letter >= u'A' && letter <= u'Z' && !propose(letter)) {
            say("ohoh");
        }
        return true;
    }
    case Action::enter:
    case Action::newWord:
        if (state == State::between) {
            next();
            return true;
        }
        return action.kind == Action::enter;
    case Action::answer:
        if (mode_ == 1 && playing) {
            abandon();
            return true;
        }
        return false;
    case Action::giveUp:
        if (mode_ == 3 && playing && player == 2) {
            abandon();
            return true;
        }
        return false;
    case Action::stop:
        if (state == State::between || (playing && mode_ == 2)) {
            stop();
            return true;
        }
        return false;
    case Action::begin:
        if (state == State::rest) {
            begin();
            return true;
        }
        return false;
    case Action::seconds:
        for (int i = 0; i < action.amount; ++i) {
            second();
        }
        return true;
    case Action::refusedQuit:
        say("Quitter");
        [[fallthrough]];
    case Action::about:
        gaugeRuns = gaugeWanted_;
        [[fallthrough]];
    case Action::sound:
        gauge = 0; // the window that comes back zeroes it
        return true;
    default:
        return true;
    }
}

} // namespace grimoval::test
