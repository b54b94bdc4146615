// SPDX-License-Identifier: GPL-3.0-or-later
// The theme chooser: how an entry is selected and confirmed, and what a cancel keeps.
#include "support/game.h"

#include <gtest/gtest.h>

namespace grimoval::test::chooser {

struct Chooser : testing::Test {
    Game game;
    FLstTitre &window = game.titles;
    BaseCourante &base = game.g.base;

    Chooser() {
        game.install({{u"ZOO", u"Zoo", {u"LION", u"TIGRE"}, u"ZOO"},
                      {u"ECOLE", u"Écoles", {u"CRAIE"}, u"ECOLE"},
                      {u"EAU", u"eau", {u"PLUIE", u"MER", u"LAC"}}});
        game.write(u"IMAGES/ZOO.JPG", "\xFF\xD8");
        game.write(u"IMAGES/ECOLE.JPG", "\xFF\xD8");
        game.write(u"IMAGES/IMG01.BMP", "BM");
    }
    // The window is open while the person acts.
    void open(const std::function<void()> &person) {
        game.windows.expectModal("FLstTitre", [person](Form &) { person(); });
        ASSERT_TRUE(game.menu.CmdBase.userClick());
    }
    void cancel() { window.CmdTitre[0].userClick(); }
    std::string chosen() const {
        return toUtf8(base.TitreBase + u"|" + base.FichierBase + u"|" + base.ImageBase);
    }
    int words() const { return game.menu.LstMot[0].ListCount(); }
};

TEST_F(Chooser, SelectsTheFirstTitleInFrenchOrderSoThatEnterAtOnceChoosesIt) {
    open([&] {
        EXPECT_EQ(window.LstTitre.ListIndex.get(), 0);
        EXPECT_EQ(window.focus(), &window.LstTitre);
        game.enter();
    });
    EXPECT_EQ(chosen(), "eau|EAU.DBS|");
    EXPECT_EQ(words(), 3);
    EXPECT_TRUE(base.BaseChargee);
    EXPECT_EQ(shown(game.menu.RapTit.Caption), "Sujet : eau");
}

TEST_F(Chooser, TakesTheSelectedEntryAtOk) {
    open([&] {
        window.LstTitre.userSelect(2);
        ASSERT_TRUE(window.CmdTitre[1].userClick());
    });
    EXPECT_EQ(chosen(), "Zoo|ZOO.DBS|ZOO");
    EXPECT_EQ(shownValue(game.menu.LstMot[0].Items.get()), R"("LION" "TIGRE")");
    EXPECT_TRUE(shown(game.menu.VSDessin.PictureFile).ends_with("IMAGES/ZOO.JPG"));
    EXPECT_TRUE(game.menu.VSDessin.Visible);
    EXPECT_FALSE(window.isLoaded());
}

TEST_F(Chooser, TakesADoubleClickAsOkWhateverTheStateOfTheButton) {
    open([&] {
        window.LstTitre.userSelect(1);
        window.CmdTitre[1].Inactif = true;
        ASSERT_TRUE(window.LstTitre.userDoubleClick());
    });
    EXPECT_EQ(chosen(), "Écoles|ECOLE.DBS|ECOLE");
}

TEST_F(Chooser, IsLeftByCancelEscapeAndTheCloseRequestWithNothingChanged) {
    const std::function<void()> ways[] = {[&] { cancel(); }, [&] { game.press(Key::escape); },
                                          [&] { window.requestClose(); }};
    for (const auto &way : ways) {
        open(way);
        EXPECT_FALSE(base.BaseChargee);
        EXPECT_EQ(toUtf8(base.TitreBase + base.FichierBase), "");
        EXPECT_EQ(words(), 0);
        EXPECT_FALSE(game.menu.VSDessin.Visible);
        EXPECT_EQ(shown(game.menu.RapTit.Caption), "");
        EXPECT_FALSE(window.isLoaded());
    }
}

TEST_F(Chooser, SecondChoiceReplacesWordsAndPictureAndACancelKeepsTheFirstWhole) {
    open([&] { window.LstTitre.userSelect(2), window.CmdTitre[1].userClick(); });
    open([&] { window.LstTitre.userSelect(1), cancel(); });
    // Words, subject, file and picture are those of the first choice.
    EXPECT_EQ(shownValue(game.menu.LstMot[0].Items.get()), R"("LION" "TIGRE")");
    EXPECT_EQ(toUtf8(base.FichierBase), "ZOO.DBS");
    EXPECT_EQ(shown(game.menu.RapTit.Caption), "Sujet : Zoo");
    EXPECT_TRUE(shown(game.menu.VSDessin.PictureFile).ends_with("IMAGES/ZOO.JPG"));
    open([&] { window.LstTitre.userSelect(1), window.CmdTitre[1].userClick(); });
    EXPECT_EQ(shownValue(game.menu.LstMot[0].Items.get()), R"("CRAIE")");
    EXPECT_TRUE(shown(game.menu.VSDessin.PictureFile).ends_with("IMAGES/ECOLE.JPG"));
    EXPECT_TRUE(base.BaseChargee);
}

TEST_F(Chooser, WithoutAnyBaseFileIsDisabledAndOnlyLeft) {
    for (const char16_t *file : {u"ZOO.DBS", u"ECOLE.DBS", u"EAU.DBS"}) {
        game.files.remove(game.g.dossiers.DossierBases + file);
    }
    const std::function<void()> ways[] = {[&] { game.press(Key::escape); },
                                          [&] { window.requestClose(); },
                                          [&] { EXPECT_TRUE(window.CmdTitre[0].userClick()); }};
    for (const auto &way : ways) {
        open([&] {
            EXPECT_FALSE(window.LstTitre.Enabled);
            EXPECT_TRUE(window.CmdTitre[1].Inactif);
            game.enter();
            EXPECT_FALSE(window.CmdTitre[1].userClick());
            EXPECT_FALSE(window.LstTitre.userDoubleClick());
            EXPECT_TRUE(window.isShown());
            way();
            EXPECT_FALSE(window.isLoaded());
        });
        EXPECT_FALSE(base.BaseChargee);
        EXPECT_EQ(toUtf8(base.TitreBase + base.FichierBase), "");
    }
}

TEST_F(Chooser, RepaintPutsTheSelectionBackOnTheFirstEntryEachTime) {
    open([&] {
        window.LstTitre.userSelect(2);
        window.setFocus(window.CmdTitre[0]);
        window.expose();
        EXPECT_EQ(window.LstTitre.ListIndex.get(), 0);
        EXPECT_EQ(window.focus(), &window.LstTitre);
        EXPECT_EQ(toUtf8(window.TitreChoisi), "eau");
        EXPECT_EQ(game.screen.MousePointer.get(), 0);
        cancel();
    });
}

TEST_F(Chooser, RefusesTheTwoMarksWithABoxAfterWhichTheFirstEntryIsSelected) {
    for (const char16_t *mark : {u"############", u"============"}) {
        open([&] {
            window.LstTitre.userSelect(2);
            window.FichierChoisi = mark;
            game.windows.take();
            window.CmdTitre[1].userClick();
            EXPECT_EQ(
                only(game.windows.take(), "message"),
                Events{R"(message exclamation "Le Grimoval" "Ce fichier est défectueux ou )"
                       R"(introuvable.\n\nIl est nécessaire de recréer la liste des bases.")"});
            EXPECT_TRUE(window.isShown());
            EXPECT_EQ(window.LstTitre.ListIndex.get(), 0);
            EXPECT_EQ(toUtf8(window.FichierChoisi), "EAU.DBS");
            cancel();
        });
        EXPECT_FALSE(base.BaseChargee);
    }
}

TEST_F(Chooser, GreysOkForAnEntryWithoutAFileAndStays) {
    open([&] {
        window.FichierChoisi = u"   ";
        window.CmdTitre[1].userClick();
        EXPECT_TRUE(window.CmdTitre[1].Inactif);
        EXPECT_TRUE(window.isShown());
        game.enter();
        EXPECT_TRUE(window.isShown());
        cancel();
    });
    EXPECT_FALSE(base.BaseChargee);
}

TEST_F(Chooser, TakesABaseThatVanishedAfterTheCheckAsEmptyInSilence) {
    open([&] {
        game.files.remove(game.g.dossiers.DossierBases + u"EAU.DBS");
        game.windows.take();
        game.enter();
    });
    EXPECT_EQ(only(game.windows.take(), "message"), Events{});
    EXPECT_TRUE(base.BaseChargee);
    EXPECT_EQ(words(), 0);
    EXPECT_EQ(game.bytes(u"MASK/EAU.DBS"), "");
}

TEST_F(Chooser, IsModalForTheGameAndDressesItsButtons) {
    open([&] {
        EXPECT_TRUE(game.g.FenetreModale);
        const std::string images = toUtf8(game.g.dossiers.DossierImages);
        EXPECT_EQ(shown(window.CmdTitre[0].Face), images + "_Annuler_ovale.tga");
        EXPECT_EQ(shown(window.CmdTitre[1].Face), images + "_OK_ovale.tga");
        EXPECT_EQ(shown(window.RapTit.Caption), "Choisis un titre et appuie sur \"OK\"");
        EXPECT_EQ(window.Left.get(), (15360 - window.Width) / 2);
        EXPECT_EQ(window.Top.get(), (11520 - window.Height) / 2);
        cancel();
    });
    EXPECT_FALSE(game.g.FenetreModale);
}

TEST_F(Chooser, KeepsTheHourglassFromTheClickToTheNextPaint) {
    open([&] {
        EXPECT_EQ(game.screen.MousePointer.get(), 0);
        game.windows.take();
        cancel();
    });
    const Events pointers = only(game.windows.take(), "pointeur");
    EXPECT_EQ(pointers, (Events{"pointeur 11", "pointeur 0"})); // the main window's paint
}

TEST_F(Chooser, TakesAnEntryApartByPosition) {
    window.show();
    const Texte title = u" Trente lettres en tout, pas + ";
    window.LstTitre.Items = std::vector<Texte>{title.substr(0, 30) + u"abc" + u"0123456789",
                                               title.substr(0, 30) + u"9876543210"};
    ASSERT_TRUE(window.LstTitre.userSelect(0));
    EXPECT_EQ(toUtf8(window.TitreChoisi), "Trente lettres en tout, pas +");
    EXPECT_EQ(toUtf8(window.FichierChoisi), "abc");
    EXPECT_EQ(toUtf8(base.ImageBase), "0123456789");
    ASSERT_TRUE(window.LstTitre.userSelect(1));
    EXPECT_EQ(toUtf8(window.FichierChoisi), "");
    EXPECT_EQ(toUtf8(base.ImageBase), "9876543210");
}

TEST_F(Chooser, KeepsWhatWasChosenWhereNoEntryOrAShorterOneIsSelected) {
    window.show();
    ASSERT_TRUE(window.LstTitre.userSelect(2));
    const Texte file = window.FichierChoisi, title = window.TitreChoisi, image = base.ImageBase;
    EXPECT_EQ(toUtf8(file), "ZOO.DBS");
    window.LstTitre.Items = std::vector<Texte>{Texte(39, u'x')};
    for (const int item : {0, -1}) {
        window.LstTitre.ListIndex = item;
        EXPECT_EQ(window.FichierChoisi, file) << item;
        EXPECT_EQ(window.TitreChoisi, title) << item;
        EXPECT_EQ(base.ImageBase, image) << item;
    }
}

} // namespace grimoval::test::chooser
