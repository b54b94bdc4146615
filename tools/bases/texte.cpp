// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/texte.h"

namespace grimoval::outils {

namespace {

// Read two bytes at a time, the low one first or last; a last single byte is dropped.
Texte utf16(std::string_view octets, bool basDAbord) {
    Texte texte;
    texte.reserve(octets.size() / 2);
    for (std::size_t i = 0; i + 1 < octets.size(); i += 2) {
        const auto octet = [&](std::size_t place) {
            return static_cast<unsigned>(static_cast<unsigned char>(octets[place]));
        };
        texte += static_cast<char16_t>(basDAbord ? octet(i) | octet(i + 1) << 8
                                                 : octet(i) << 8 | octet(i + 1));
    }
    return texte;
}

struct Accent {
    char16_t signe; // combining, behind its letter
    std::u16string_view nues, accentuees;
};
constexpr Accent accents[] = {
    {0x0300, u"AEIOUaeiou", u"ÀÈÌÒÙàèìòù"},
    {0x0301, u"AEIOUYaeiouy", u"ÁÉÍÓÚÝáéíóúý"},
    {0x0302, u"AEIOUaeiou", u"ÂÊÎÔÛâêîôû"},
    {0x0303, u"ANOano", u"ÃÑÕãñõ"},
    {0x0308, u"AEIOUYaeiouy", u"ÄËÏÖÜŸäëïöüÿ"},
    {0x030A, u"Aa", u"Åå"},
    {0x030C, u"SZsz", u"ŠŽšž"},
    {0x0327, u"Cc", u"Çç"},
};

// Makes one letter of a letter and the accent behind it.
bool composer(Texte &texte, char16_t signe) {
    for (const Accent &accent : accents) {
        if (accent.signe == signe && !texte.empty()) {
            const auto place = accent.nues.find(texte.back());
            if (place != std::u16string_view::npos) {
                texte.back() = accent.accentuees[place];
                return true;
            }
        }
    }
    return false;
}

struct Remplacement {
    std::u16string_view signes;
    std::u16string_view par;
};
constexpr Remplacement remplacements[] = {
    {u"\u2018\u2019\u02BC\u2032\u00B4", u"'"},
    {u"\u00A0\u2007\u2009\u202F", u" "},
    {u"\u2010\u2011\u2013", u"-"},
    {u"\u00AD\u200B\u200C\u200D\u200E\u200F\u2060\uFEFF", u""},
    {u"\uFB00", u"ff"},
    {u"\uFB01", u"fi"},
    {u"\uFB02", u"fl"},
};

} // namespace

std::optional<Texte> decoder(const std::string &octets) {
    const std::string_view vue = octets;
    Texte texte;
    if (vue.starts_with("\xFF\xFE")) {
        texte = utf16(vue.substr(2), true);
    } else if (vue.starts_with("\xFE\xFF")) {
        texte = utf16(vue.substr(2), false);
    } else if (vue.starts_with("\xEF\xBB\xBF")) {
        texte = fromUtf8(vue.substr(3));
    } else {
        texte = isUtf8(vue) ? fromUtf8(vue) : fromAnsi(vue);
    }
    return texte.find(u'\0') == Texte::npos ? std::optional(texte) : std::nullopt;
}

std::vector<Texte> lignesDe(const Texte &texte) {
    std::vector<Texte> lignes(1);
    for (std::size_t i = 0; i < texte.size(); ++i) {
        const char16_t c = texte[i];
        if (c == u'\n' && i > 0 && texte[i - 1] == u'\r') {
            continue;
        }
        if (c == u'\n' || c == u'\r' || c == u'\v' || c == u'\f' || c == 0x2028 || c == 0x2029) {
            lignes.emplace_back();
        } else {
            lignes.back() += c;
        }
    }
    return lignes;
}

Texte nettoyer(const Texte &texte) {
    Texte propre;
    propre.reserve(texte.size());
    for (const char16_t c : texte) {
        if (c < 0x80) {
            propre += c;
            continue;
        }
        std::u16string_view par(&c, 1);
        for (const Remplacement &remplacement : remplacements) {
            if (remplacement.signes.find(c) != std::u16string_view::npos) {
                par = remplacement.par;
            }
        }
        if (!composer(propre, c)) {
            propre += par;
        }
    }
    return propre;
}

} // namespace grimoval::outils
