// SPDX-License-Identifier: GPL-3.0-or-later
// The text of a list, whatever program wrote it.
#pragma once

#include "platform/text.h"

#include <optional>

namespace grimoval::outils {

// UTF-8 where the bytes are well-formed UTF-8, Windows-1252 otherwise, UTF-16 behind its mark of
// order; a mark is left out. Nothing where the bytes are no text at all.
std::optional<Texte> decoder(const std::string &octets);

// Ends of lines are LF, CR LF, CR, or the line and page breaks of word processors.
std::vector<Texte> lignesDe(const Texte &texte);

// Accents composed, typographic apostrophes, hyphens and blanks made plain, ligatures of print
// taken apart, what has no width left out. Tabs and breaks stay.
Texte nettoyer(const Texte &texte);

// A line that begins a table, whatever parts its columns.
bool nommeDesColonnes(const Texte &ligne);

// Lines of a table: a spreadsheet's file, or columns pasted into a text.
class Tableau {
public:
    // A table is what the ending ".csv" says to be one, what begins with the names of two columns,
    // and what has a tab within a line. Any other text has one column.
    // The lines must outlive it.
    Tableau(const std::vector<Texte> &lignes, bool csv);

    struct Rangee {
        Texte mot, indice;
        bool noms = false;    // the names of the columns, no entry
        bool deTrop = false;  // there is more behind the second column
        bool ouverte = false; // a quotation mark has no end
    };
    Rangee lire(std::size_t numero) const; // from 0

private:
    const std::vector<Texte> &lignes_;
    std::optional<char16_t> separateur_;
    std::optional<std::size_t> noms_; // the line with the names of the columns
};

} // namespace grimoval::outils
