// SPDX-License-Identifier: GPL-3.0-or-later
#include "bases/GLBBASE2.h"

#include <optional>

namespace grimoval {

Int16 CompterMots(Globales &g, const Texte &fichier) {
    const RecordFile base(g.services.files, g.dossiers.DossierBases + fichier, TypeMot::taille);
    const std::int64_t nombre = base.count();
    if (nombre > 32767) {
        throw Failure(failure::overflow);
    }
    return static_cast<int>(nombre);
}

void ChargerMots(Globales &g, FMenu &menu, const std::function<void(int)> &traitement) {
    menu.LstMot[0].Clear();
    std::optional<RecordFile> base;
    std::int64_t nombre = 0;
    essayer(
        [&] {
            base.emplace(g.services.files,
                         g.dossiers.DossierBases + insideFolder(g.base.FichierBase),
                         TypeMot::taille);
            nombre = base->count();
        },
        traitement);
    TypeMot EnregMot;
    std::vector<Texte> mots;
    mots.reserve(static_cast<std::size_t>(nombre));
    for (std::int64_t i = 1; i <= nombre; ++i) {
        essayer([&] { EnregMot = TypeMot::lire(base->read(i)); }, traitement);
        mots.push_back(trim(EnregMot.Mot.text()));
    }
    menu.LstMot[0].Items = mots;
}

} // namespace grimoval
