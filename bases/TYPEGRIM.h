// SPDX-License-Identifier: GPL-3.0-or-later
// The records of the two files of word bases. Both are plain runs of records: no header, no
// trailer, no checksum. Integers are signed 16-bit, little-endian; texts have a fixed width, in
// Windows-1252, with blanks after them. The tools that make these files share the types.
#pragma once

#include "platform/int16.h"

namespace grimoval {

// One word of a base file (*.DBS). The game looks at Mot alone; the other fields belong to the
// program that makes the bases.
struct TypeMot {
    static constexpr int taille = 84; // bytes

    Int16 EntierDebut;
    FixedText<30> Mot;
    Int16 EntierMilieu;
    FixedText<40> TexteLong;
    FixedText<8> TexteCourt;
    Int16 EntierFin;

    // Failure 51 for bytes of another length.
    static TypeMot lire(std::string_view octets);
    // Mot alone, without the blanks around it.
    static Texte lireMot(std::string_view octets);
    std::string ecrire() const;
};

// One base of the catalogue (GRIMV.LST).
struct TypeBase {
    static constexpr int taille = 52; // bytes

    Int16 Numero;         // the record's own, from 1
    Int16 NbMots;         // word records that the base file must hold
    FixedText<8> Fichier; // stem of the base file
    FixedText<30> Titre;
    FixedText<8> Image; // stem of the JPEG picture; blank: none of its own
    Int16 Actif;        // zero: the record is dead and no file of that name may exist

    static TypeBase lire(std::string_view octets);
    std::string ecrire() const;
};

} // namespace grimoval
