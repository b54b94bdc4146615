// SPDX-License-Identifier: GPL-3.0-or-later
// The commands. No variable holds the state of a game: it is told by the buttons that are greyed.
#include "game/FMenu.h"

#include "shell/GLBPAROL.h"
#include "shell/mdClvUtil.h"

namespace grimoval {

namespace {
constexpr int ok = 1, oui = 6; // answers of windows
}

void FMenu::CmdTjr_Click(int index) {
    switch (index) {
    case 0:
        StopperPartie();
        break;
    case 1:
        PreparerAide(g);
        g.VBTINI.Cle = u"Index";
        g.VBTINI.Action(Clvutil::montrerAide);
        break;
    case 2:
        NouvellePartie();
        break;
    default:
        if (!g.FenetreModale) {
            unload();
        }
    }
}

void FMenu::CmdJeux_Click(int index) {
    if (index == 0) {
        NouveauMot();
    } else {
        AbandonnerMot();
    }
}

bool FMenu::configurer() {
    g.ReponseFenetre = 0;
    AfficherModal(g, *fenetres.FCHoix);
    return g.ReponseFenetre == ok && AfficherJoueurs();
}

void FMenu::NouvellePartie() {
    CmdTjr[2].Inactif = true;
    screen().MousePointer = pointeur::sablier;
    CmdCfg[0].Inactif = true;
    AffMot[0].Caption = u"";
    AffMot[1].Caption = u"";
    AffMot[0].FontSize = 15;
    if (limite()) {
        FluReflec.Valeur = 0;
        FluReflec.TexteFlux = u"0";
        FluReflec.Maximum = g.reglages.TempsRéflexion;
    }
    const auto pret = [this] {
        if (!g.base.BaseChargee) {
            if (!configurer()) {
                return false;
            }
            CmdBase_Click();
        }
        if (!g.base.BaseChargee) {
            return false;
        }
        // Mode 3 asks for no names here.
        const auto vide = [this](std::size_t champ) {
            return trim(g.joueurs.NomJoueur[champ].text()).empty();
        };
        const int mode = g.reglages.NombreJoueur;
        const bool manquent = (mode == 1 && vide(1)) || (mode == 2 && (vide(1) || vide(3)));
        return !manquent || configurer();
    };
    if (!pret()) {
        CmdTjr[2].Inactif = false;
        CmdTjr[0].Inactif = true;
        CmdCfg[0].Inactif = false;
        return;
    }
    FluxScore.Valeur = 0;
    FluxScore.TexteFlux = u"";
    FluxScore.CouleurTexte = colours::white;
    JouerParole(g, parole::debutPartie);
    screen().processEvents();
    CmdJeux[0].Inactif = false;
    CmdJeux_Click(0);
    PartieEnCours = true;
    g.scores.HeureDebut = g.services.clock.now().secondOfDay();
    g.services.printer.foresee(); // for the score that this game will have
    screen().MousePointer = pointeur::fleche;
}

void FMenu::NouveauMot() {
    CmdJeux[0].Inactif = true;
    ActiverLettres();
    if (!CmdBase.Inactif) { // the first word of a game
        CmdBase.Inactif = true;
        PreparerListe();
    }
    InitialiserMot();
    if (!TirerMot()) {
        return;
    }
    MasquerMot();
    g.scores.NbMotsProposes += 1;
    if (limite()) {
        FluxArme = true;
        FluxActif = true;
        FluReflec.Valeur = 0;
        FluReflec.TexteFlux = u"0";
        FluReflec.Lancer();
    }
    CmdJeux[1].Inactif = false;
    Rappel[1].Caption = Bord[2].Tag.get() + u" " + Rappel[1].ToolTipText.get();
    if (g.reglages.NombreJoueur == 2) {
        CmdTjr[0].Inactif = false;
    }
}

void FMenu::InitialiserMot() {
    AffMot[0].ForeColor = colours::blue;
    ErreursMot[1] = 0;
    ErreursMot[2] = 0;
    JoueurCourant = 1;
    for (const std::size_t slot : {1u, 2u}) {
        MotAffiche[slot].clear();
        MotCherche[slot].clear();
    }
    reglerVoile();
    CmdTjr[0].Inactif = true;
}

// "Voir la réponse" and "Abandonner". In mode 3 the word is not shown, and slot 1 goes back
// although the click comes from player 2.
void FMenu::AbandonnerMot() {
    ArreterFlux();
    if (g.reglages.NombreJoueur != 1) {
        rendreMot();
    } else {
        AffMot[0].ForeColor = colours::red;
        AffMot[0].Caption = MotCherche[1];
    }
    JouerParole(g, parole::motPerdu);
    screen().processEvents();
    g.scores.Abandons[static_cast<std::size_t>(JoueurCourant)] += 1;
    FinDeMot();
}

void FMenu::StopperPartie() {
    CmdTjr[0].Inactif = true;
    PartieEnCours = false;
    screen().MousePointer = pointeur::sablier;
    ArreterFlux();
    DesactiverLettres();
    CmdJeux[0].Inactif = true;
    CmdJeux[1].Inactif = true;
    CmdJeux[2].Inactif = true;
    CmdBase.Inactif = false;
    CmdCfg[0].Inactif = false;
    CmdTjr[2].Inactif = false;
    screen().processEvents();
    AfficherModal(g, *fenetres.FScore2);
    AffMot[0].ForeColor = colours::blue;
    AffMot[0].Caption = u"";
    afficherInvitation();
    Shape1.Height = 1;
    g.scores.NbMotsBase = 0;
    montrerNoms();
}

void FMenu::CmdCfg_Click(int index) {
    if (index == 1) {
        AfficherModal(g, *fenetres.FOption);
        return;
    }
    g.ReponseFenetre = 0;
    AfficherModal(g, *fenetres.FCHoix);
    if (g.ReponseFenetre == ok) {
        AfficherJoueurs();
    }
}

void FMenu::CmdBase_Click() {
    screen().MousePointer = pointeur::sablier;
    AfficherModal(g, *fenetres.FLstTitre);
    const Texte titre = trim(g.base.TitreBase);
    if (!titre.empty()) {
        RapTit.Caption = RapTit.ToolTipText.get() + titre;
    }
}

void FMenu::lblAbout_Click() {
    screen().MousePointer = pointeur::sablier;
    if (FluxActif) {
        desarmerFlux();
    }
    AfficherModal(g, *fenetres.FAbout);
    if (FluxActif) {
        FluxArme = true;
        FluReflec.Lancer();
    }
}

void FMenu::Image1_Click() {
    g.VBTINI.OuvrirDocument(g.services.application.path() + u"/catalogue.chm");
}

void FMenu::Form_QueryUnload(bool &cancel, UnloadMode /*mode*/) {
    g.FenetreModale = true;
    if (FluxActif) {
        FluxArme = false;
        if (FluReflec.EnMarche) {
            FluReflec.Arreter();
        }
    }
    JouerParole(g, parole::quitter);
    fenetres.DemanderQuitter();
    if (g.ReponseFenetre != oui) {
        cancel = true;
        if (FluxActif) {
            FluxArme = true;
            FluReflec.Lancer();
        }
        return;
    }
    screen().processEvents();
    if (g.scores.aMontrer()) {
        AfficherModal(g, *fenetres.FScore2);
    }
    JouerParole(g, parole::auRevoir);
}

} // namespace grimoval
