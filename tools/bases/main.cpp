// SPDX-License-Identifier: GPL-3.0-or-later
// grimbases: makes, changes, checks and prints word bases.
#include "tools/bases/commandes.h"
#include "tools/bases/ligne.h"
#include "tools/bases/noms.h"

#include <algorithm>
#include <csignal>
#include <iostream>
#include <sys/stat.h>

namespace {

using namespace grimoval;
using namespace grimoval::outils;

constexpr Commande commandes[] = {
    {u"ajouter", 1, 1000, "grimbases ajouter LISTE... [DOSSIER]",
     "ajoute vos listes de mots au jeu ; une liste du même titre est remplacée", ajouter},
    {u"retirer", 1, 1000, "grimbases retirer THÈME... [DOSSIER]",
     "retire des thèmes, nommés par leur titre ou leur base", retirer},
    {u"lister", 0, 1, "grimbases lister [DOSSIER]", "montre les thèmes et leurs mots", lister},
    {u"verifier", 0, 1, "grimbases verifier [DOSSIER]",
     "dit tout ce que le jeu refuserait, et pourquoi", verifier},
    {u"refaire", 0, 1, "grimbases refaire [DOSSIER]",
     "recrée les bases du jeu et celles que vous avez ajoutées, et leur liste", refaire},
    {u"extraire", 1, 2, "grimbases extraire [DOSSIER] SORTIE",
     "écrit chaque thème comme un texte, NOM.txt, dans le dossier SORTIE", extraire},
    {u"construire", 2, 1000, "grimbases construire SOURCES... DOSSIER",
     "fait de dossiers de listes toutes les bases d'un dossier, et leur liste", construire},
};

constexpr const char *suite =
    "DOSSIER est le dossier MASK d'un jeu ; sans lui, c'est le jeu installé.\n"
    "Une liste est un texte, ou le CSV d'un tableur : un mot par ligne ; une deuxième colonne, ou\n"
    "une parenthèse, donne un indice. Avant le premier mot on peut écrire :\n"
    "  Titre : Les animaux\n"
    "  Image : NOM\n"
    "  Niveau : facile, moyen ou difficile\n"
    "Statut : 0 tout est bon ; 1 une liste ou une base ne va pas ; 2 l'appel ne va pas.\n"
    "Tout est dans « man grimbases ».\n";

void aider(std::ostream &sortie) {
    sortie << "Usage : grimbases COMMANDE ...\n\n";
    for (const Commande &commande : commandes) {
        sortie << "  " << commande.usage << "\n      " << commande.aide << '\n';
    }
    sortie << "\n  grimbases [COMMANDE] --aide, grimbases --version\n\n" << suite;
}

void aider(const Commande &commande, std::ostream &sortie) {
    sortie << "Usage : " << commande.usage << "\n  " << commande.aide << "\n\n" << suite;
}

bool demandeDAide(const Texte &mot) { return mot == u"--aide" || mot == u"--help" || mot == u"-h"; }

int refuserLaCommande(const Texte &mot) {
    std::vector<Texte> connues;
    std::transform(std::begin(commandes), std::end(commandes), std::back_inserter(connues),
                   [](const Commande &commande) { return Texte(commande.nom); });
    const Texte proche = leplusProche(mot, connues);
    std::cerr << "grimbases : la commande « " << toUtf8(extrait(mot)) << " » n'existe pas";
    if (proche.empty()) {
        std::cerr << ".\n\n";
        aider(std::cerr);
    } else {
        std::cerr << " : vouliez-vous dire « " << toUtf8(proche) << " » ?\n";
    }
    return mauvaisAppel;
}

int executer(Appel &appel) {
    if (appel.mots.empty()) {
        aider(std::cerr);
        return mauvaisAppel;
    }
    const Texte mot = appel.mots.front();
    appel.mots.erase(appel.mots.begin());
    if (demandeDAide(mot)) {
        aider(std::cout);
        return bon;
    }
    if (mot == u"--version") {
        std::cout << "grimbases " GRIMOVAL_VERSION "\n";
        return bon;
    }
    const auto commande =
        std::find_if(std::begin(commandes), std::end(commandes), [&](const Commande &rangee) {
            return upper(rangee.nom) == plainCapitals(mot);
        });
    if (commande == std::end(commandes)) {
        return refuserLaCommande(mot);
    }
    if (std::any_of(appel.mots.begin(), appel.mots.end(), demandeDAide)) {
        aider(*commande, std::cout);
        return bon;
    }
    if (appel.mots.size() < commande->moins || appel.mots.size() > commande->plus) {
        aider(*commande, std::cerr);
        return mauvaisAppel;
    }
    return commande->faire(appel);
}

} // namespace

int main(int nombre, char **arguments) {
    // What is made is there for every account, also where the administrator's own files are not.
    ::umask(::umask(0) & 022);
    std::signal(SIGXFSZ, SIG_IGN); // beyond a limit of file size the disk is full, and no more
    const std::vector<std::string> mots(arguments + std::min(1, nombre), arguments + nombre);
    Appel appel{{}, {}, ligneDe(mots), std::cout, std::cerr};
    std::transform(mots.begin(), mots.end(), std::back_inserter(appel.mots), fromPath);
    try {
        return executer(appel);
    } catch (const Arret &arret) {
        std::cerr << "grimbases : " << toUtf8(arret.texte) << '\n';
        return arret.statut;
    } catch (const Failure &erreur) {
        std::cerr << "grimbases : " << toUtf8(failureMeaning(erreur.number)) << " (erreur "
                  << erreur.number << ")\n";
        return mauvaisesBases;
    }
}
