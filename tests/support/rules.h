// SPDX-License-Identifier: GPL-3.0-or-later
// The rules of play told a second time, as plainly as can be, for a comparison at every step. It
// knows no control and no window.
#pragma once

#include "support/random_games.h"

#include <set>

namespace grimoval::test {

class Rules {
public:
    Rules(const Start &start, const std::vector<float> &draws);

    // What an action brings about; false if its door is closed.
    bool act(const Action &action);

    enum class State { rest, word, between };
    State state = State::rest;

    std::vector<Texte> left; // words that can still come
    int player = 1;
    std::array<Texte, 3> word, masked;
    std::array<int, 3> errors{}, score{}, found{}, bad{}, good{}, givenUp{}, turns{};
    int proposed = 0;
    std::set<char16_t> closed; // letters that have been proposed on this word
    std::set<char16_t> hits;   // those of them that were in it

    Texte display, count, progress;
    std::array<Texte, 3> label, points; // of the players
    Colour colour = colours::blue;
    int curtain = 1;
    bool curtainShown = false;
    int gauge = 0;
    bool gaugeRuns = false;
    bool gameRuns = false; // the clock of the game counts
    int elapsed = 0;       // seconds of the game
    int messages = 0;      // boxes about the used-up list
    // Of each game that has ended: words proposed; then of each player points, words found, wrong
    // letters, good letters, words given up.
    std::vector<std::vector<int>> records;

    std::vector<std::string> prompts; // of the last action

private:
    int slot() const { return mode_ == 3 && player == 2 ? 2 : 1; }
    bool byWord() const { return mode_ != 2; }
    float draw();
    Texte take();
    void say(const char *file) { prompts.emplace_back(std::string(file) + ".Wav"); }
    void begin();
    void next();
    void stop();
    bool propose(char16_t letter);
    void judge(bool timeOut);
    void pass();
    void finish();
    void abandon();
    void second();
    void stopGauge();
    void restartGauge();
    void showNames();

    Start start_;
    int mode_;
    std::deque<float> draws_;
    bool gaugeWanted_ = false; // the word has a running time
    bool first_ = true;        // the next word is the first of its game
    int clock_ = 0, begun_ = 0;
};

// Capitals hidden up to the first parenthesis.
Texte maskedWord(const Texte &word);
std::size_t lengthInPlay(const Texte &word);

} // namespace grimoval::test
