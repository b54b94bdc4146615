// SPDX-License-Identifier: GPL-3.0-or-later
// The sound options, the window about the program, the help.
#include "shell/GLBPAROL.h"
#include "support/game.h"

#include <array>
#include <gtest/gtest.h>

namespace grimoval::test {
namespace {

const Texte settings = u"donnees/Calvenor/Le Grimoval/GRIMOVA.INI";

struct Options : Game {
    void open(std::function<void()> step) {
        windows.take();
        windows.expectModal("FOption", [step = std::move(step)](Form &) { step(); });
        ASSERT_TRUE(menu.CmdCfg[1].userClick());
    }
    std::string file() { return folder.exists(settings) ? folder.read(settings) : ""; }
};

TEST(SoundOptions, OkWithoutAChangeLeavesTheTuneAloneAndWritesTheVoice) {
    Options game;
    game.open([&] {
        EXPECT_EQ(game.all.option.ConfTSons[0].Value, 1);
        EXPECT_EQ(game.all.option.ConfTSons[1].Value, 1);
        EXPECT_TRUE(game.all.option.Cmd[0].userClick());
    });
    EXPECT_EQ(game.file(), "[Le Grimoval]\r\nParole=1\r\n");
    EXPECT_TRUE(only(game.windows.take(), "musique").empty());
}

TEST(SoundOptions, MusicIsSwitchedAtOnceAndInTheFile) {
    Options game;
    game.open([&] {
        EXPECT_TRUE(game.all.option.ConfTSons[0].userClick());
        EXPECT_TRUE(game.all.option.Cmd[0].userClick());
    });
    EXPECT_EQ(game.g.son.MusiqueActive, 0);
    EXPECT_EQ(game.file(), "[Le Grimoval]\r\nMusic=0\r\nParole=1\r\n");
    EXPECT_EQ(only(game.windows.take(), "musique"), Events{"musique arret"});
    game.open([&] {
        EXPECT_TRUE(game.all.option.ConfTSons[0].userClick());
        EXPECT_TRUE(game.all.option.Cmd[0].userClick());
    });
    EXPECT_EQ(game.file(), "[Le Grimoval]\r\nMusic=1\r\nParole=1\r\n");
    EXPECT_EQ(only(game.windows.take(), "musique"), Events{"musique CLVMID1.mid"});
    EXPECT_TRUE(game.sound.looping);
}

TEST(SoundOptions, EscapeConfirmsAndTheSecondButtonAbandons) {
    Options game;
    game.open([&] {
        EXPECT_TRUE(game.all.option.ConfTSons[1].userClick());
        EXPECT_TRUE(game.all.option.Cmd[1].userClick());
    });
    EXPECT_EQ(game.g.son.ParoleActive, 1);
    EXPECT_EQ(game.file(), "");
    game.open([&] {
        EXPECT_TRUE(game.all.option.ConfTSons[1].userClick());
        game.press(Key::escape);
    });
    EXPECT_EQ(game.g.son.ParoleActive, 0);
    EXPECT_EQ(game.file(), "[Le Grimoval]\r\nParole=0\r\n");
}

TEST(SoundOptions, ACloseRequestIsTheCancel) {
    Options game;
    game.open([&] {
        EXPECT_TRUE(game.all.option.ConfTSons[0].userClick());
        game.all.option.requestClose();
    });
    EXPECT_EQ(game.g.son.MusiqueActive, 1);
    EXPECT_EQ(game.file(), "");
}

TEST(SoundOptions, WithoutMidiTheBoxIsEmptyAndOkSwitchesMusicOff) {
    Options game;
    game.g.son.MidiPresent = 0;
    game.open([&] {
        EXPECT_EQ(game.all.option.ConfTSons[0].Value, 0);
        EXPECT_FALSE(game.all.option.ConfTSons[0].userClick());
        EXPECT_TRUE(game.all.option.Cmd[0].userClick());
    });
    EXPECT_EQ(game.g.son.MusiqueActive, 0);
    EXPECT_EQ(game.file(), "[Le Grimoval]\r\nMusic=0\r\nParole=1\r\n");
}

TEST(SoundOptions, WithoutMidiEscapeSwitchesMusicOffInTheFileToo) {
    Options game;
    game.g.son.MidiPresent = 0;
    game.open([&] { game.press(Key::escape); });
    EXPECT_EQ(game.g.son.MusiqueActive, 0);
    EXPECT_EQ(game.file(), "[Le Grimoval]\r\nMusic=0\r\nParole=1\r\n");
    EXPECT_EQ(only(game.windows.take(), "musique"), Events{"musique arret"});
}

TEST(SoundOptions, TheWordFlipsADisabledBoxAndNothingSounds) {
    Options game;
    game.g.son.WavPresent = 0;
    game.g.son.ParoleActive = 0;
    game.open([&] {
        EXPECT_FALSE(game.all.option.ConfTSons[1].Enabled);
        EXPECT_TRUE(game.all.option.Etiquette[1].userClick());
        EXPECT_EQ(game.all.option.ConfTSons[1].Value, 1);
        EXPECT_TRUE(game.all.option.Cmd[0].userClick());
    });
    EXPECT_EQ(game.g.son.ParoleActive, 1);
    EXPECT_EQ(game.file(), "[Le Grimoval]\r\nParole=1\r\n");
    JouerErreur(game.g);
    JouerParole(game.g, parole::bienvenue);
    EXPECT_TRUE(game.prompts().empty());
    // And flips it back.
    game.open([&] {
        EXPECT_EQ(game.all.option.ConfTSons[1].Value, 0); // a box without a device opens empty
        EXPECT_TRUE(game.all.option.Etiquette[1].userClick());
        EXPECT_TRUE(game.all.option.Etiquette[1].userClick());
        EXPECT_EQ(game.all.option.ConfTSons[1].Value, 0);
        EXPECT_TRUE(game.all.option.Cmd[0].userClick());
    });
    EXPECT_EQ(game.g.son.ParoleActive, 0);
    EXPECT_EQ(game.file(), "[Le Grimoval]\r\nParole=0\r\n");
}

TEST(SoundOptions, WorkingValuesAreFilledAtEachActivationAndGoWithTheWindow) {
    Options game;
    game.open([&] {
        EXPECT_EQ(game.all.option.ChoixMusique, 1);
        EXPECT_TRUE(game.all.option.Cmd[1].userClick());
    });
    EXPECT_EQ(game.all.option.ChoixMusique, 0);
    EXPECT_EQ(game.all.option.ChoixParole, 0);
}

TEST(SoundOptions, WithoutDevicesStartFromNothingAndLeaveTheSharedTextEmpty) {
    Game game;
    game.g.son = {1, 1, 0, 0, -1};
    FOption &option = game.all.option;
    option.ChoixMusique = option.ChoixParole = 1;
    option.show();
    EXPECT_EQ(option.ChoixMusique, 0);
    EXPECT_EQ(option.ChoixParole, 0);
    EXPECT_FALSE(option.ConfTSons[0].Enabled);
    EXPECT_FALSE(option.ConfTSons[1].Enabled);
    option.ChoixMusique = option.ChoixParole = 1;
    game.g.TexteMessage = u"ancien";
    option.unload();
    EXPECT_EQ(toUtf8(game.g.TexteMessage), "");
    EXPECT_EQ(option.ChoixMusique, 0);
    EXPECT_EQ(option.ChoixParole, 0);
}

TEST(SoundOptions, ActivatedAnewGoBackToTheSwitches) {
    Game game;
    FOption &option = game.all.option;
    option.show();
    EXPECT_TRUE(option.ConfTSons[0].userClick());
    EXPECT_TRUE(option.Etiquette[1].userClick());
    EXPECT_EQ(option.ChoixMusique, 0);
    EXPECT_EQ(option.ChoixParole, 0);
    option.hide();
    option.show();
    EXPECT_EQ(option.ChoixMusique, 1);
    EXPECT_EQ(option.ChoixParole, 1);
    EXPECT_EQ(option.ConfTSons[0].Value, 1);
    EXPECT_EQ(option.ConfTSons[1].Value, 1);
}

using Rectangle = std::array<int, 4>; // left, top, width, height in twips

Rectangle placeOf(const Control &control) {
    const Place &place = control.place;
    return {place.left, place.top, place.width, place.height};
}

TEST(SoundOptions, StandAtTheirPlaces) {
    Game game;
    FOption &option = game.all.option;
    EXPECT_EQ(option.Width, 4395);
    EXPECT_EQ(option.Height, 2880);
    EXPECT_FALSE(option.titleBar);
    const std::pair<Control *, Rectangle> rows[] = {
        {&option.EtiquetteTitre, {600, 480, 3465, 315}},
        {&option.Etiquette[0], {1440, 840, 1935, 315}},
        {&option.Etiquette[1], {1440, 1320, 1935, 315}},
        {&option.ConfTSons[0], {1250, 900, 200, 240}},
        {&option.ConfTSons[1], {1250, 1350, 200, 240}},
        {&option.Cmd[0], {240, 1920, 1500, 750}},
        {&option.Cmd[1], {2640, 1920, 1500, 750}},
    };
    EXPECT_EQ(option.controls().size(), std::size(rows));
    for (const auto &[control, place] : rows) {
        EXPECT_EQ(placeOf(*control), place) << control->path();
    }
    EXPECT_EQ(shown(option.EtiquetteTitre.Caption), "Activer / Désactiver");
    EXPECT_EQ(shown(option.Etiquette[0].Caption), "Musique");
    EXPECT_EQ(shown(option.Etiquette[1].Caption), "Parole");
}

TEST(About, StandsAtItsPlaces) {
    Game game;
    FAbout &about = game.all.about;
    EXPECT_EQ(about.Width, 5715);
    EXPECT_EQ(about.Height, 5370);
    EXPECT_TRUE(about.titleBar);
    const std::pair<Control *, Rectangle> rows[] = {
        {&about.VsAbout[2], {360, 1680, 5055, 375}},
        {&about.CmdABout[0], {480, 3840, 1200, 1200}},
        {&about.CmdABout[1], {4080, 3840, 1200, 1200}},
        {&about.Command2, {1800, 4560, 2160, 480}},
    };
    for (const auto &[control, place] : rows) {
        EXPECT_EQ(placeOf(*control), place) << control->path();
    }
    // These take the room that their text needs, from their corner on: to the right margin, and to
    // what stands below.
    const struct {
        const Label &text;
        int left, top, below;
    } growing[] = {{about.Txt[0], 360, 360, 1680},
                   {about.Txt[1], 360, 2160, 2520},
                   {about.Txt[2], 480, 2520, 3840}};
    for (const auto &row : growing) {
        EXPECT_EQ(row.text.place.left, row.left) << row.text.path();
        EXPECT_EQ(row.text.place.top, row.top) << row.text.path();
        EXPECT_EQ(row.text.place.left + row.text.place.width, 5715 - 360) << row.text.path();
        EXPECT_LE(row.top + row.text.place.height, row.below) << row.text.path();
    }
    EXPECT_EQ(about.Txt[0].alignment, Alignment::centre);
}

TEST(About, LeavesTheSharedTextEmptyWhateverItHeld) {
    Game game;
    game.g.TexteMessage = u"ancien";
    game.all.about.load();
    EXPECT_EQ(toUtf8(game.g.TexteMessage), "");
    EXPECT_EQ(
        shown(game.all.about.Txt[2].Caption),
        "Atelier Calvenor, jeux éducatifs\nFRANCE\n\nsupport technique : support@calvenor.example\n"
        "site internet : https://www.calvenor.example/");
    EXPECT_EQ(shown(game.all.about.VsAbout[2].Caption), "Un jeu de l'atelier Calvenor");
}

TEST(About, TakesTheFacesOfItsButtons) {
    Game game;
    game.all.about.show();
    const std::string images = toUtf8(game.g.dossiers.DossierImages);
    EXPECT_EQ(shown(game.all.about.CmdABout[0].Face), images + "_OK.tga");
    EXPECT_EQ(shown(game.all.about.CmdABout[1].Face), images + "_Apropos2.tga");
}

TEST(About, ShowsTheMakersLinesAndEachPaintGivesTheFocusToTheSite) {
    Game game;
    game.g.BoutonSite = true;
    game.windows.expectModal("FAbout", [&](Form &form) {
        FAbout &about = game.all.about;
        EXPECT_EQ(shown(about.Caption), "A propos de l'application : Le Grimoval ");
        EXPECT_EQ(shown(about.Txt[0].Caption), "Le Grimoval ");
        EXPECT_EQ(shown(about.Txt[1].Caption), "Pour tous renseignements et remarques :");
        EXPECT_NE(shown(about.Txt[2].Caption).find("\nFRANCE\n\nsupport technique : "),
                  std::string::npos);
        EXPECT_TRUE(game.g.TexteMessage.empty());
        EXPECT_EQ(form.focus(), &about.CmdABout[1]);
        form.setFocus(about.CmdABout[0]);
        form.expose();
        EXPECT_EQ(form.focus(), &about.CmdABout[1]);
        game.press(Key::escape);
    });
    EXPECT_TRUE(game.menu.lblAbout.userClick());
    EXPECT_FALSE(game.all.about.isLoaded());
}

TEST(About, TheSiteOpensAtEachClickAndTheWindowStays) {
    Game game;
    game.g.BoutonSite = true;
    game.windows.expectModal("FAbout", [&](Form &form) {
        game.windows.take();
        EXPECT_TRUE(game.all.about.CmdABout[1].userClick());
        EXPECT_TRUE(game.all.about.CmdABout[1].userClick());
        EXPECT_EQ(only(game.windows.take(), "web "), (Events{"web https://www.calvenor.example/",
                                                             "web https://www.calvenor.example/"}));
        EXPECT_TRUE(form.isShown());
        EXPECT_TRUE(game.all.about.CmdABout[0].userClick());
    });
    game.menu.lblAbout.userClick();
}

TEST(About, TheMailCarriesTitleAndVersionAndIsNotEncoded) {
    Game game;
    game.windows.expectModal("FAbout", [&](Form &) {
        game.windows.take();
        EXPECT_TRUE(game.all.about.Command2.userClick());
        EXPECT_EQ(
            only(game.windows.take(), "courriel "),
            Events{"courriel \"mailto:support@calvenor.example?Subject=Le Grimoval 1.0.9"
                   "?&body=Veuillez saisir votre message et merci de ne pas modifier le titre "
                   "(sujet/subject)\""});
        game.press(Key::escape);
    });
    game.menu.lblAbout.userClick();
}

TEST(About, WithoutTheSiteItsButtonIsHidden) {
    Game game;
    game.g.BoutonSite = false;
    game.windows.expectModal("FAbout", [&](Form &) {
        EXPECT_FALSE(game.all.about.CmdABout[1].isVisible());
        EXPECT_EQ(game.all.about.CmdABout[0].place.left, (5715 - 1200) / 2);
        game.press(Key::escape);
    });
    game.menu.lblAbout.userClick();
}

TEST(Help, OpensAtItsIndexAndTheGameGoesOn) {
    Game game;
    game.start({.limited = true});
    game.windows.take();
    EXPECT_TRUE(game.menu.CmdTjr[1].userClick());
    EXPECT_EQ(
        only(game.windows.take(), "aide "),
        Events{"aide " + shownValue(game.g.dossiers.DossierAppli + u"Le Grimoval.HLP") + " Index"});
    EXPECT_TRUE(game.menu.FluReflec.EnMarche);
}

} // namespace
} // namespace grimoval::test
