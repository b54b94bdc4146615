// SPDX-License-Identifier: GPL-3.0-or-later
// Thousands of random games, compared at every step with the rules told a second time.
#include "support/rules.h"

#include <gtest/gtest.h>

namespace grimoval::test::rules {

using State = Rules::State;

// What a player sees of a game, as text.
struct Seen {
    std::string word, count, progress, labels, points, left, prompts;
    std::vector<int> numbers;
    std::string colour;
    bool operator==(const Seen &) const = default;
};

std::ostream &operator<<(std::ostream &stream, const Seen &seen) {
    stream << "word [" << seen.word << "] " << seen.colour << ", count [" << seen.count
           << "], progress [" << seen.progress << "], " << seen.labels << ", points " << seen.points
           << ", left " << seen.left << ", prompts " << seen.prompts << ", numbers";
    for (const int number : seen.numbers) {
        stream << ' ' << number;
    }
    return stream;
}

std::string joined(const std::vector<Texte> &texts) { return shownValue(texts); }

std::string joined(const Events &events) {
    std::string text;
    for (const std::string &event : events) {
        text += event + " ";
    }
    return text;
}

Seen seen(Game &game) {
    FMenu &menu = game.menu;
    const ScoresPartie &s = game.g.scores;
    Seen seen;
    // The events come first: nothing that follows may add one.
    const Events events = game.windows.take();
    seen.prompts = [&] {
        Events prompts;
        for (const std::string &event : only(events, "parole ")) {
            prompts.push_back(event.substr(7));
        }
        return joined(prompts);
    }();
    seen.word = shown(menu.AffMot[0].Caption);
    seen.count = shown(menu.AffMot[1].Caption);
    seen.progress = shown(menu.FluxScore.TexteFlux);
    seen.labels = shown(menu.Rappel[1].Caption) + " / " + shown(menu.Rappel[2].Caption);
    seen.points = shown(menu.ImgScore[0].Caption) + " / " + shown(menu.ImgScore[1].Caption);
    seen.left = joined(menu.LstMot[1].Items.get());
    seen.colour = menu.AffMot[0].ForeColor.shown();
    for (const std::size_t p : {1u, 2u}) {
        for (const auto *counter : {&s.Score, &s.MotsTrouves, &s.MauvaisesLettres, &s.BonnesLettres,
                                    &s.Abandons, &s.ChangementsTour}) {
            seen.numbers.push_back((*counter)[p]);
        }
        seen.numbers.push_back(menu.ErreursMot[p]);
    }
    for (const int number :
         {static_cast<int>(s.NbMotsProposes), static_cast<int>(menu.JoueurCourant),
          menu.Shape1.Height.get(), menu.Shape1.Visible ? 1 : 0, menu.FluReflec.Valeur.get(),
          menu.FluReflec.EnMarche ? 1 : 0, menu.PartieEnCours ? 1 : 0, s.TempsEcoule,
          static_cast<int>(game.windows.messages.size())}) {
        seen.numbers.push_back(number);
    }
    return seen;
}

Seen expected(const Rules &rules) {
    Seen seen;
    seen.prompts = joined(rules.prompts);
    seen.word = toUtf8(rules.display);
    seen.count = toUtf8(rules.count);
    seen.progress = toUtf8(rules.progress);
    seen.labels = toUtf8(rules.label[1]) + " / " + toUtf8(rules.label[2]);
    seen.points = toUtf8(rules.points[1]) + " / " + toUtf8(rules.points[2]);
    seen.left = joined(rules.left);
    seen.colour = shownValue(rules.colour);
    for (const std::size_t p : {1u, 2u}) {
        for (const auto *counter :
             {&rules.score, &rules.found, &rules.bad, &rules.good, &rules.givenUp, &rules.turns}) {
            seen.numbers.push_back((*counter)[p]);
        }
        seen.numbers.push_back(rules.errors[p]);
    }
    for (const int number :
         {rules.proposed, rules.player, rules.curtain, rules.curtainShown ? 1 : 0, rules.gauge,
          rules.gaugeRuns ? 1 : 0, rules.gameRuns ? 1 : 0, rules.elapsed, rules.messages}) {
        seen.numbers.push_back(number);
    }
    return seen;
}

// Greyed or not in each state, buttons that are hidden aside.
std::string buttons(FMenu &menu) {
    std::string text;
    const auto add = [&text](const char *name, PictureButton &button) {
        text += std::string(text.empty() ? "" : " ") + name +
                (!button.Visible  ? ":hidden"
                 : button.Inactif ? ":greyed"
                                  : ":active");
    };
    add("begin", menu.CmdTjr[2]);
    add("stop", menu.CmdTjr[0]);
    add("theme", menu.CmdBase);
    add("settings", menu.CmdCfg[0]);
    add("word", menu.CmdJeux[0]);
    add("answer", menu.CmdJeux[1]);
    add("giveup", menu.CmdJeux[2]);
    add("help", menu.CmdTjr[1]);
    add("quit", menu.CmdTjr[3]);
    add("sound", menu.CmdCfg[1]);
    add("about", menu.lblAbout);
    return text;
}

std::string expectedButtons(const Rules &rules, int mode) {
    const bool rest = rules.state == State::rest, word = rules.state == State::word;
    const auto state = [](bool active) { return active ? ":active" : ":greyed"; };
    std::string text = std::string("begin") + state(rest);
    text += std::string(" stop") + state(rules.state == State::between || (word && mode == 2));
    text += std::string(" theme") + state(rest) + " settings" + state(rest);
    text += std::string(" word") + state(rules.state == State::between);
    text += std::string(" answer") + (mode == 1 ? state(word) : ":hidden");
    text += std::string(" giveup") + (mode == 3 ? state(word && rules.player == 2) : ":hidden");
    return text + " help:active quit:active sound:active about:active";
}

std::string letters(FMenu &menu) {
    std::string text;
    for (LetterButton &button : menu.VsAlpha) {
        const std::string face = toUtf8(button.DisabledPicture.get());
        text += button.Enabled ? 'l' : face.substr(2, 1)[0];
    }
    return text;
}

std::string expectedLetters(const Rules &rules) {
    std::string text;
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter) {
        text += rules.state != State::word       ? 'r' // au repos
                : !rules.closed.contains(letter) ? 'l' // libre
                : rules.hits.contains(letter)    ? 't' // trouvée
                                                 : 'f';   // fausse
    }
    return text;
}

void compare(Game &game, const Rules &rules, const std::string &when) {
    const Seen got = seen(game), wanted = expected(rules);
    if (!(got == wanted)) {
        std::ostringstream text;
        text << when << "\n  got    " << got << "\n  wanted " << wanted;
        RC_FAIL(text.str());
    }
    const int mode = game.g.reglages.NombreJoueur;
    RC_ASSERT(buttons(game.menu) == expectedButtons(rules, mode));
    RC_ASSERT(letters(game.menu) == expectedLetters(rules));
    const bool rest = rules.state == State::rest;
    RC_ASSERT(game.menu.AffMot[0].FontSize.get() == (rest ? 12 : 15));
}

TEST(RandomGames, GoAsTheRulesToldASecondTimeSayAtEveryStep) {
    checkGames(1000, anyGame(), [](const RandomGame &random) {
        Game game(false);
        game.random.numbers.assign(random.draws.begin(), random.draws.end());
        game.prepare(random.start);
        Rules rules(random.start, random.draws);
        RC_ASSERT(perform(game, {Action::begin}));
        compare(game, rules, "at the beginning");
        int step = 0;
        for (const Action &action : random.actions) {
            const bool taken = rules.act(action);
            RC_ASSERT(perform(game, action) == taken);
            compare(game, rules, "after step " + std::to_string(++step));
        }
    });
}

} // namespace grimoval::test::rules
