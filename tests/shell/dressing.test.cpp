// SPDX-License-Identifier: GPL-3.0-or-later
// What all windows have in common: their place, their opening, their pointer, their faces.
#include "support/game.h"

#include <fstream>
#include <gtest/gtest.h>

namespace grimoval::test::dressing {

struct Bare : Form {
    Bare(Screen &screen, int width, int height) : Form(screen, "FEssai") {
        Width = width;
        Height = height;
    }
};

struct PlaceRow {
    const char16_t *position;
    int screenWidth, screenHeight, width, height;
    int left, top;
};

TEST(Placing, CentresByAnyTextButBWhichStands500AboveTheGround) {
    const PlaceRow rows[] = {
        {u"C", 15360, 11520, 6000, 4000, 4680, 3760}, {u"", 15360, 11520, 6000, 4000, 4680, 3760},
        {u"c", 15360, 11520, 6000, 4000, 4680, 3760}, {u"BB", 15360, 11520, 6000, 4000, 4680, 3760},
        {u"B", 15360, 11520, 6000, 4000, 4680, 7020}, {u"b", 15360, 11520, 6000, 4000, 4680, 7020},
        {u"C", 9600, 7200, 12000, 8700, -1200, -750}, {u"B", 9600, 7200, 12000, 8700, -1200, -2000},
        {u"C", 12000, 9000, 12000, 9000, 0, 0},
    };
    for (const PlaceRow &row : rows) {
        World world;
        world.windows.width = row.screenWidth;
        world.windows.height = row.screenHeight;
        Bare form(world.screen, row.width, row.height);
        PlacerFenetre(form, row.position);
        EXPECT_EQ(form.Left.get(), row.left) << toUtf8(row.position);
        EXPECT_EQ(form.Top.get(), row.top) << toUtf8(row.position);
        EXPECT_EQ(world.screen.MousePointer.get(), 11);
    }
}

TEST(ModalOpening, SetsTheFlagUnloadsTheWindowAndClearsTheFlagWhateverTheWindowDoes) {
    World world;
    Globales g(world.services);
    for (const bool itself : {false, true}) {
        Bare form(world.screen, 10, 10);
        world.windows.expectModal("FEssai", [&](Form &window) {
            EXPECT_TRUE(g.FenetreModale);
            g.FenetreModale = !itself;
            window.hide(); // only hidden: the opener unloads it
        });
        AfficherModal(g, form);
        EXPECT_FALSE(g.FenetreModale);
        EXPECT_FALSE(form.isLoaded());
    }
}

// Windows of the game with the pointer rules, and a button of each.
struct Dressed {
    Form &form;
    PictureButton &button;
};

std::vector<Dressed> dressed(Game &game) {
    return {{game.menu, game.menu.CmdBase},
            {game.titles, game.titles.CmdTitre[0]},
            {game.choice, game.choice.Cmd[0]},
            {game.names, game.names.Cmd[1]},
            {game.all.option, game.all.option.Cmd[1]},
            {game.all.about, game.all.about.CmdABout[0]},
            {game.score, game.score.CmdScore[0]},
            {game.question, game.question.CmdMsg[2]}};
}

TEST(Pointer, IsAnUpArrowOverAButtonAndAnArrowOverTheBackground) {
    Game game;
    for (const Dressed &d : dressed(game)) {
        EXPECT_EQ(d.form.MousePointer.get(), 0) << d.form.path();
        d.button.userHover();
        EXPECT_EQ(d.form.MousePointer.get(), 10) << d.form.path();
        d.form.userHover();
        EXPECT_EQ(d.form.MousePointer.get(), 0) << d.form.path();
        d.form.MousePointer = 7;
        d.form.userHover();
        EXPECT_EQ(d.form.MousePointer.get(), 0) << d.form.path();
    }
}

TEST(Pointer, OfTheScreenIsTheHourglassUntilTheWindowIsPainted) {
    Game game;
    game.install({{u"ESSAI", u"Essai", {u"MOT"}}});
    for (const Dressed &d : dressed(game)) {
        game.screen.MousePointer = 11;
        d.form.expose();
        EXPECT_EQ(game.screen.MousePointer.get(), 0) << d.form.path();
    }
    // Those that are placed by the program set the hourglass as they load.
    for (Form *form : {static_cast<Form *>(&game.titles), static_cast<Form *>(&game.choice),
                       static_cast<Form *>(&game.names), static_cast<Form *>(&game.all.option),
                       static_cast<Form *>(&game.all.about), static_cast<Form *>(&game.score)}) {
        game.screen.MousePointer = 0;
        form->load();
        EXPECT_EQ(game.screen.MousePointer.get(), 11) << form->path();
        EXPECT_EQ(form->Left.get(), (15360 - form->Width) / 2) << form->path();
        EXPECT_EQ(form->Top.get(), (11520 - form->Height) / 2) << form->path();
        form->show();
        EXPECT_EQ(game.screen.MousePointer.get(), 0) << form->path();
        form->unload();
    }
}

TEST(Faces, AreSetByTheWindowsThemselvesFromTheFolderOfImages) {
    Game game;
    game.install({{u"ESSAI", u"Essai", {u"MOT"}}});
    const std::string images = toUtf8(game.g.dossiers.DossierImages);
    const std::tuple<Form *, PictureButton *, const char *> rows[] = {
        {&game.titles, &game.titles.CmdTitre[1], "_OK_ovale.tga"},
        {&game.titles, &game.titles.CmdTitre[0], "_Annuler_ovale.tga"},
        {&game.names, &game.names.Cmd[0], "_OK_ovale.tga"},
        {&game.names, &game.names.Cmd[1], "_Annuler_ovale.tga"},
        {&game.choice, &game.choice.Cmd[1], "_OK_ovale.tga"},
        {&game.choice, &game.choice.Cmd[0], "_Annuler_ovale.tga"},
        {&game.all.option, &game.all.option.Cmd[0], "_OK_ovale.tga"},
        {&game.all.option, &game.all.option.Cmd[1], "_Annuler_ovale.tga"},
        {&game.score, &game.score.CmdScore[0], "_Quitter.tga"},
        {&game.score, &game.score.CmdScore[1], "_IMPRIMER.tga"}};
    for (const auto &[form, button, file] : rows) {
        form->load();
        EXPECT_EQ(shown(button->Face), images + file) << button->path();
    }
}

// A name is what a screen reader says of a control that shows no text.
TEST(SpokenNames, OfButtonsAreTheWordsOnTheirFaces) {
    Game game;
    FAbout &about = game.all.about;
    FOption &option = game.all.option;
    const std::pair<PictureButton *, const char *> rows[] = {
        {&game.titles.CmdTitre[1], "OK"},
        {&game.titles.CmdTitre[0], "Annuler"},
        {&game.choice.Cmd[1], "OK"},
        {&game.choice.Cmd[0], "Annuler"},
        {&game.names.Cmd[0], "OK"},
        {&game.names.Cmd[1], "Annuler"},
        {&option.Cmd[0], "OK"},
        {&option.Cmd[1], "Annuler"},
        {&game.question.CmdMsg[1], "OK"},
        {&game.question.CmdMsg[2], "Annuler"},
        {&about.CmdABout[0], "OK"},
        {&about.CmdABout[1], "Site internet"},
        {&about.Command2, "ECRIRE AU SUPPORT TECHNIQUE"},
        {&game.score.CmdScore[1], "Imprimer"},
        {&game.score.CmdScore[0], "Quitter"}};
    for (const auto &[button, name] : rows) {
        EXPECT_EQ(toUtf8(button->accessibleName), name) << button->path();
    }
}

TEST(SpokenNames, OfPicturesGaugesAndTheTableSayWhatIsSeenThere) {
    Game game;
    const std::pair<Control *, const char *> rows[] = {{&game.menu.VSDessin, "Image du thème"},
                                                       {&game.menu.Image1, "Catalogue des thèmes"},
                                                       {&game.menu.FluReflec, "Temps de réflexion"},
                                                       {&game.menu.FluxScore, "Mots trouvés"},
                                                       {&game.score.LstScore, "Scores"}};
    for (const auto &[control, name] : rows) {
        EXPECT_EQ(toUtf8(control->accessibleName), name) << control->path();
    }
    EXPECT_EQ(shown(game.menu.VSDessin.ToolTipText), "Image du thème");
    EXPECT_EQ(shown(game.menu.Image1.ToolTipText), "Catalogue des thèmes");
}

TEST(SpokenNames, OfBoxesBarsFieldsAndListsAreTheLabelsBesideThem) {
    Game game;
    FOption &option = game.all.option;
    const std::pair<Control *, Label *> rows[] = {
        {&game.choice.CmdNbPlay[0], &game.choice.TxtPlay[0]},
        {&game.choice.CmdNbPlay[1], &game.choice.TxtPlay[1]},
        {&game.choice.CmdNbPlay[2], &game.choice.TxtPlay[2]},
        {&game.choice.ConfActive, &game.choice.TxtActive},
        {&game.choice.DefReflec[0], &game.choice.BordLimit},
        {&game.choice.DefReflec[1], &game.choice.TxtNbBad},
        {&game.names.Saisie[0], &game.names.Etiquette1},
        {&game.names.Saisie[1], &game.names.Etiquette2},
        {&game.titles.LstTitre, &game.titles.RapTit},
        {&option.ConfTSons[0], &option.Etiquette[0]},
        {&option.ConfTSons[1], &option.Etiquette[1]},
        {&game.score.Resultat[0], &game.score.Etiquette[0]},
        {&game.score.Resultat[1], &game.score.Etiquette[1]},
        {&game.score.Resultat[2], &game.score.Etiquette[2]},
        {&game.score.Resultat[3], &game.score.Etiquette[3]}};
    for (const auto &[control, label] : rows) {
        EXPECT_EQ(control->labelledBy, label) << control->path();
    }
    EXPECT_EQ(shown(game.names.Etiquette1.Caption), "Nom :");
    EXPECT_EQ(shown(game.names.Etiquette2.Caption), "Prénom :");
    EXPECT_EQ(shown(game.titles.RapTit.Caption), "Choisis un titre et appuie sur \"OK\"");
    EXPECT_EQ(shown(option.EtiquetteTitre.Caption), "Activer / Désactiver");
    EXPECT_EQ(shown(option.Etiquette[0].Caption), "Musique");
    EXPECT_EQ(shown(option.Etiquette[1].Caption), "Parole");
}

TEST(Descriptions, TellWhatATextOfTheMainWindowIsFor) {
    Game game;
    const std::pair<Control *, const char *> rows[] = {
        {&game.menu.RapTit, "Sujet"},
        {&game.menu.AffMot[0], "Mot à trouver"},
        {&game.menu.AffMot[1], "Nombre de lettres"},
        {&game.menu.Rappel[1], "Joueur 1"},
        {&game.menu.Rappel[2], "Joueur 2"},
        {&game.menu.ImgScore[0], "Score du joueur 1"},
        {&game.menu.ImgScore[1], "Score du joueur 2"}};
    for (const auto &[control, description] : rows) {
        EXPECT_EQ(toUtf8(control->accessibleDescription), description) << control->path();
    }
}

TEST(Inks, AreWhiteOnTheDarkWindows) {
    Game game;
    FAbout &about = game.all.about;
    for (const Label *label :
         {&game.menu.RapTit, &game.menu.Rappel[1], &game.menu.Rappel[2], &game.menu.ImgScore[0],
          &game.menu.ImgScore[1], &game.menu.AffMot[1], &about.Txt[0], &about.Txt[1], &about.Txt[2],
          &about.VsAbout[2], &game.all.splash.M, &game.all.splash.lblCopyright}) {
        EXPECT_EQ(label->ForeColor.get(), colours::white) << label->path();
    }
    EXPECT_EQ(game.menu.AffMot[0].ForeColor.get(), colours::blue);
    EXPECT_EQ(game.menu.FluReflec.CouleurTexte.get(), colours::white);
    EXPECT_EQ(game.menu.FluxScore.CouleurTexte.get(), colours::white);
}

TEST(Panels, HoldTheNameAndTheScoreOfTheirPlayer) {
    Game game;
    for (const int player : {1, 2}) {
        const Label *panel = &game.menu.Bord[player + 1];
        EXPECT_EQ(game.menu.Rappel[player].container, panel) << player;
        EXPECT_EQ(game.menu.ImgScore[player - 1].container, panel) << player;
    }
}

TEST(Stores, AreOnNoScreenAndWhatAPersonUsesIs) {
    Game game;
    for (const LetterButton &store : game.menu.VsAlphabis) {
        EXPECT_FALSE(store.shownOnScreen) << store.path();
    }
    for (const List *store : {&game.menu.LstMot[0], &game.menu.LstMot[1], &game.titles.LstBmpDef,
                              &game.titles.TmpLstFich, &game.titles.LstFichier}) {
        EXPECT_FALSE(store->shownOnScreen) << store->path();
    }
    EXPECT_FALSE(game.menu.DessTmp.Visible);
    EXPECT_TRUE(game.titles.LstTitre.shownOnScreen);
    EXPECT_EQ(game.titles.LstTitre.shownColumns, 30u); // of an entry the title is for the eye
    for (const LetterButton &letter : game.menu.VsAlpha) {
        EXPECT_TRUE(letter.shownOnScreen) << letter.path();
    }
}

struct WindowRow {
    Form *form;
    bool parchment, titleBar, centred, backdrop;
};

TEST(WindowDress, BearTheNameOfTheGameAndTheirOwnDress) {
    Game game;
    const WindowRow rows[] = {{&game.all.splash, false, false, true, false},
                              {&game.titles, true, false, false, false},
                              {&game.choice, true, false, false, false},
                              {&game.names, true, false, false, false},
                              {&game.score, true, false, false, false},
                              {&game.all.option, true, false, false, false},
                              {&game.question, true, false, true, false},
                              {&game.menu, false, true, false, false},
                              {&game.all.about, false, true, false, false},
                              {&game.all.plein, false, false, false, true}};
    for (const WindowRow &row : rows) {
        const std::string path = row.form->path();
        EXPECT_EQ(row.form->parchment, row.parchment) << path;
        EXPECT_EQ(row.form->titleBar, row.titleBar) << path;
        EXPECT_EQ(row.form->centred, row.centred) << path;
        EXPECT_EQ(row.form->backdrop, row.backdrop) << path;
        if (!row.titleBar && !row.backdrop) {
            EXPECT_EQ(shown(row.form->Caption), "Le Grimoval") << path;
        }
    }
}

// Its viewBox is the window's inside in units of 15 twips; that of the backdrop has any shape.
TEST(Drawings, HaveTheShapeOfTheWindowThatBearsTheirName) {
    Game game;
    for (Form *form : std::initializer_list<Form *>{
             &game.all.splash, &game.all.about, &game.all.option, &game.question, &game.menu,
             &game.titles, &game.choice, &game.names, &game.score}) {
        const std::string path = GRIMOVAL_SOURCES "/assets/images/fonds/" + form->path() + ".svg";
        std::ifstream drawing(path);
        const std::string text{std::istreambuf_iterator<char>(drawing), {}};
        const std::string box = "viewBox=\"0 0 " + std::to_string(form->Width / 15) + " " +
                                std::to_string(form->Height / 15) + "\"";
        EXPECT_NE(text.find(box), std::string::npos) << path << ": " << box;
    }
    EXPECT_TRUE(std::ifstream(GRIMOVAL_SOURCES "/assets/images/fonds/Fplein.svg").good());
}

TEST(Backdrop, IsAPlainDarkBlueMaximisedWithoutControlsUnderEveryWindow) {
    Game game;
    Fplein &backdrop = game.all.plein;
    backdrop.show();
    EXPECT_EQ(backdrop.BackColor.get(), (Colour{0x000040}));
    EXPECT_EQ(backdrop.WindowState.get(), 2);
    EXPECT_TRUE(backdrop.controls().empty());
    EXPECT_TRUE(backdrop.backdrop);
}

TEST(SplashWindow, BearsTheNameOfTheGameAndIsCentredByThePlatform) {
    Game game;
    frmSplash &splash = game.all.splash;
    splash.load();
    EXPECT_EQ(shown(splash.M.Caption), "Le Grimoval");
    EXPECT_NE(shown(splash.lblCopyright.Caption), "");
    EXPECT_TRUE(splash.centred);
    EXPECT_EQ(splash.Width, 6555);
    EXPECT_EQ(splash.Height, 2565);
}

TEST(MainWindow, FitsTheDesignAreaWithEveryControlInside) {
    Game game;
    EXPECT_LE(game.menu.Width, 12000);
    EXPECT_LE(game.menu.Height, 8700);
    for (const Control *control : game.menu.controls()) {
        EXPECT_GE(control->place.left, 0) << control->path();
        EXPECT_GE(control->place.top, 0) << control->path();
        EXPECT_LE(control->place.left + control->place.width, game.menu.Width) << control->path();
        EXPECT_LE(control->place.top + control->place.height, game.menu.Height) << control->path();
    }
}

} // namespace grimoval::test::dressing
