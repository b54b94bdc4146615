// SPDX-License-Identifier: GPL-3.0-or-later
// The record of a game in the monthly log: for people to read, written and never read back. The
// month that ends moves to a file of its own, and the one before it is kept under a dated name.
#include "scores/FScore2.h"

#include <cmath>

namespace grimoval {

namespace {

constexpr std::u16string_view finDeLigne = u"\r\n";
const Texte zone2(14, u' '), zone3(28, u' '); // print zones are 14 columns wide
constexpr int longueurSansImprimante = 68;
constexpr std::size_t plusLongueSeparation = 4000; // beyond it a printer answers nonsense

// The text of the mode, with its leading blank.
const char16_t *niveau(int mode) {
    switch (mode) {
    case 1:
        return u" un seul joueur";
    case 2:
        return u" 2 joueurs cherchant le même mot";
    default:
        return u" 2 joueurs chacun son mot";
    }
}

// As a time of day: the hours wrap at 24.
Texte heure(int secondes) {
    const auto deux = [](int n) { return (n < 10 ? u"0" : u"") + decimal(n); };
    return deux(secondes / 3600 % 24) + u":" + deux(secondes / 60 % 60) + u":" +
           deux(secondes % 60);
}

// The log that gives way gets the month of its last record for a name, which is answered, and never
// one that is taken: nothing is lost by it, whatever the clock says.
Texte mettreDeCote(Files &fichiers, const Texte &dossier, const Texte &precedent) {
    const DateTime ecrit = fichiers.lastWrite(precedent);
    const Texte mois = dossier + u"SCORGRIM-" + decimal(ecrit.year) + u"-" +
                       (ecrit.month < 10 ? u"0" : u"") + decimal(ecrit.month);
    Texte garde = mois + u".BAK";
    for (int numero = 2; !fichiers.moveToFreeName(precedent, garde); ++numero) {
        garde = mois + u"-" + decimal(numero) + u".BAK";
    }
    return garde;
}

// A log last written in another month takes the place of the one before. The month alone counts: a
// log of the same month of another year goes on. Other games on this account may be at the same: no
// file takes the place of another, whoever moves it.
void changerDeMois(Files &fichiers, const Texte &dossier, const Texte &journal,
                   const Texte &precedent, int mois) {
    const auto autreMois = [&] { return fichiers.lastWrite(journal).month != mois; };
    try {
        if (!autreMois()) {
            return;
        }
        const Texte garde = mettreDeCote(fichiers, dossier, precedent);
        const bool change = autreMois() && fichiers.moveToFreeName(journal, precedent);
        // It comes back where another game has begun the month meanwhile.
        if (!change && fichiers.moveToFreeName(garde, precedent)) {
            return;
        }
        if (fichiers.length(garde) == 0) {
            fichiers.remove(garde);
        }
    } catch (const Failure &erreur) {
        // Gone meanwhile: another game has moved it.
        if (erreur.number != failure::fileNotFound) {
            throw;
        }
    }
}

} // namespace

// As wide as the printed page in the printer's font, so that the file prints well; the length
// changes with the printer, also within one file.
Texte FScore2::ligneDeSeparation() {
    const Texte sans(longueurSansImprimante, u'-');
    try {
        Canvas &imprimante = g.services.printer;
        const double page = imprimante.pageWidth();
        if (!std::isfinite(page) || !(imprimante.textWidth(u"-") > 0)) {
            return sans;
        }
        Texte ligne;
        while (imprimante.textWidth(ligne) < page) {
            if (ligne.size() == plusLongueSeparation) {
                return sans;
            }
            ligne += u'-';
        }
        return ligne;
    } catch (const Failure &) {
        return sans;
    }
}

Texte FScore2::composer(const Texte &separation) {
    const ScoresPartie &s = g.scores;
    const int mode = g.reglages.NombreJoueur;
    auto &nom = g.joueurs.NomJoueur;
    Texte texte;
    const auto ligne = [&texte](const Texte &contenu = {}) {
        texte += contenu + Texte(finDeLigne);
    };
    const auto compte = [&ligne](const Texte &etiquette, int valeur) {
        ligne(etiquette + decimal(valeur));
    };

    ligne(separation);
    ligne(zone2 + titreDuJournal(g));
    ligne(zone2 + Horodatage);
    ligne();
    ligne(u"Fichier        : " + g.base.FichierBase);
    ligne(u"Sujet          : " + g.base.TitreBase);
    compte(u"Nombre de mots : ", s.NbMotsBase);
    ligne();
    ligne(g.reglages.RéflexionLimite != 0
              ? u"Temps de réflexion limitée à " + decimal(g.reglages.TempsRéflexion) + u" secondes"
              : Texte(u"Temps de réflexion limitée : NON"));
    if (mode != 2) {
        compte(u"Nombre d'erreurs limité à  : ", g.reglages.NombreErreur);
    }
    ligne();
    ligne(zone3 + u"Temps écoulé : " + heure(s.TempsEcoule));
    ligne(zone2 + u"Niveau : " + niveau(mode));
    ligne();
    if (mode == 2) {
        compte(u"Nombre de mots proposés     : ", s.NbMotsProposes);
        ligne();
    }
    for (const std::size_t joueur : {1u, 2u}) {
        const std::size_t champ = joueur * 2 - 1;
        const Texte famille = rangerNom(nom[champ]);
        const Texte prenom = rangerNom(nom[champ + 1]);
        ligne(zone2 + (joueur == 1 ? u"1er joueur : " : u"2ème joueur : ") + famille + u" " +
              prenom);
        if (mode != 2) {
            compte(u"Nombre de mots proposés     : ", s.NbMotsProposes);
            compte(u"Nombre d'abandons           : ", s.Abandons[joueur]);
        }
        if (mode == 1) {
            compte(u"Nombre de mots non trouvés  : ", motsNonTrouves(1));
        }
        compte(u"Nombre de mauvaises lettres : ", s.MauvaisesLettres[joueur]);
        compte(u"Nombre de bonnes lettres    : ", s.BonnesLettres[joueur]);
        compte(u"Nombre de mots trouvés      : ", s.MotsTrouves[joueur]);
        if (mode != 1) {
            compte(u"SCORE.......................: ", s.Score[joueur]);
        }
        if (joueur == 1) {
            ligne();
        }
        if (mode == 1) {
            break;
        }
    }
    return texte;
}

void FScore2::inscrire(const Texte &separation) {
    Files &fichiers = g.services.files;
    tentee_ = true;
    g.dossiers.DossierScore = asFolder(g.dossiers.DossierScore);
    const Texte journal = g.dossiers.DossierScore + u"SCORGRIM.TXT";
    const Texte precedent = g.dossiers.DossierScore + u"SCORGRIM.BAK";
    { AppendFile(fichiers, journal); }
    { AppendFile(fichiers, precedent); }
    changerDeMois(fichiers, g.dossiers.DossierScore, journal, precedent,
                  g.services.clock.now().month);
    AppendFile fichier(fichiers, journal);
    fichier.write(toAnsi(composer(separation)));
    fichier.flush();
    ScoreNonEcrit = false;
}

void FScore2::EcrireScore() {
    screen().MousePointer = pointeur::sablier;
    const Texte separation = ligneDeSeparation();
    screen().MousePointer = pointeur::sablier; // a paint may have come while the printer was asked
    try {
        inscrire(separation);
    } catch (const Failure &erreur) {
        const Texte lecteur(1, g.dossiers.DossierScore.front());
        Texte texte;
        switch (erreur.number) {
        case failure::diskFull:
            texte = u"Disque " + lecteur + u" est saturé.";
            break;
        case failure::deviceUnavailable:
            texte = u"ERREUR 68\u00A0: Lecteur " + lecteur + u": non disponible.";
            break;
        case failure::pathNotFound:
            texte = u"ERREUR 76\u00A0: Ce chemin d'accès n'existe pas.";
            break;
        default:
            texte = u"L'ERREUR " + decimal(erreur.number) + u" est survenue.";
        }
        screen().message(texte, MessageIcon::critical, titreDuJournal(g));
    }
    screen().MousePointer = pointeur::fleche;
}

} // namespace grimoval
