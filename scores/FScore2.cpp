// SPDX-License-Identifier: GPL-3.0-or-later
#include "scores/FScore2.h"

#include "shell/GLBPAROL.h"

#include <chrono>

namespace grimoval {

namespace {

Texte deuxChiffres(int nombre) { return (nombre < 10 ? u"0" : u"") + decimal(nombre); }

} // namespace

Texte rangerNom(FixedText<15> &champ) {
    const Texte nom = trim(champ.text());
    champ = nom;
    return nom;
}

Texte dateEnTouteLettre(const DateTime &moment) {
    static constexpr const char16_t *jours[] = {u"Dimanche", u"Lundi",    u"Mardi", u"Mercredi",
                                                u"Jeudi",    u"Vendredi", u"Samedi"};
    static constexpr const char16_t *mois[] = {u"janvier",   u"février", u"mars",     u"avril",
                                               u"mai",       u"juin",    u"juillet",  u"août",
                                               u"septembre", u"octobre", u"novembre", u"décembre"};
    using namespace std::chrono;
    const weekday jour(sys_days(year(moment.year) / month(static_cast<unsigned>(moment.month)) /
                                day(static_cast<unsigned>(moment.day))));
    return jours[jour.c_encoding()] + (u", " + deuxChiffres(moment.day)) + u" " +
           mois[moment.month - 1] + u" " + decimal(moment.year) + u" à " +
           deuxChiffres(moment.hour) + u":" + deuxChiffres(moment.minute) + u":" +
           deuxChiffres(moment.second);
}

Texte titreDuJournal(const Globales &g) { return g.TitreAppli + u"v3.0"; }

FScore2::FScore2(Globales &globales) : Fenetre(globales, "FScore2") {
    Width = 9165;
    Height = 7455;
    parchment = true;
    Caption = Application::title;

    // clang-format off
    Etiquette[0].place = {120,   480, 1785, 315};  Resultat[0].place = {2280,  480, 6045, 315};
    Etiquette[1].place = {120,   940, 5535, 315};  Resultat[1].place = {6000,  940, 2340, 315};
    Etiquette[2].place = {120,  1400, 6375, 315};  Resultat[2].place = {6600, 1400, 1740, 315};
    Etiquette[3].place = {120,  1860, 4575, 315};  Resultat[3].place = {5640, 1860, 2700, 315};
    // clang-format on
    for (int i = 0; i < 4; ++i) {
        for (Label *texte : {&Etiquette[i], &Resultat[i]}) {
            texte->FontSize = 14;
            texte->bold = true;
        }
        Resultat[i].alignment = Alignment::right;
        Resultat[i].labelledBy = &Etiquette[i];
    }
    LstScore.place = {960, 2400, 7005, 2895};
    LstScore.accessibleName = u"Scores";
    poserBouton(CmdScore[1], {720, 5760, 1500, 1500}, u"Imprimer", [this] { CmdScore_Click(1); });
    poserBouton(CmdScore[0], {6960, 5760, 1500, 1500}, u"Quitter", [this] { CmdScore_Click(0); });
    CmdScore[0].tabIndex = 0; // the keyboard begins at the way out
}

void FScore2::Form_Load() {
    JouerParole(g, parole::score);
    screen().processEvents();
    PartieAEcrire = true;
    ScoreNonEcrit = true;
    Horodatage = dateEnTouteLettre(g.services.clock.now());
    RemplirTableau();
    CmdScore[0].Face = g.dossiers.DossierImages + u"_Quitter.tga";
    CmdScore[1].Face = g.dossiers.DossierImages + u"_IMPRIMER.tga";
    PlacerFenetre(*this, u"C");
}

Int16 FScore2::motsNonTrouves(std::size_t joueur) const {
    return g.scores.NbMotsProposes - g.scores.MotsTrouves[joueur];
}

std::vector<FScore2::Ligne> FScore2::lignesDuTableau() const {
    const ScoresPartie &s = g.scores;
    const auto paire = [](const std::array<Int16, 3> &compteur) {
        return std::array<Int16, 2>{compteur[1], compteur[2]};
    };
    const int mode = g.reglages.NombreJoueur;
    std::vector<Ligne> lignes = {{u"Mots proposés :", {s.NbMotsProposes, s.NbMotsProposes}}};
    if (mode != 2) {
        // Settled: with two players the second alone decides on the plural.
        const Int16 abandons = s.Abandons[mode == 1 ? 1 : 2];
        lignes.push_back({abandons < 2 ? u"Abandon :" : u"Abandons :", paire(s.Abandons)});
        lignes.push_back(
            {u"Mots non trouvés :", {motsNonTrouves(1), mode == 1 ? Int16() : motsNonTrouves(2)}});
    }
    lignes.push_back({u"Mauvaises lettres :", paire(s.MauvaisesLettres)});
    lignes.push_back({u"Bonnes lettres :", paire(s.BonnesLettres)});
    lignes.push_back({u"Mots trouvés :", paire(s.MotsTrouves)});
    lignes.push_back({u"Score :", paire(s.Score)});
    return lignes;
}

void FScore2::RemplirTableau() {
    const bool seul = g.reglages.NombreJoueur == 1;
    LstScore.columnWidths = seul ? std::vector{3500, 3500} : std::vector{3000, 2000, 2000};
    screen().MousePointer = pointeur::sablier;
    LstScore.Clear();
    auto &nom = g.joueurs.NomJoueur;
    for (std::size_t champ = 1; champ <= 4; ++champ) {
        rangerNom(nom[champ]);
    }
    Rows rangees;
    const auto ajouter = [&](const Texte &etiquette, const Texte &un, const Texte &deux) {
        rangees.push_back({etiquette, un});
        if (!seul) {
            rangees.back().push_back(deux);
        }
    };
    // Settled: two blanks between the names of the second player.
    ajouter(u"Nom et prénom :", trim(nom[1].text()) + u" " + trim(nom[2].text()),
            trim(nom[3].text()) + u"  " + trim(nom[4].text()));
    for (const Ligne &l : lignesDuTableau()) {
        ajouter(l.etiquette, decimal(l.valeurs[0]), decimal(l.valeurs[1]));
    }
    LstScore.mergedRows = {false, true};
    LstScore.Rows = rangees;
    g.TexteMessage.clear(); // the report prints it where it has no text of its own
}

void FScore2::Form_Activate() {
    const Reglages &r = g.reglages;
    const bool limite = r.RéflexionLimite != 0;
    const bool erreurs = r.NombreJoueur != 2;
    Etiquette[0].Caption = u" TITRE : ";
    Resultat[0].Caption = g.base.TitreBase;
    Etiquette[1].Caption = u" NOMBRE DE MOT DE LA BASE           : ";
    Resultat[1].Caption = decimal(g.scores.NbMotsBase);
    Etiquette[2].Caption = limite ? u" TEMPS DE REFLEXION                 : "
                                  : u" TEMPS DE REFLEXION LIMITE          : ";
    Resultat[2].Caption = limite ? decimal(r.TempsRéflexion) : u"NON";
    Etiquette[3].Caption = erreurs ? u" NOMBRE D'ERREURS LIMITE A          : " : u"";
    Resultat[3].Caption = erreurs ? decimal(r.NombreErreur) : u"";
}

void FScore2::Form_KeyDown(const Key &key) {
    if (key.code == Key::escape) {
        CmdScore_Click(0);
    }
}

void FScore2::CmdScore_Click(int index) {
    if (index == 1) {
        ImprimerScore();
        return;
    }
    if (PartieAEcrire && ScoreNonEcrit) {
        EcrireScore();
    }
    g.scores.NbMotsProposes = 0;
    unload();
}

void FScore2::FinirSession() {
    if (tentee_ || !(PartieAEcrire ? ScoreNonEcrit : g.scores.aMontrer())) {
        return;
    }
    if (Horodatage.empty()) { // the window has not opened
        Horodatage = dateEnTouteLettre(g.services.clock.now());
    }
    try {
        inscrire(ligneDeSeparation());
    } catch (const Failure &) {
        // Nobody is there to be told.
    }
}

void FScore2::Form_Unload() {
    PartieAEcrire = false;
    ScoreNonEcrit = false;
    tentee_ = false;
    Horodatage.clear();
    HauteurLigne = 0;
    ScoresPartie &s = g.scores;
    s.NbMotsProposes = 0;
    for (auto *compteur :
         {&s.Score, &s.MotsTrouves, &s.MauvaisesLettres, &s.BonnesLettres, &s.Abandons}) {
        (*compteur)[1] = 0;
        (*compteur)[2] = 0;
    }
}

} // namespace grimoval
