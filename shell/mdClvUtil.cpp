// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/mdClvUtil.h"

namespace grimoval {

namespace {

void ouvrirSection(Globales &g, const Texte &section) {
    g.VBTINI.FichierIni = g.dossiers.DossierUtilisateur + u"GRIMOVA.INI";
    g.VBTINI.Section = section;
}

// The value of numeric text in the key; nothing for any other.
std::optional<double> lireNombre(Globales &g, const Texte &cle) {
    g.VBTINI.Cle = cle;
    g.VBTINI.Action(Clvutil::lireCle);
    return numericValue(g.VBTINI.Valeur);
}

// A switch: any value but 0 is 1; what is no number becomes the value held in memory.
void lireInterrupteur(Globales &g, const Texte &cle, Int16 &interrupteur) {
    if (const auto valeur = lireNombre(g, cle)) {
        interrupteur = *valeur == 0 ? 0 : 1;
    } else {
        EcrireCle(g, cle, interrupteur);
    }
}

} // namespace

void OuvrirReglages(Globales &g) { ouvrirSection(g, trim(Application::title)); }

void EcrireCle(Globales &g, const Texte &cle, int valeur) {
    g.VBTINI.Cle = cle;
    g.VBTINI.Valeur = decimal(valeur);
    g.VBTINI.Action(Clvutil::ecrireCle);
}

void LireConfigSon(Globales &g) {
    ReglagesSon &son = g.son;
    son.MidiPresent = 1;
    son.WavPresent = 1;
    son.ConfDep = -1;
    ouvrirSection(g, u"ConfigPC");
    if (const auto valeur = lireNombre(g, u"ConfDep")) {
        son.ConfDep = Int16::rounded(*valeur);
    } else {
        EcrireCle(g, u"ConfDep", son.ConfDep);
    }
    son.WavPresent = g.VBTINI.WavDispo() ? 1 : 0;
    EcrireCle(g, u"WavPrésent", son.WavPresent);
    son.MidiPresent = g.VBTINI.MidiDispo() ? 1 : 0;
    EcrireCle(g, u"MidiPrésent", son.MidiPresent);

    son.MusiqueActive = son.MidiPresent;
    son.ParoleActive = son.WavPresent;
    OuvrirReglages(g);
    lireInterrupteur(g, u"Music", son.MusiqueActive);
    lireInterrupteur(g, u"Parole", son.ParoleActive);
}

void LireConfigJeu(Globales &g) {
    g.reglages = Reglages();
    struct Ligne {
        const char16_t *cle;
        Int16 &reglage;
        std::optional<int> minimum, maximum;
    };
    const Ligne lignes[] = {
        {u"NombreJoueur", g.reglages.NombreJoueur, 1, 3},
        {u"RéflexionLimite", g.reglages.RéflexionLimite, {}, {}},
        {u"TempsRéflexion", g.reglages.TempsRéflexion, 5, {}},
        {u"NombreErreur", g.reglages.NombreErreur, 1, 20},
    };
    OuvrirReglages(g);
    for (const Ligne &ligne : lignes) {
        // The range is tested on the real value, before it is rounded: 2.5 players are 2, 3.4 none.
        const auto valeur = lireNombre(g, ligne.cle);
        if (valeur && (!ligne.minimum || *valeur >= *ligne.minimum) &&
            (!ligne.maximum || *valeur <= *ligne.maximum)) {
            ligne.reglage = Int16::rounded(*valeur);
        } else {
            EcrireCle(g, ligne.cle, ligne.reglage);
        }
    }
}

void EcrireConfigSon(Globales &g, const Int16 &quoi) {
    OuvrirReglages(g);
    if (quoi == 1) {
        g.VBTINI.Valeur = decimal(g.son.ParoleActive);
        g.VBTINI.Cle = u"Parole";
    } else if (quoi == 2) {
        g.VBTINI.Valeur = decimal(g.son.MusiqueActive);
        g.VBTINI.Cle = u"Music";
    }
    g.VBTINI.Action(Clvutil::ecrireCle);
}

void PreparerAide(Globales &g) {
    g.VBTINI.FichierAide = asFolder(g.dossiers.DossierAppli) + trim(Application::title) + u".HLP";
}

} // namespace grimoval
