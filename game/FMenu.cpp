// SPDX-License-Identifier: GPL-3.0-or-later
#include "game/FMenu.h"

#include "shell/GLBPAROL.h"

namespace grimoval {

FMenu::FMenu(Globales &globales) : Fenetre(globales, "FMenu") {
    dessiner();
    brancher();
    globales.VBTINI.hote = this;
}

// The design: places in twips on 12000 x 8700, names, and the values that a loading starts from.
void FMenu::dessiner() {
    Width = 12000;
    Height = 8700;
    titleBar = true;

    VSDessin.place = {330, 300, 4140, 3105};
    VSDessin.Visible = false;
    VSDessin.ToolTipText = u"Image du thème";
    VSDessin.accessibleName = u"Image du thème";
    VSDessin.scaleHeight = 200;
    Shape1.place = VSDessin.place;
    Shape1.container = &VSDessin;
    Shape1.Visible = false;
    DessTmp.Visible = false;

    RapTit.place = {4680, 300, 6060, 480};
    RapTit.FontSize = 14;
    RapTit.bold = true;
    RapTit.ForeColor = colours::white;
    RapTit.ToolTipText = u"Sujet : ";
    RapTit.accessibleDescription = u"Sujet";

    // clang-format off
    Bord[2].place     = { 4680,  900,  3405, 1080};
    Bord[3].place     = { 8265,  900,  3405, 1080};
    Rappel[1].place   = { 4830, 1020,  2190,  840};
    Rappel[2].place   = { 8415, 1020,  2190,  840};
    ImgScore[0].place = { 7125, 1020,   840,  840};
    ImgScore[1].place = {10710, 1020,   840,  840};
    FluReflec.place   = { 4680, 2085,  6990,  600};
    FluxScore.place   = { 4680, 2745,  6990,  600};
    AffMot[0].place   = {  330, 3450, 10440, 1560};
    AffMot[1].place   = {10890, 3795,   780,  870};
    // clang-format on
    for (int joueur = 1; joueur <= 2; ++joueur) {
        Label &panneau = Bord[joueur + 1];
        panneau.look = Label::Look::panel;
        Label &nom = Rappel[joueur];
        nom.FontSize = 13;
        nom.bold = true;
        nom.wraps = true;
        nom.ForeColor = colours::white;
        nom.ToolTipText = u"A toi";
        nom.accessibleDescription = u"Joueur " + decimal(joueur);
        nom.look = Label::Look::player;
        nom.container = &panneau;
        Label &score = ImgScore[joueur - 1];
        score.FontSize = 20;
        score.bold = true;
        score.alignment = Alignment::centre;
        score.ForeColor = colours::white;
        score.look = Label::Look::badge;
        score.accessibleDescription = u"Score du joueur " + decimal(joueur);
        score.container = &panneau;
    }
    Bord[3].Visible = false;

    FluReflec.Maximum = 20;
    FluReflec.CouleurTexte = colours::white;
    FluReflec.measure = Gauge::Measure::time;
    FluReflec.accessibleName = u"Temps de réflexion";
    FluxScore.Visible = false;
    FluxScore.CouleurTexte = colours::white;
    FluxScore.accessibleName = u"Mots trouvés";

    AffMot[0].Caption = Texte(29, u'#');
    AffMot[0].FontSize = 15;
    AffMot[0].ForeColor = colours::blue;
    AffMot[0].bold = true;
    AffMot[0].alignment = Alignment::centre;
    AffMot[0].look = Label::Look::word;
    AffMot[0].accessibleDescription = u"Mot à trouver";
    AffMot[1].FontSize = 20;
    AffMot[1].bold = true;
    AffMot[1].alignment = Alignment::centre;
    AffMot[1].ForeColor = colours::white;
    AffMot[1].look = Label::Look::badge;
    AffMot[1].accessibleDescription = u"Nombre de lettres";

    for (int i = 0; i < 26; ++i) {
        const Texte lettre(1, static_cast<char16_t>(u'A' + i));
        LetterButton &bouton = VsAlpha[i];
        bouton.caption = lettre;
        bouton.place = {345 + (i % 13) * 875, 5115 + (i / 13) * 855, 810, 795};
        bouton.Picture = lettre + u".libre";
        bouton.DownPicture = lettre + u".trouvee";
        bouton.DisabledPicture = lettre + u".repos";
        LetterButton &reserve = VsAlphabis[i];
        reserve.caption = lettre;
        reserve.shownOnScreen = false;
        reserve.Picture = lettre + u".fausse";
        reserve.DisabledPicture = lettre + u".repos";
    }
    LstMot[0].shownOnScreen = false;
    LstMot[1].shownOnScreen = false;
    MinutHorloge.Interval = 1000;
}

void FMenu::brancher() {
    struct Bouton {
        PictureButton &bouton;
        const char16_t *nom;
        Place place;
        std::function<void()> clic;
        bool inactif;
    };
    // clang-format off
    const Bouton boutons[] = {
        {CmdTjr[2],  u"Nouvelle partie",      {  285, 6855, 1620, 1620}, [this] { CmdTjr_Click(2); },  false},
        {CmdJeux[0], u"Nouveau mot",          { 1980, 6855, 1620, 1620}, [this] { CmdJeux_Click(0); }, true},
        {CmdJeux[1], u"Voir la réponse",      { 3720, 7110, 1110, 1110}, [this] { CmdJeux_Click(1); }, true},
        {CmdJeux[2], u"Abandonner",           { 3720, 7110, 1110, 1110}, [this] { CmdJeux_Click(2); }, false},
        {CmdTjr[0],  u"Stopper la partie",    { 4905, 7110, 1110, 1110}, [this] { CmdTjr_Click(0); },  true},
        {CmdBase,    u"Changer de thème",     { 6180, 7230,  825,  870}, [this] { CmdBase_Click(); },  false},
        {CmdCfg[0],  u"Configuration du jeu", { 7050, 7230,  825,  870}, [this] { CmdCfg_Click(0); },  false},
        {CmdCfg[1],  u"Configuration du son", { 7920, 7230,  825,  870}, [this] { CmdCfg_Click(1); },  false},
        {CmdTjr[1],  u"Aide",                 { 8790, 7230,  825,  870}, [this] { CmdTjr_Click(1); },  false},
        {lblAbout,   u"A propos",             { 9660, 7230,  825,  870}, [this] { lblAbout_Click(); }, false},
        {CmdTjr[3],  u"Quitter",              {10575, 7110, 1110, 1110}, [this] { CmdTjr_Click(3); },  false},
    };
    // clang-format on
    int rang = 0;
    for (const Bouton &b : boutons) {
        b.bouton.tabIndex = rang++;
        poserBouton(b.bouton, b.place, b.nom, b.clic);
        b.bouton.tooltip = true;
        b.bouton.Inactif = b.inactif;
    }
    CmdTjr[2].prominent = true;
    CmdJeux[0].prominent = true;
    CmdJeux[1].Visible = false;
    CmdJeux[2].Visible = false;

    Image1.place = {10920, 210, 750, 630};
    Image1.design = "livre";
    Image1.ToolTipText = u"Catalogue des thèmes";
    Image1.accessibleName = u"Catalogue des thèmes";
    Image1.Click = [this] { Image1_Click(); };
    Image1.MouseMove = [this] { survolerBouton(); };

    for (LetterButton &bouton : VsAlpha) {
        bouton.Click = [this, &bouton] { VsAlpha_Click(bouton.index()); };
    }
    FluReflec.Progression = [this] { FluReflec_Progression(); };
    FluReflec.Fin = [this] { FluReflec_Fin(); };
    MinutHorloge.Tick = [this] { MinutHorloge_Timer(); };
}

void FMenu::Form_Load() {
    MessageEchec = true;
    if (screen().Width() <= 12000) {
        WindowState = 2;
    }
    afficherInvitation();
    AffMot[1].Caption = u"";
    RapTit.Caption = u"";
    Rappel[1].Caption = u"";
    Rappel[2].Caption = u"";
    DesactiverLettres();
    PlacerFenetre(*this, u"C");
    HeureLancement = g.services.clock.now().secondOfDay();
}

void FMenu::afficherInvitation() {
    AffMot[0].FontSize = 12;
    AffMot[0].Caption = u"Pour commencer : appuie sur le bouton vert";
}

// The keyboard is dead until the first word of a game has been drawn.
void FMenu::Form_KeyPress(Int16 &keyAscii) {
    if (g.scores.NbMotsProposes == 0) {
        return;
    }
    const char16_t caractere = upper(fromAnsiCode(keyAscii));
    if (caractere == u'\r') {
        if (!CmdJeux[0].Inactif) {
            CmdJeux_Click(0);
        }
    } else if (caractere >= u'A' && caractere <= u'Z') {
        IndiceDeLettre(caractere);
        if (VsAlpha[IndiceLettre].Enabled) {
            ProposerLettre(caractere);
        } else {
            JouerErreur(g);
        }
    }
}

} // namespace grimoval
