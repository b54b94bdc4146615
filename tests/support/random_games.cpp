// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/random_games.h"

#include <gtest/gtest.h>
#include <ostream>
#include <set>
#include <sstream>

namespace grimoval::test {

namespace {

constexpr const char *kindNames[] = {"click",  "key",   "enter",      "newWord", "answer",
                                     "giveUp", "stop",  "begin",      "seconds", "paint",
                                     "about",  "sound", "refusedQuit"};

// Few letters, so that words are found as well as lost.
rc::Gen<char16_t> anyCharacter(const Texte &others) {
    return rc::gen::weightedOneOf<char16_t>(
        {{14, rc::gen::elementOf(Texte(u"AEST"))},
         {3, rc::gen::elementOf(Texte(u"ABCDEFGHIJKLMNOPQRSTUVWXYZ"))},
         {2, rc::gen::elementOf(Texte(u"ÀÉÈÊÇÔÛŒÆŸ"))},
         {1, rc::gen::elementOf(Texte(u"aezéœ"))},
         {2, rc::gen::elementOf(others)},
         {1, rc::gen::elementOf(Texte(u"()"))}});
}

rc::Gen<Action> anyAction() {
    const auto kind = rc::gen::weightedElement<Action::Kind>({{40, Action::click},
                                                              {14, Action::key},
                                                              {6, Action::enter},
                                                              {10, Action::newWord},
                                                              {3, Action::answer},
                                                              {4, Action::giveUp},
                                                              {2, Action::stop},
                                                              {3, Action::begin},
                                                              {12, Action::seconds},
                                                              {1, Action::paint},
                                                              {1, Action::about},
                                                              {1, Action::sound},
                                                              {1, Action::refusedQuit}});
    return rc::gen::mapcat(kind, [](Action::Kind k) {
        const auto character = k == Action::click
                                   ? rc::gen::elementOf(Texte(u"AESTAESTAESTAESTBCIRXZ"))
                                   : anyCharacter(u"-'0123456789");
        const auto amount = rc::gen::weightedOneOf<int>(
            {{3, rc::gen::inRange(1, 4)}, {1, rc::gen::inRange(4, 12)}});
        return rc::gen::build<Action>(rc::gen::set(&Action::kind, rc::gen::just(k)),
                                      rc::gen::set(&Action::character, character),
                                      rc::gen::set(&Action::amount, amount));
    });
}

rc::Gen<RandomGame> games(const rc::Gen<std::vector<Texte>> &words) {
    const auto start = rc::gen::build<Start>(
        rc::gen::set(&Start::mode, rc::gen::inRange(1, 4)), rc::gen::set(&Start::words, words),
        rc::gen::set(&Start::errors, rc::gen::weightedOneOf<int>({{4, rc::gen::inRange(1, 7)},
                                                                  {1, rc::gen::inRange(1, 21)}})),
        rc::gen::set(&Start::limited, rc::gen::arbitrary<bool>()),
        rc::gen::set(&Start::seconds, rc::gen::inRange(5, 9)));
    const auto number = rc::gen::map(rc::gen::inRange(0, 1000),
                                     [](int n) { return static_cast<float>(n) / 1000.0f; });
    return rc::gen::build<RandomGame>(
        rc::gen::set(&RandomGame::start, start),
        rc::gen::set(&RandomGame::draws, rc::gen::container<std::vector<float>>(number)),
        rc::gen::set(&RandomGame::actions, rc::gen::container<std::vector<Action>>(anyAction())));
}

} // namespace

std::ostream &operator<<(std::ostream &stream, const RandomGame &game) {
    stream << "mode " << game.start.mode << ", " << game.start.errors << " errors, "
           << (game.start.limited ? std::to_string(game.start.seconds) + " seconds" : "no time")
           << "\nwords";
    for (const Texte &word : game.start.words) {
        stream << " [" << toUtf8(word) << "]";
    }
    stream << "\ndraws";
    for (const float number : game.draws) {
        stream << ' ' << number;
    }
    for (const Action &action : game.actions) {
        stream << '\n' << kindNames[action.kind];
        if (action.kind == Action::click || action.kind == Action::key) {
            stream << ' ' << toUtf8(Texte(1, action.character));
        } else if (action.kind == Action::seconds) {
            stream << ' ' << action.amount;
        }
    }
    return stream;
}

rc::Gen<Texte> anyWord() {
    return rc::gen::scale(
        0.12,
        rc::gen::map(rc::gen::container<std::vector<char16_t>>(anyCharacter(u"- '0123456789")),
                     [](const std::vector<char16_t> &word) {
                         return trim(Texte(word.begin(), word.end()).substr(0, 30));
                     }));
}

rc::Gen<RandomGame> anyGame() {
    return games(rc::gen::scale(
        0.1, rc::gen::container<std::vector<Texte>>(rc::gen::scale(10.0, anyWord()))));
}

rc::Gen<RandomGame> anyGameOfDistinctWords() {
    return games(rc::gen::scale(
        0.1, rc::gen::map(rc::gen::container<std::set<Texte>>(rc::gen::scale(10.0, anyWord())),
                          [](const std::set<Texte> &words) {
                              return std::vector<Texte>(words.begin(), words.end());
                          })));
}

bool perform(Game &game, const Action &action) {
    const auto closing = [&](const char *form) {
        game.windows.expectModal(form, [](Form &window) { window.requestClose(); });
    };
    FMenu &menu = game.menu;
    // A list with too few words ends the game, and the score window comes.
    const auto usedUp = [&](List &list) {
        return list.ListCount() < (game.g.reglages.NombreJoueur == 3 ? 2 : 1);
    };
    const bool ends = action.kind == Action::stop ? menu.CmdTjr[0].isOpen()
                      : action.kind == Action::begin
                          ? menu.CmdTjr[2].isOpen() && usedUp(menu.LstMot[0])
                      : action.kind == Action::newWord || action.kind == Action::enter
                          ? menu.CmdJeux[0].isOpen() && usedUp(menu.LstMot[1])
                          : false;
    if (ends) {
        game.expectScore();
    }
    switch (action.kind) {
    case Action::click:
        return game.click(static_cast<char>(action.character));
    case Action::key:
        game.key(action.character);
        return true;
    case Action::enter:
        game.enter();
        return true;
    case Action::newWord:
        return menu.CmdJeux[0].userClick();
    case Action::answer:
        return menu.CmdJeux[1].userClick();
    case Action::giveUp:
        return menu.CmdJeux[2].userClick();
    case Action::stop:
        return menu.CmdTjr[0].userClick();
    case Action::begin:
        return menu.CmdTjr[2].userClick();
    case Action::seconds:
        advance(game, action.amount);
        return true;
    case Action::paint:
        menu.expose();
        return true;
    case Action::about:
        closing("FAbout");
        return menu.lblAbout.userClick();
    case Action::sound:
        closing("FOption");
        return menu.CmdCfg[1].userClick();
    default:
        game.windows.expectModal("Fmsg1", [&game](Form &) { game.question.CmdMsg[2].userClick(); });
        return menu.CmdTjr[3].userClick();
    }
}

void checkGames(int number, const rc::Gen<RandomGame> &games,
                const std::function<void(const RandomGame &)> &property) {
    rc::detail::TestParams params = rc::detail::configuration().testParams;
    params.maxSuccess = number;
    rc::detail::TestMetadata metadata;
    metadata.id = testing::UnitTest::GetInstance()->current_test_info()->name();
    metadata.description = metadata.id;
    const auto result = rc::detail::checkTestable(
        [&] {
            const RandomGame game = *games;
            property(game);
        },
        metadata, params);
    if (!result.template is<rc::detail::SuccessResult>()) {
        std::ostringstream text;
        rc::detail::printResultMessage(result, text);
        FAIL() << text.str();
    }
}

} // namespace grimoval::test
