// SPDX-License-Identifier: GPL-3.0-or-later
// The start-up, in exact order.
#include "support/failures.h"
#include "support/game.h"
#include "support/startup.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

namespace grimoval::test::start_up {

// The main window loads unseen.
Events menuLoads(bool maximised, const std::string &place) {
    Events events;
    if (maximised) {
        events.push_back("FMenu.WindowState = 2");
    }
    events.push_back("FMenu.AffMot(0).FontSize = 12");
    events.push_back(R"(FMenu.AffMot(0).Caption = "Pour commencer : appuie sur le bouton vert")");
    for (int letter = 0; letter < 26; ++letter) {
        events.push_back("FMenu.VsAlpha(" + std::to_string(letter) + ").Enabled = Faux");
    }
    events.push_back("pointeur 11");
    if (!place.empty()) {
        events.push_back("FMenu.Top = " + place);
        events.push_back("FMenu.Left = " + place);
    }
    return events;
}

Events faces(const std::string &images) {
    const std::pair<const char *, const char *> rows[] = {
        {"CmdTjr(2)", "_play"},     {"CmdTjr(0)", "_stop"},       {"CmdTjr(1)", "_aide"},
        {"CmdTjr(3)", "_Quitter"},  {"CmdCfg(0)", "_outil"},      {"CmdCfg(1)", "_sound"},
        {"CmdBase", "_choix"},      {"lblAbout", "_Apropos"},     {"CmdJeux(0)", "_AutreMot"},
        {"CmdJeux(1)", "_Reponse"}, {"CmdJeux(2)", "_Abandonner"}};
    Events events;
    for (const auto &[button, file] : rows) {
        events.push_back("FMenu." + std::string(button) + ".Face = \"" + images + file + ".tga\"");
    }
    return events;
}

struct Row {
    int width, height;
    bool large;
    const char *place; // of the main window; left and top are the same
};

Events expected(Startup &start, const Row &row, bool sound) {
    Events events = {"fenetre frmSplash affichee", "fenetre frmSplash dechargee"};
    const auto add = [&events](const Events &more) {
        events.insert(events.end(), more.begin(), more.end());
    };
    add(menuLoads(!row.large, row.place));
    add(faces(start.folder.bytePath(u"grimoval/IMAGES/")));
    if (row.large) {
        add({"Fplein.BackColor = #000040", "Fplein.WindowState = 2", "fenetre Fplein affichee",
             "evenements"});
    }
    if (sound) {
        add({"musique CLVMID1.mid", "parole CALVENO.Wav"});
    }
    if (row.large) {
        add({R"(FMenu.Caption = "Le Grimoval ")"});
    }
    add({"fenetre FMenu affichee", R"(FMenu.FluReflec.TexteFlux = "0")",
         "FMenu.FluxScore.Visible = Vrai", "FMenu.CmdJeux(1).Visible = Vrai", "pointeur 0",
         "fenetre FMenu cachee"});
    return events;
}

// Without the text of the splash, which is a string of the team's choosing.
Events told(Startup &start) {
    Events events = start.windows.take();
    std::erase_if(events, [](const std::string &event) {
        return event.starts_with("frmSplash.lblCopyright");
    });
    return events;
}

class StartUp : public testing::TestWithParam<Row> {};

TEST_P(StartUp, GoesInExactOrder) {
    Startup start;
    start.windows.width = GetParam().width;
    start.windows.height = GetParam().height;
    EXPECT_EQ(start.run(), 0);
    EXPECT_EQ(told(start), expected(start, GetParam(), true));
    EXPECT_EQ(start.all.plein.isLoaded(), GetParam().large);
    EXPECT_EQ(start.all.menu.WindowState.get(), GetParam().large ? 0 : 2);
}

TEST_P(StartUp, WithTheSoundOffIsTheSameInSilence) {
    Startup start;
    start.windows.width = GetParam().width;
    start.windows.height = GetParam().height;
    start.folder.write(Startup::settings, "[Le Grimoval]\r\nMusic=0\r\nParole=0\r\n");
    EXPECT_EQ(start.run(), 0);
    EXPECT_EQ(told(start), expected(start, GetParam(), false));
}

// 12000 twips are 800 pixels; the test is strict.
INSTANTIATE_TEST_SUITE_P(Screens, StartUp,
                         testing::Values(Row{15360, 12060, true, "1680"},
                                         Row{12001, 8701, true, ""}, Row{12000, 8700, false, ""},
                                         Row{9600, 6300, false, "-1200"}),
                         [](const auto &param) { return std::to_string(param.param.width); });

TEST(SecondInstance, EndsAtOnceSilentlyEvenBeforeTheSplash) {
    Startup start;
    start.application.secondInstance = true;
    const auto before = start.folder.list();
    EXPECT_EQ(start.run(), 0);
    EXPECT_EQ(start.windows.take(), Events{});
    EXPECT_EQ(start.folder.list(), before);
}

TEST(Splash, WaitsAsLongAsItMustAndNothingElseHasBeenDone) {
    Startup start;
    const auto before = start.folder.list();
    bool looked = false;
    start.atSplash = [&] {
        advance(start, 3600);
        EXPECT_TRUE(start.all.splash.isShown());
        EXPECT_EQ(start.folder.list(), before);
        EXPECT_FALSE(start.all.menu.isLoaded());
        EXPECT_EQ(start.g.dossiers.DossierAppli, Texte());
        EXPECT_EQ(only(start.windows.events, "musique").size(), 0u);
        looked = true;
    };
    EXPECT_EQ(start.run(), 0);
    EXPECT_TRUE(looked);
}

TEST(Splash, IsLeftByAClickOnAnyOfItsPartsAndByAnyKey) {
    const std::function<void(Startup &)> ways[] = {
        [](Startup &s) { EXPECT_TRUE(s.all.splash.Frame1.userClick()); },
        [](Startup &s) { EXPECT_TRUE(s.all.splash.imgLogo.userClick()); },
        [](Startup &s) { EXPECT_TRUE(s.all.splash.M.userClick()); },
        [](Startup &s) { EXPECT_TRUE(s.all.splash.lblCopyright.userClick()); },
        [](Startup &s) { s.all.splash.pressKey(Key::typed(u'a')); },
        [](Startup &s) { s.all.splash.pressKey(Key::typed(u' ')); },
        [](Startup &s) {
            Key key;
            key.code = Key::escape;
            s.all.splash.pressKey(key);
        }};
    for (const auto &way : ways) {
        Startup start;
        start.atSplash = [&] {
            way(start);
            EXPECT_FALSE(start.all.splash.isLoaded());
        };
        bool menu = false;
        start.atMenu = [&] { menu = true; };
        EXPECT_EQ(start.run(), 0);
        EXPECT_TRUE(menu);
    }
}

TEST(WorkFiles, LeftByACrashAreGoneWhateverTheyHold) {
    Startup start;
    const Texte user = u"donnees/Calvenor/Le Grimoval/";
    start.folder.write(user + u"~GRIMV.TMP", std::string(1000, 'x'));
    start.folder.write(user + u"~GRIMOVA.TMP", "y");
    EXPECT_EQ(start.run(), 0);
    EXPECT_FALSE(start.folder.exists(user + u"~GRIMV.TMP"));
    EXPECT_FALSE(start.folder.exists(user + u"~GRIMOVA.TMP"));
}

TEST(WorkFiles, UnderNamesOfTheirOwnAreGoneOnceTheyAreAnHourOld) {
    Startup start;
    const Texte user = u"donnees/Calvenor/Le Grimoval/";
    const auto leave = [&](const Texte &name, std::chrono::minutes age) {
        start.folder.write(user + name, "x");
        std::filesystem::last_write_time(start.folder.bytePath(user + name),
                                         std::filesystem::file_time_type::clock::now() - age);
    };
    for (const char16_t *name : {u"~GRIMV.TMP~abcdefghi1", u"GRIMOVA.INI~abcdefghi2",
                                 u"SCORGRIM.TXT~abcdefghi3", u"GRIMOVA.INI~"}) {
        leave(name, std::chrono::minutes(70));
    }
    leave(u"~GRIMV.TMP~abcdefghi4", std::chrono::minutes(50)); // perhaps another game's
    EXPECT_EQ(start.run(), 0);
    EXPECT_FALSE(start.folder.exists(user + u"~GRIMV.TMP~abcdefghi1"));
    EXPECT_FALSE(start.folder.exists(user + u"GRIMOVA.INI~abcdefghi2"));
    EXPECT_TRUE(start.folder.exists(user + u"SCORGRIM.TXT~abcdefghi3")); // it may hold scores
    EXPECT_TRUE(start.folder.exists(user + u"GRIMOVA.INI~")); // the backup of a person's editor
    EXPECT_TRUE(start.folder.exists(user + u"~GRIMV.TMP~abcdefghi4"));
}

// Another game on this account does the same at the same time.
TEST(WorkFiles, ThatANeighbourRemovesMeanwhileAreGone) {
    for (const char16_t *name : {u"~GRIMV.TMP", u"~GRIMOVA.TMP"}) {
        Startup start;
        const std::string file =
            start.folder.bytePath(Texte(u"donnees/Calvenor/Le Grimoval/") + name);
        bool removed = false;
        start.files.writeTime = [&] { // asked for each file that is made
            removed = ::unlink(file.c_str()) == 0 || removed;
            return start.clock.now();
        };
        EXPECT_EQ(start.run(), 0);
        EXPECT_TRUE(removed);
        EXPECT_FALSE(std::filesystem::exists(file));
    }
}

TEST(CatalogueAtStartUp, OfLengthZeroIsGoneAfterTheStartUpWithoutAMessage) {
    Startup start;
    start.folder.write(u"grimoval/MASK/GRIMV.LST", "");
    EXPECT_EQ(start.run(), 0);
    EXPECT_FALSE(start.folder.exists(u"grimoval/MASK/GRIMV.LST"));
    EXPECT_TRUE(start.windows.messages.empty());
}

TEST(CatalogueAtStartUp, OfLengthZeroEndsTheProgramWhereItMustBeThere) {
    Startup start;
    start.folder.write(u"grimoval/MASK/GRIMV.LST", "");
    start.g.ListeObligatoire = true;
    start.windows.expectModal("frmSplash", [](Form &form) { form.unload(); });
    EXPECT_THROW(Main(start.g, start.all), ProgramEnd);
    ASSERT_EQ(start.windows.messages.size(), 1u);
    EXPECT_EQ(toUtf8(start.windows.messages[0].text), "Le fichier GRIMV.LST est déffectueux.");
    EXPECT_EQ(start.windows.messages[0].icon, MessageIcon::critical);
    EXPECT_TRUE(start.folder.exists(u"grimoval/MASK/GRIMV.LST"));
}

TEST(CatalogueAtStartUp, OfAnyOtherLengthStays) {
    Startup start;
    EXPECT_EQ(start.run(), 0);
    EXPECT_EQ(start.folder.read(u"grimoval/MASK/GRIMV.LST"), "x");
}

TEST(CatalogueAtStartUp, ThatIsMissingEndsInFailure53) {
    Startup start;
    start.files.remove(start.folder.path(u"grimoval/MASK/GRIMV.LST"));
    start.windows.expectModal("frmSplash", [&](Form &form) { form.unload(); });
    EXPECT_EQ(failureNumber([&] { Main(start.g, start.all); }), failure::fileNotFound);
    EXPECT_TRUE(start.windows.messages.empty());
}

TEST(StartUpState, IsSetForTheGame) {
    Startup start;
    start.g.base.BaseChargee = true;
    start.g.joueurs.NomJoueur.fill(Texte(u"RESTE"));
    bool looked = false;
    start.atMenu = [&] {
        const Globales &g = start.g;
        EXPECT_EQ(toUtf8(g.TitreAppli), "Le Grimoval ");
        EXPECT_EQ(toUtf8(g.SautLigne), "\n");
        EXPECT_TRUE(g.BoutonSite);
        EXPECT_FALSE(g.FenetreModale);
        EXPECT_FALSE(g.base.BaseChargee);
        EXPECT_EQ(g.dossiers.DossierAppli, start.folder.path(u"grimoval/"));
        EXPECT_EQ(g.dossiers.DossierTemp, g.dossiers.DossierUtilisateur);
        for (std::size_t i = 1; i <= 4; ++i) {
            EXPECT_EQ(g.joueurs.NomJoueur[i].text(), Texte(15, u' '));
        }
        EXPECT_EQ(toUtf8(trim(g.joueurs.NomJoueur[0].text())), "RESTE"); // left alone
        looked = true;
    };
    EXPECT_EQ(start.run(), 0);
    EXPECT_TRUE(looked);
}

TEST(StartUpState, BeforeAnythingIsEmpty) {
    World world;
    const Globales g(world.services);
    EXPECT_EQ(g.reglages.NombreJoueur, 1);
    EXPECT_EQ(g.reglages.RéflexionLimite, 1);
    EXPECT_EQ(g.reglages.TempsRéflexion, 20);
    EXPECT_EQ(g.reglages.NombreErreur, 6);
    EXPECT_EQ(g.son.ConfDep, -1);
    for (const int time : {g.scores.HeureDebut, g.scores.HeureCourante, g.scores.TempsEcoule}) {
        EXPECT_EQ(time, 0);
    }
    for (const bool flag :
         {g.base.BaseChargee, g.FenetreModale, g.BoutonSite, g.ListeObligatoire}) {
        EXPECT_FALSE(flag);
    }
}

TEST(StartUpState, OfTheFirstStartWritesNineKeysByteForByte) {
    Startup start;
    EXPECT_EQ(start.run(), 0);
    EXPECT_EQ(start.settingsFile(), "[ConfigPC]\r\nConfDep=-1\r\nWavPr\xE9sent=1\r\n"
                                    "MidiPr\xE9sent=1\r\n[Le Grimoval]\r\nMusic=1\r\nParole=1\r\n"
                                    "NombreJoueur=1\r\nR\xE9"
                                    "flexionLimite=1\r\nTempsR\xE9"
                                    "flexion=20\r\nNombreErreur=6\r\n");
    EXPECT_EQ(
        start.folder.list(),
        (std::vector<std::string>{"donnees/", "donnees/Calvenor/", "donnees/Calvenor/Le Grimoval/",
                                  "donnees/Calvenor/Le Grimoval/GRIMOVA.INI", "grimoval/",
                                  "grimoval/MASK/", "grimoval/MASK/GRIMV.LST"}));
}

TEST(StartUpState, OfASettingBeyond16BitsEndsInAnOverflow) {
    Startup start;
    start.folder.write(Startup::settings, "[Le Grimoval]\r\nTempsR\xE9"
                                          "flexion=40000\r\n");
    start.windows.expectModal("frmSplash", [](Form &form) { form.unload(); });
    EXPECT_EQ(failureNumber([&] { Main(start.g, start.all); }), failure::overflow);
}

TEST(StartUpState, NeedsAFolderThatCanBeWritten) {
    Startup start;
    // A folder in the place of the work file cannot be opened as one.
    start.folder.makeFolder(u"donnees/Calvenor/Le Grimoval/~GRIMOVA.TMP");
    start.windows.expectModal("frmSplash", [](Form &form) { form.unload(); });
    EXPECT_EQ(failureNumber([&] { Main(start.g, start.all); }), failure::pathAccess);
}

} // namespace grimoval::test::start_up
