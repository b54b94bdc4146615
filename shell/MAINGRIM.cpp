// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/MAINGRIM.h"

#include "shell/GLBPAROL.h"
#include "shell/mdAppData.h"
#include "shell/mdClvUtil.h"

namespace grimoval {

namespace {

// A screen wider than this is larger than the game's window: the rest of it is hidden by a
// backdrop.
constexpr int petitEcran = 12000; // twips, 800 pixels

void donnerFaces(Globales &g, FMenu &menu) {
    const std::pair<PictureButton &, const char16_t *> faces[] = {
        {menu.CmdTjr[2], u"_play.tga"},        {menu.CmdTjr[0], u"_stop.tga"},
        {menu.CmdTjr[1], u"_aide.tga"},        {menu.CmdTjr[3], u"_Quitter.tga"},
        {menu.CmdCfg[0], u"_outil.tga"},       {menu.CmdCfg[1], u"_sound.tga"},
        {menu.CmdBase, u"_choix.tga"},         {menu.lblAbout, u"_Apropos.tga"},
        {menu.CmdJeux[0], u"_AutreMot.tga"},   {menu.CmdJeux[1], u"_Reponse.tga"},
        {menu.CmdJeux[2], u"_Abandonner.tga"},
    };
    for (const auto &[bouton, fichier] : faces) {
        bouton.Face = g.dossiers.DossierImages + fichier;
    }
}

// What another game on this account has removed in the same moment is as good as removed.
void enlever(Files &fichiers, const Texte &nom) {
    try {
        fichiers.remove(nom);
    } catch (const Failure &erreur) {
        if (erreur.number != failure::fileNotFound) {
            throw;
        }
    }
}

// Proves that the folder can be written, and leaves no stale work file in it, whatever it holds.
void nettoyerTemporaires(Globales &g) {
    Files &fichiers = g.services.files;
    const Texte &dossier = g.dossiers.DossierTemp;
    const Texte probe = dossier + u"~GRIMOVA.TMP", copie = dossier + u"~GRIMV.TMP";
    RecordFile(fichiers, probe, TypeMot::taille);
    RecordFile(fichiers, copie, TypeBase::taille);
    enlever(fichiers, copie);
    enlever(fichiers, probe);
    for (const char16_t *nom : {u"~GRIMV.TMP", u"GRIMOVA.INI"}) {
        fichiers.removeLeftOver(dossier, nom);
    }
}

void examinerListe(Globales &g) {
    const Texte liste = g.dossiers.DossierBases + u"GRIMV.LST";
    if (g.services.files.length(liste) != 0) {
        return;
    }
    if (g.ListeObligatoire) {
        g.services.screen.message(u"Le fichier GRIMV.LST est déffectueux.", MessageIcon::critical);
        g.services.application.end();
    }
    g.services.files.remove(liste);
}

} // namespace

FenetresDuJeu::FenetresDuJeu(Globales &g)
    : splash(g), plein(g), menu(g), titres(g, menu), nom(g), choix(g, nom), score(g), question(g),
      option(g), about(g) {
    menu.fenetres = {&titres, &choix, &option,
                     &about,  &score, [this, &g] { DemanderQuitter(g, question); }};
}

void Main(Globales &g, FenetresDuJeu &fenetres) {
    FMenu &menu = fenetres.menu;
    Application &application = g.services.application;
    Screen &ecran = g.services.screen;
    if (application.previousInstance()) {
        application.end();
    }
    fenetres.splash.showModal();
    TrouverDossierUtilisateur(g);
    g.SautLigne = u"\n";
    g.BoutonSite = true;
    ecran.MousePointer = pointeur::sablier;
    g.dossiers.DossierAppli = asFolder(application.path());
    g.TitreAppli = u"Le Grimoval ";
    menu.load();
    if (!DefinirRepertoires(g)) {
        application.end();
    }
    donnerFaces(g, menu);
    LireConfigSon(g);
    LireConfigJeu(g);
    if (ecran.Width() > petitEcran) {
        fenetres.plein.show();
        ecran.processEvents();
    }
    g.base.BaseChargee = false;
    nettoyerTemporaires(g);
    examinerListe(g);
    if (g.son.MusiqueActive != 0) {
        JouerMusique(g);
    }
    if (g.son.ParoleActive != 0) {
        JouerParole(g, parole::bienvenue);
    }
    menu.Caption = ecran.Width() > petitEcran ? g.TitreAppli : Texte();
    for (std::size_t champ = 1; champ <= 4; ++champ) {
        g.joueurs.NomJoueur[champ] = Texte();
    }
    menu.showModal();
    application.end();
}

} // namespace grimoval
