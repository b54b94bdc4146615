// SPDX-License-Identifier: GPL-3.0-or-later
// Players and scores on view.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::players {

struct Row {
    int mode;
    std::array<const char16_t *, 4> names;
    bool good;
    const char *first, *second; // labels, where good
};

const Row rows[] = {
    {1, {u"DURAND", u"MARIE", u"", u""}, true, "MARIE D.", ""},
    {1, {u"DURAND", u"", u"", u""}, true, " D.", ""},
    {1, {u"", u"MARIE", u"", u""}, false, "", ""},
    {1, {u"   ", u"MARIE", u"", u""}, false, "", ""},
    {2, {u"DURAND", u"MARIE", u"PETIT", u"LÉO"}, true, "MARIE D.", "LÉO P."},
    {2, {u"", u"MARIE", u"PETIT", u"LÉO"}, true, "MARIE  .", "LÉO P."},
    {2, {u"DURAND", u"", u"", u""}, true, " D.", "  ."},
    {2, {u" ", u" ", u"PETIT", u"LÉO"}, false, "", ""},
    {3, {u"ÉTIENNE", u"ANNE-MARIE", u"PETIT", u"LÉO"}, true, "ANNE-MARIE É.", "LÉO P."},
    {3, {u"", u"", u"PETIT", u"LÉO"}, false, "", ""},
    {3, {u" DURAND", u"MARIE ", u"P", u" L"}, true, "MARIE  .", "L P."},
};

TEST(Players, AreShownByFirstNameAndInitialWhereTheNamesAllowAGame) {
    for (const Row &row : rows) {
        Game game(false);
        game.g.reglages.NombreJoueur = row.mode;
        std::string all = std::to_string(row.mode);
        for (std::size_t i = 0; i < 4; ++i) {
            game.g.joueurs.NomJoueur[i + 1] = Texte(row.names[i]);
            all += " [" + toUtf8(row.names[i]) + "]";
        }
        EXPECT_EQ(game.menu.AfficherJoueurs(), row.good) << all;
        EXPECT_EQ(shown(game.menu.Rappel[1].Caption), row.first) << all;
        EXPECT_EQ(shown(game.menu.Bord[2].Tag), row.first) << all;
        EXPECT_EQ(shown(game.menu.Rappel[2].Caption), row.second) << all;
        // Buttons and gauge of the mode; where the names are missing both buttons are hidden.
        EXPECT_EQ(game.menu.CmdJeux[1].Visible.get(), row.good && row.mode == 1) << all;
        EXPECT_EQ(game.menu.CmdJeux[2].Visible.get(), row.good && row.mode == 3) << all;
        EXPECT_TRUE(game.menu.CmdJeux[1].Inactif) << all;
        EXPECT_TRUE(game.menu.CmdJeux[2].Inactif) << all;
        // The gauge is on view from the first showing, in mode 1.
        EXPECT_EQ(game.menu.FluxScore.Visible.get(), !row.good || row.mode == 1) << all;
        EXPECT_EQ(game.menu.Bord[3].Visible.get(), row.good && row.mode != 1) << all;
    }
}

TEST(Players, LeaveTheControlsOfTheModeBeforeWhereTheNamesAreMissing) {
    Game game(false);
    game.prepare({.mode = 3});
    game.g.reglages.NombreJoueur = 1;
    game.g.joueurs.NomJoueur[1] = Texte();
    EXPECT_FALSE(game.menu.AfficherJoueurs());
    EXPECT_TRUE(game.menu.Bord[3].Visible);
    EXPECT_FALSE(game.menu.FluxScore.Visible);
    EXPECT_FALSE(game.menu.CmdJeux[1].Visible);
    EXPECT_FALSE(game.menu.CmdJeux[2].Visible);
    EXPECT_EQ(shown(game.menu.Rappel[1].Caption), "MARIE D.");
}

TEST(Players, ChangeWithTheMode) {
    Game game(false);
    game.prepare({.mode = 3});
    EXPECT_TRUE(game.menu.Bord[3].Visible);
    EXPECT_TRUE(game.menu.CmdJeux[2].Visible);
    game.prepare({.mode = 1});
    EXPECT_FALSE(game.menu.Bord[3].Visible);
    EXPECT_FALSE(game.menu.CmdJeux[2].Visible);
    EXPECT_TRUE(game.menu.FluxScore.Visible);
    EXPECT_TRUE(game.menu.CmdJeux[1].Visible);
    game.prepare({.mode = 2});
    EXPECT_TRUE(game.menu.Bord[3].Visible);
    EXPECT_FALSE(game.menu.FluxScore.Visible);
    EXPECT_FALSE(game.menu.CmdJeux[1].Visible);
}

TEST(Scores, StayOnTheScreenAfterTheGameUntilTheNextGoodLetter) {
    Game game;
    game.start({.words = {u"AB", u"CD"}});
    game.propose("AB");
    game.stop();
    EXPECT_EQ(game.g.scores.Score[1], 0);
    EXPECT_EQ(shown(game.menu.ImgScore[0].Caption), "7");
    ASSERT_TRUE(game.menu.CmdTjr[2].userClick());
    game.propose("Z");
    EXPECT_EQ(shown(game.menu.ImgScore[0].Caption), "7");
    game.propose("A");
    EXPECT_EQ(shown(game.menu.ImgScore[0].Caption), "1");
}

TEST(Scores, OfTheLastGameGoWhenAWordOfTheNextOneEndsInAnyWay) {
    const std::function<void(Game &)> ends[] = {
        [](Game &game) { EXPECT_TRUE(game.menu.CmdJeux[1].userClick()); }, // "Voir la réponse"
        [](Game &game) { game.propose("VWXYZK"); },                        // six errors
        [](Game &game) { advance(game, 20); }};
    for (const auto &end : ends) {
        Game game;
        game.start({.words = {u"AB", u"AB"}, .limited = true});
        game.propose("AB");
        game.stop();
        ASSERT_TRUE(game.menu.CmdTjr[2].userClick());
        EXPECT_EQ(shown(game.menu.ImgScore[0].Caption), "7");
        end(game);
        EXPECT_FALSE(game.menu.CmdJeux[0].Inactif);
        EXPECT_EQ(shown(game.menu.ImgScore[0].Caption), "0");
    }
}

TEST(Scores, OfTheLastGameGoForEachPlayerByHisOwnLetterOrWord) {
    Game game;
    const Start start{.mode = 3, .words = {u"AB", u"AB", u"AB", u"AB"}, .errors = 2};
    game.start(start);
    game.propose("AB");
    game.propose("AB");
    game.stop();
    ASSERT_TRUE(game.menu.CmdTjr[2].userClick());
    const auto both = [&] {
        return shown(game.menu.ImgScore[0].Caption) + " " + shown(game.menu.ImgScore[1].Caption);
    };
    EXPECT_EQ(both(), "7 7");
    game.propose("Y");
    EXPECT_EQ(both(), "7 7");
    game.propose("Z"); // lost
    EXPECT_EQ(both(), "0 7");
    game.propose("Y");
    EXPECT_EQ(both(), "0 7");
    game.propose("A");
    EXPECT_EQ(both(), "0 1");
}

TEST(Scores, AreShownUnderTheLabelOfEachPlayer) {
    Game game(false);
    game.start({.mode = 2, .words = {u"ABC"}});
    game.propose("AZBC");
    EXPECT_EQ(shown(game.menu.ImgScore[0].Caption), "1");
    EXPECT_EQ(shown(game.menu.ImgScore[1].Caption), "7");
}

TEST(ScoreGauge, TellsWordsFoundOutOfProposedAndStandsAtFoundOutOfTheBase) {
    Game game;
    Start start;
    start.words.clear();
    for (char16_t letter = u'A'; letter <= u'J'; ++letter) {
        start.words.push_back(Texte(1, letter));
    }
    start.errors = 1;
    game.start(start);
    for (int word = 0; word < 7; ++word) {
        if (word > 0) {
            game.enter();
        }
        // Two of seven are lost.
        game.propose(word < 5 ? std::string(1, static_cast<char>('A' + word)) : "Z");
    }
    Gauge &gauge = game.menu.FluxScore;
    EXPECT_EQ(shown(gauge.TexteFlux), "5/7");
    EXPECT_EQ(gauge.Valeur.get(), 5);
    EXPECT_EQ(gauge.Maximum.get(), 10);
    EXPECT_FALSE(gauge.EnMarche);
}

TEST(ScoreGauge, TurnsItsTextWhiteAtFortyHundredthsAndStartsWhiteAndEmpty) {
    Game game;
    game.start({.words = {u"A", u"B", u"C", u"D", u"E"}});
    Gauge &gauge = game.menu.FluxScore;
    EXPECT_EQ(gauge.CouleurTexte.get(), colours::white);
    EXPECT_EQ(shown(gauge.TexteFlux), "");
    gauge.CouleurTexte = colours::red;
    game.propose("A"); // 1 of 5
    EXPECT_EQ(gauge.CouleurTexte.get(), colours::red);
    game.enter();
    game.propose("B"); // 2 of 5
    EXPECT_EQ(gauge.CouleurTexte.get(), colours::white);
    game.stop();
    ASSERT_TRUE(game.menu.CmdTjr[2].userClick());
    EXPECT_EQ(shown(gauge.TexteFlux), "");
    EXPECT_EQ(gauge.Valeur.get(), 0);
}

TEST(ScoreGauge, ReckonsItsHundredthsWholeAndRoundsThemDown) {
    for (const auto &[words, white] : {std::pair{100, true}, {101, false}, {102, false}}) {
        Game game;
        game.start({.words = {u"A"}});
        game.g.scores.NbMotsBase = words;
        game.g.scores.MotsTrouves[1] = 39;
        game.menu.FluxScore.CouleurTexte = colours::red;
        game.propose("A"); // the 40th
        EXPECT_EQ(game.menu.FluxScore.CouleurTexte.get(), white ? colours::white : colours::red)
            << words;
    }
}

TEST(ScoreGauge, OfAnEmptyBaseWouldDivideByZero) {
    Game game;
    game.start({.words = {u"AB"}});
    game.g.scores.NbMotsBase = 0;
    int number = 0;
    try {
        game.menu.FinDeMot();
    } catch (const Failure &failure) {
        number = failure.number;
    }
    EXPECT_EQ(number, 11);
}

TEST(Players, GreyAndHideBothWaysOfGivingUpWhateverTheNames) {
    for (const char16_t *family : {u"", u"DURAND"}) {
        Game game;
        game.prepare({.mode = 2, .names = {family, u"", u"PETIT", u""}});
        for (const int button : {1, 2}) {
            game.menu.CmdJeux[button].Inactif = false;
            game.menu.CmdJeux[button].Visible = true;
        }
        EXPECT_EQ(game.menu.AfficherJoueurs(), *family != 0);
        for (const int button : {1, 2}) {
            EXPECT_TRUE(game.menu.CmdJeux[button].Inactif) << button;
            EXPECT_FALSE(game.menu.CmdJeux[button].Visible) << button;
        }
    }
}

} // namespace grimoval::test::players
