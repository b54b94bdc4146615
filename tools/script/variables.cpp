// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/script/program.h"

namespace grimoval::script {

namespace {

class Printer {
public:
    explicit Printer(const scripted::Sink &sink) : sink_(sink) {}

    void operator()(const std::string &name, const Texte &text) { line(name, shownValue(text)); }
    void operator()(const std::string &name, bool value) { line(name, shownValue(value)); }
    void operator()(const std::string &name, const Int16 &value) {
        line(name, shownValue(static_cast<int>(value)));
    }
    template <std::size_t Width>
    void operator()(const std::string &name, const FixedText<Width> &text) {
        (*this)(name, text.text());
    }
    template <class Value, std::size_t Size>
    void operator()(const std::string &name, const std::array<Value, Size> &values) {
        for (std::size_t i = 0; i < Size; ++i) {
            (*this)(name + "(" + std::to_string(i) + ")", values[i]);
        }
    }
    // A time of day or a difference of two, as hh:mm:ss.
    void time(const std::string &name, int seconds) {
        const auto two = [](int value) {
            return std::string(value < 10 ? "0" : "") + std::to_string(value);
        };
        line(name, two(seconds / 3600) + ":" + two(seconds / 60 % 60) + ":" + two(seconds % 60));
    }

private:
    void line(const std::string &name, const std::string &value) { sink_(name + " = " + value); }
    const scripted::Sink &sink_;
};

} // namespace

void printVariables(const Globales &g, const FMenu &menu, const scripted::Sink &sink) {
    Printer print(sink);
#define PRINT(owner, name) print(#name, (owner).name)
    PRINT(g, TitreAppli);
    PRINT(g, SautLigne);
    PRINT(g, TexteMessage);
    PRINT(g, IndiceBoucle);
    PRINT(g, ReponseFenetre);
    PRINT(g, FenetreModale);
    PRINT(g, BoutonSite);
    PRINT(g, ListeObligatoire);
    PRINT(g.dossiers, DossierAppli);
    PRINT(g.dossiers, DossierBases);
    PRINT(g.dossiers, DossierSons);
    PRINT(g.dossiers, DossierImages);
    PRINT(g.dossiers, DossierUtilisateur);
    PRINT(g.dossiers, DossierTemp);
    PRINT(g.dossiers, DossierScore);
    PRINT(g.reglages, NombreJoueur);
    PRINT(g.reglages, RéflexionLimite);
    PRINT(g.reglages, TempsRéflexion);
    PRINT(g.reglages, NombreErreur);
    PRINT(g.son, ParoleActive);
    PRINT(g.son, MusiqueActive);
    PRINT(g.son, WavPresent);
    PRINT(g.son, MidiPresent);
    PRINT(g.son, ConfDep);
    PRINT(g.joueurs, NomJoueur);
    PRINT(g.base, BaseChargee);
    PRINT(g.base, TitreBase);
    PRINT(g.base, FichierBase);
    PRINT(g.base, ImageBase);
    PRINT(g.scores, Score);
    PRINT(g.scores, MotsTrouves);
    PRINT(g.scores, MauvaisesLettres);
    PRINT(g.scores, BonnesLettres);
    PRINT(g.scores, Abandons);
    PRINT(g.scores, ChangementsTour);
    PRINT(g.scores, NbMotsProposes);
    PRINT(g.scores, NbMotsBase);
    print.time("HeureDebut", g.scores.HeureDebut);
    print.time("HeureCourante", g.scores.HeureCourante);
    print.time("TempsEcoule", g.scores.TempsEcoule);
    PRINT(menu, MotCherche);
    PRINT(menu, MotAffiche);
    PRINT(menu, LongueurMot);
    PRINT(menu, NbLettres);
    PRINT(menu, ErreursMot);
    PRINT(menu, JoueurCourant);
    PRINT(menu, IndiceLettre);
    PRINT(menu, IndiceTirage);
    PRINT(menu, BonneLettre);
    PRINT(menu, PartieEnCours);
    PRINT(menu, FluxActif);
    PRINT(menu, FluxArme);
    PRINT(menu, MessageEchec);
#undef PRINT
}

} // namespace grimoval::script
