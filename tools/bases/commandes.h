// SPDX-License-Identifier: GPL-3.0-or-later
// The words of grimbases: what each takes, what it says, what it does.
#pragma once

#include "tools/bases/lieu.h"
#include "tools/bases/probleme.h"
#include "tools/bases/verrou.h"

#include <iosfwd>

namespace grimoval::outils {

enum Statut { bon = 0, mauvaisesBases = 1, mauvaisAppel = 2 };

// Ends a command with a sentence.
struct Arret {
    Statut statut;
    Texte texte;
};

struct Appel {
    Files fichiers;
    std::vector<Texte> mots;    // behind the command
    std::optional<Texte> ligne; // the call, where it can be typed again
    std::ostream &sortie, &erreurs;
    std::chrono::milliseconds attente = Verrou::patience; // for another writer

    // A word that names a folder of bases, or else the installed game.
    Lieu lieu(const Texte *dossier);
};

struct Commande {
    std::u16string_view nom;
    std::size_t moins, plus; // words behind it
    const char *usage;
    const char *aide;
    int (*faire)(Appel &);
};

int construire(Appel &appel);
int ajouter(Appel &appel);
int retirer(Appel &appel);
int refaire(Appel &appel);
int verifier(Appel &appel);
int lister(Appel &appel);
int extraire(Appel &appel);

// What a failure with a file or folder means; where rights are missing, how to call again.
Texte raison(const Appel &appel, const Texte &chemin, int numero);

// Does something with a file or folder; a failure ends the command with its reason.
template <class Action>
auto avec(Appel &appel, const Texte &chemin, Action action) {
    try {
        return action();
    } catch (const Failure &erreur) {
        throw Arret{mauvaisesBases, raison(appel, chemin, erreur.number)};
    }
}

// The grave problems end the command, with what was left undone.
void arreterSiGrave(Appel &appel, const Problemes &problemes);

Texte compter(int nombre, const Texte &un); // "1 mot", "2 mots"

} // namespace grimoval::outils
