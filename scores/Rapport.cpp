// SPDX-License-Identifier: GPL-3.0-or-later
// The report: one page on the default printer, in its default font. Every row has a fixed place;
// nothing is scaled, clipped or broken. It shares the values of the record, not its labels.
#include "scores/FScore2.h"

namespace grimoval {

namespace {
constexpr int colonneTable = 30, colonneTexte = 2; // in widths of "W"
constexpr double hautTable = 9.2, basTable = 19.2; // in line heights
} // namespace

void FScore2::ImprimerScore() {
    screen().MousePointer = pointeur::sablier;
    try {
        Canvas &page = g.services.printer;
        HauteurLigne = page.textHeight(u"Wpq");
        LargeurCar = page.textWidth(u"W");
        Pen plume(page);
        imprimerEntete(plume);
        imprimerTable(plume);
        page.endDocument();
        screen().processEvents();
    } catch (const Failure &erreur) {
        screen().message(erreur.number == failure::printerError
                             ? Texte(u"Problème d'imprimante !!")
                             : u"L'ERREUR" + decimal(erreur.number) + u" est survenue.",
                         MessageIcon::critical, titreDuJournal(g));
    }
    screen().MousePointer = pointeur::fleche;
}

void FScore2::imprimerEntete(Pen &plume) {
    Canvas &page = g.services.printer;
    const double C = LargeurCar, H = HauteurLigne, W = page.pageWidth();
    const double marge = colonneTexte * C;
    const auto ligne = [&](const Texte &texte) {
        plume.x = marge;
        plume.print(texte);
    };
    plume.x = marge;
    plume.y = 0;
    plume.printStay(Horodatage);
    page.drawRectangle(C, 1.2 * H, W - C, 2.5 * H);
    const Texte titre = titreDuJournal(g);
    plume.x = (W - static_cast<double>(titre.size()) * C - 2 * C) / 2;
    plume.y = 1.3 * H;
    plume.printZone(titre);
    plume.y = 2.7 * H;
    ligne(u"Fichier        : " + g.base.FichierBase);
    ligne(u"Sujet          : " + g.base.TitreBase);
    ligne(u"Nombre de mots : " + decimal(g.scores.NbMotsBase));
    page.drawLine(C, 5.8 * H, W - C, 5.8 * H);
    plume.y = 6 * H;
    ligne(g.reglages.RéflexionLimite != 0
              ? u"Temps de réflexion limitée à " + decimal(g.reglages.TempsRéflexion) + u" secondes"
              : u"Temps de réflexion limitée : " + Resultat[2].Caption.get());
    ligne(u" Nombre d'erreurs limité à : " + Resultat[3].Caption.get());
    // Settled: no text is given in mode 3, and the shared one, empty then, is printed as it stands.
    if (g.reglages.NombreJoueur == 1) {
        g.TexteMessage = u" un seul joueur";
    } else if (g.reglages.NombreJoueur == 2) {
        g.TexteMessage = u" 2 joueurs cherchant le même mot.";
    }
    ligne(Texte(20, u' ') + u"Niveau : " + g.TexteMessage);
}

void FScore2::imprimerTable(Pen &plume) {
    Canvas &page = g.services.printer;
    const double C = LargeurCar, H = HauteurLigne, W = page.pageWidth();
    const double XTable = colonneTable * C;
    const double XMilieu = XTable + (W - XTable) / 2;
    const double decalage = (W - 13 * C - XMilieu) / 2;
    const std::array<double, 2> X = {XTable + decalage, XMilieu + decalage};

    page.drawRectangle(C, hautTable * H, W - C, basTable * H);
    page.drawLine(XTable, hautTable * H, XTable, basTable * H);
    page.drawLine(XMilieu, hautTable * H, XMilieu, basTable * H);
    auto &nom = g.joueurs.NomJoueur;
    for (const std::size_t rang : {0u, 1u}) {
        for (const std::size_t joueur : {0u, 1u}) {
            plume.x = X[joueur];
            plume.y = (9.5 + static_cast<double>(rang)) * H;
            plume.print(rangerNom(nom[joueur * 2 + 1 + rang]));
        }
    }
    page.drawLine(C, 11.7 * H, W - C, 11.7 * H);

    const ScoresPartie &s = g.scores;
    const int mode = g.reglages.NombreJoueur;
    // `joueurs`: how many of the two columns bear a value.
    const auto rangee = [&](int hauteur, const Texte &etiquette, Int16 un, Int16 deux,
                            std::size_t joueurs = 2) {
        plume.x = colonneTexte * C;
        plume.y = hauteur * H;
        plume.print(etiquette);
        const std::array<Int16, 2> valeurs = {un, deux};
        for (std::size_t joueur = 0; joueur < joueurs; ++joueur) {
            plume.x = X[joueur];
            plume.y = hauteur * H;
            plume.print(static_cast<int>(valeurs[joueur]));
        }
    };
    if (mode == 2) {
        plume.x = 4 * C;
        plume.y = 10 * H;
        plume.print(decimal(s.NbMotsProposes) + u" mots proposés");
    } else {
        rangee(12, u"Nombre de mots proposés", s.NbMotsProposes, s.NbMotsProposes,
               mode == 1 ? 1 : 2);
        rangee(13, u"Nombre d'abandons", s.Abandons[1], s.Abandons[2]);
    }
    if (mode == 1) {
        rangee(14, u"Nombre de mots non trouvés", motsNonTrouves(1), 0, 1);
    }
    const int haut = mode == 2 ? 13 : 15;
    rangee(haut, u"Nombre de mauvaises lettres", s.MauvaisesLettres[1], s.MauvaisesLettres[2]);
    rangee(haut + 1, u"Nombre de bonnes lettres", s.BonnesLettres[1], s.BonnesLettres[2]);
    rangee(haut + 2, u"Nombre de mots trouvés", s.MotsTrouves[1], s.MotsTrouves[2]);
    if (mode != 1) {
        rangee(18, u"SCORE.......................", s.Score[1], s.Score[2]);
    }
}

} // namespace grimoval
