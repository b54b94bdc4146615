// SPDX-License-Identifier: GPL-3.0-or-later
#include "bases/GLBBASE2.h"

#include <optional>

namespace grimoval {

namespace {

// The list of bases tells the count in 16 bits: a base of more words is none.
Int16 compter(const RecordFile &base) {
    const std::int64_t nombre = base.count();
    if (nombre > 32767) {
        throw Failure(failure::overflow);
    }
    return static_cast<int>(nombre);
}

} // namespace

Int16 CompterMots(Globales &g, const Texte &fichier) {
    return compter(
        RecordFile(g.services.files, g.dossiers.DossierBases + fichier, TypeMot::taille));
}

void ChargerMots(Globales &g, FMenu &menu, const std::function<void(int)> &traitement) {
    menu.LstMot[0].Clear();
    std::optional<RecordFile> base;
    Int16 nombre;
    essayer(
        [&] {
            base.emplace(g.services.files,
                         g.dossiers.DossierBases + insideFolder(g.base.FichierBase),
                         TypeMot::taille);
            nombre = compter(*base);
        },
        traitement);
    FixedText<30> &EnregMot = g.base.MotLu; // of the record, the word alone
    std::vector<Texte> mots;
    mots.reserve(static_cast<std::size_t>(nombre));
    for (int i = 1; i <= nombre; ++i) {
        essayer([&] { EnregMot = TypeMot::lireMot(base->read(i)); }, traitement);
        mots.push_back(trim(EnregMot.text()));
    }
    menu.LstMot[0].Items = std::move(mots);
}

} // namespace grimoval
