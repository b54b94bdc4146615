// SPDX-License-Identifier: GPL-3.0-or-later
// The quit question, and the close request of the main window around it.
#include "support/failures.h"
#include "support/game.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace grimoval::test {
namespace {

void answer(Game &game, int button) {
    game.windows.expectModal("Fmsg1", [&game, button](Form &) {
        EXPECT_TRUE(game.question.CmdMsg[button].userClick());
    });
}

TEST(QuitQuestion, EnterSaysYesAndTheButtonsAnswerSixAndSeven) {
    Game game;
    game.windows.expectModal("Fmsg1", [&](Form &form) {
        EXPECT_EQ(shown(game.question.TxtMsg.Caption), "Veux-tu vraiment quitter ?");
        EXPECT_TRUE(game.g.FenetreModale);
        EXPECT_EQ(game.screen.MousePointer, 0);
        game.question.CmdMsg[2].userHover();
        Key enter;
        enter.code = Key::enter;
        form.pressKey(enter);
    });
    DemanderQuitter(game.g, game.question);
    EXPECT_EQ(game.g.ReponseFenetre, 6);
    EXPECT_FALSE(game.g.FenetreModale);
    answer(game, 2);
    DemanderQuitter(game.g, game.question);
    EXPECT_EQ(game.g.ReponseFenetre, 7);
    answer(game, 1);
    DemanderQuitter(game.g, game.question);
    EXPECT_EQ(game.g.ReponseFenetre, 6);
}

TEST(QuitQuestion, ShowsItsTwoButtonsWithTheirFacesAtEachAsking) {
    Game game;
    EXPECT_FALSE(game.question.CmdMsg[1].Visible);
    EXPECT_FALSE(game.question.CmdMsg[2].Visible);
    EXPECT_EQ(game.question.MinutFlash.Interval, 500);
    const std::string images = toUtf8(game.g.dossiers.DossierImages);
    for (int i = 0; i < 2; ++i) {
        game.windows.expectModal("Fmsg1", [&](Form &form) {
            EXPECT_TRUE(game.question.CmdMsg[1].isOpen());
            EXPECT_TRUE(game.question.CmdMsg[2].isOpen());
            EXPECT_EQ(shown(game.question.CmdMsg[1].Face), images + "_OK_ovale.tga");
            EXPECT_EQ(shown(game.question.CmdMsg[2].Face), images + "_Annuler_ovale.tga");
            form.unload();
            EXPECT_FALSE(game.g.FenetreModale);
        });
        DemanderQuitter(game.g, game.question);
    }
}

TEST(QuitQuestion, EscapeReachesForAButtonThatIsNotThere) {
    Game game;
    game.windows.expectModal("Fmsg1", [&](Form &form) {
        Key escape;
        escape.code = Key::escape;
        form.pressKey(escape);
    });
    EXPECT_EQ(failureNumber([&] { DemanderQuitter(game.g, game.question); }),
              failure::noSuchElement);
}

TEST(QuitQuestion, SetsItsTextAnewAtEachAsking) {
    Game game;
    game.windows.expectModal("Fmsg1", [&](Form &form) {
        EXPECT_EQ(shown(game.question.TxtMsg.Caption), "Autre question");
        game.question.TxtMsg.Caption = u"sali";
        form.unload();
    });
    AfficherMessage(game.g, game.question, u"Autre question", 2, 1, u"");
    // One that is loaded already is given its text, too.
    game.question.load();
    game.question.TxtMsg.Caption = u"sali";
    game.windows.expectModal("Fmsg1", [&](Form &) {
        EXPECT_EQ(shown(game.question.TxtMsg.Caption), "Veux-tu vraiment quitter ?");
        EXPECT_TRUE(game.question.CmdMsg[2].userClick());
    });
    DemanderQuitter(game.g, game.question);
}

TEST(QuitQuestion, DefaultAndTitleChangeNothing) {
    struct Asked {
        Events events;
        std::string caption, focus;
        int answer = 0;
    };
    const auto ask = [](int standard, const Texte &title) {
        Game game;
        Asked asked;
        game.g.dossiers.DossierImages = u"/images/";
        game.windows.expectModal("Fmsg1", [&](Form &form) {
            asked.caption = shown(form.Caption);
            asked.focus = form.focus() == nullptr ? "" : form.focus()->path();
            game.press(Key::enter);
        });
        AfficherMessage(game.g, game.question, u"Question ?", 2, standard, title);
        asked.events = game.windows.take();
        asked.answer = game.g.ReponseFenetre;
        return asked;
    };
    const Asked plain = ask(1, u"");
    EXPECT_EQ(plain.answer, 6);
    EXPECT_EQ(plain.caption, "Le Grimoval");
    EXPECT_FALSE(plain.events.empty());
    for (const int standard : {-1, 0, 1, 2, 3, 256, 9}) {
        for (const Texte &title : {Texte(), Texte(u"Titre"), Texte(200, u'T')}) {
            const Asked other = ask(standard, title);
            EXPECT_EQ(other.events, plain.events) << standard;
            EXPECT_EQ(other.caption, plain.caption) << standard;
            EXPECT_EQ(other.focus, plain.focus) << standard;
            EXPECT_EQ(other.answer, plain.answer) << standard;
        }
    }
}

TEST(QuitQuestion, OtherLayoutsHaveNoButtons) {
    for (const int layout : {1, 3}) {
        Game other;
        EXPECT_EQ(
            failureNumber([&] { AfficherMessage(other.g, other.question, u"?", layout, 1, u""); }),
            failure::noSuchElement);
    }
}

TEST(QuitQuestion, AnIndexWithoutAnAnswerLeavesTheAnswerAsItWas) {
    Game game;
    game.g.ReponseFenetre = 42;
    game.question.load();
    game.question.CmdMsg_Click(4);
    EXPECT_EQ(game.g.ReponseFenetre, 42);
    game.question.load();
    game.question.CmdMsg_Click(3);
    EXPECT_EQ(game.g.ReponseFenetre, 2);
}

TEST(Quitting, ARefusalGivesTheTimeBackFromItsStart) {
    Game game;
    game.start({.words = {u"AMI", u"OIE"}, .limited = true, .seconds = 20});
    advance(game, 7);
    answer(game, 2);
    EXPECT_TRUE(game.menu.CmdTjr[3].userClick());
    EXPECT_TRUE(game.menu.isShown());
    EXPECT_EQ(game.menu.FluReflec.Valeur, 0);
    EXPECT_TRUE(game.menu.FluReflec.EnMarche);
    EXPECT_TRUE(game.menu.FluxArme);
    advance(game, 19);
    EXPECT_TRUE(game.menu.FluReflec.EnMarche);
    game.windows.take();
    advance(game, 1);
    EXPECT_EQ(game.prompts().front(), "TropTar.Wav");
}

TEST(Quitting, TheGaugeStandsWhileTheQuestionIsUp) {
    Game game;
    game.start({.words = {u"AMI"}, .limited = true, .seconds = 5});
    game.windows.expectModal("Fmsg1", [&](Form &) {
        EXPECT_FALSE(game.menu.FluReflec.EnMarche);
        EXPECT_FALSE(game.menu.FluxArme);
        EXPECT_TRUE(game.menu.FluxActif);
        advance(game, 60);
        EXPECT_TRUE(game.question.CmdMsg[2].userClick());
    });
    game.menu.requestClose();
    EXPECT_EQ(game.g.scores.MotsTrouves[1], 0);
    EXPECT_EQ(game.menu.ErreursMot[1], 0);
}

TEST(Quitting, InTheMiddleOfAGameScoresItThenTakesItsLeave) {
    Game game;
    game.start({.words = {u"AMI", u"OIE"}});
    game.windows.take();
    answer(game, 1);
    game.windows.expectModal("FScore2",
                             [&](Form &) { EXPECT_TRUE(game.score.CmdScore[0].userClick()); });
    game.menu.requestClose();
    EXPECT_FALSE(game.menu.isLoaded());
    EXPECT_EQ(game.prompts(), (Events{"Quitter.Wav", "Score.Wav", "AlaProch.Wav"}));
    EXPECT_TRUE(game.folder.exists(u"donnees/Calvenor/Le Grimoval/SCORGRIM.TXT"));
}

// The question has gone from the screen before anything else comes.
TEST(Quitting, LetsPendingEventsInBetweenTheAnswerAndTheScore) {
    Game game;
    game.start({.words = {u"AMI", u"OIE"}});
    answer(game, 1);
    game.windows.expectModal("FScore2", [&](Form &form) {
        const Events events = game.windows.take();
        const auto place = [&](const char *event) {
            return std::find(events.begin(), events.end(), event) - events.begin();
        };
        EXPECT_LT(place("fenetre Fmsg1 dechargee"), place("evenements"));
        EXPECT_LT(place("evenements"), place("parole Score.Wav"));
        form.requestClose();
    });
    game.windows.take();
    game.menu.requestClose();
    EXPECT_EQ(game.prompts(), Events{"AlaProch.Wav"});
}

TEST(Quitting, RefusedLetsNoneIn) {
    Game game;
    answer(game, 2);
    game.menu.requestClose();
    EXPECT_EQ(only(game.windows.take(), "evenements"), Events{});
}

TEST(Quitting, BetweenGamesShowsNoScoreAndTheLeaveTakingIsDrawn) {
    Game game;
    game.random.numbers = {0.5f};
    answer(game, 1);
    EXPECT_TRUE(game.menu.CmdTjr[3].userClick());
    EXPECT_EQ(game.prompts(), (Events{"Quitter.Wav", "Salut1.Wav"}));
}

TEST(Quitting, TheButtonDoesNothingWhileAModalWindowIsUp) {
    Game game;
    game.g.FenetreModale = true;
    EXPECT_TRUE(game.menu.CmdTjr[3].userClick());
    EXPECT_TRUE(game.menu.isShown());
    EXPECT_TRUE(game.prompts().empty());
}

} // namespace
} // namespace grimoval::test
