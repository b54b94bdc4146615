// SPDX-License-Identifier: GPL-3.0-or-later
// Games at random, for the laws that hold whatever anybody does.
#pragma once

#include "support/game.h"

#include <iosfwd>
#include <rapidcheck.h>

namespace grimoval::test {

// One thing that a person does, or that time does.
struct Action {
    enum Kind {
        click,       // on the button of a letter
        key,         // a character on the keyboard
        enter,       // the key
        newWord,     // "Nouveau mot"
        answer,      // "Voir la réponse"
        giveUp,      // "Abandonner"
        stop,        // "Stopper la partie"
        begin,       // "Nouvelle partie"
        seconds,     // pass, `amount` of them
        paint,       // the window comes into view again
        about,       // the about window is opened and closed
        sound,       // the sound options likewise
        refusedQuit, // the close request, answered by "Annuler"
        kinds
    };
    Kind kind = click;
    char16_t character = u'A'; // of a click or key
    int amount = 1;
};

struct RandomGame {
    Start start;
    std::vector<float> draws; // the first random numbers; 0 follows
    std::vector<Action> actions;
};

std::ostream &operator<<(std::ostream &stream, const RandomGame &game);

rc::Gen<Texte> anyWord();      // letters, accents, small ones, hyphens, parentheses, digits
rc::Gen<RandomGame> anyGame(); // in every mode, with and without a time
rc::Gen<RandomGame> anyGameOfDistinctWords();

// False if the door was closed: a greyed, hidden or disabled control. Keys, seconds and paints are
// always taken.
bool perform(Game &game, const Action &action);

// Checks a property of random games with so many of them.
void checkGames(int number, const rc::Gen<RandomGame> &games,
                const std::function<void(const RandomGame &)> &property);

} // namespace grimoval::test
