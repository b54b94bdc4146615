// SPDX-License-Identifier: GPL-3.0-or-later
#include "bases/TYPEGRIM.h"

#include <cstdint>

namespace grimoval {

namespace {

class Lecteur {
public:
    Lecteur(std::string_view octets, int taille) : octets_(octets) {
        if (octets.size() != static_cast<std::size_t>(taille)) {
            throw Failure(failure::internal);
        }
    }
    Lecteur &operator>>(Int16 &entier) {
        const auto octet = [this](std::size_t place) {
            return static_cast<unsigned>(static_cast<unsigned char>(octets_[place]));
        };
        entier = static_cast<std::int16_t>(octet(0) | octet(1) << 8);
        octets_.remove_prefix(2);
        return *this;
    }
    template <std::size_t Largeur>
    Lecteur &operator>>(FixedText<Largeur> &texte) {
        texte = fromAnsi(octets_.substr(0, Largeur));
        octets_.remove_prefix(Largeur);
        return *this;
    }

private:
    std::string_view octets_;
};

class Redacteur {
public:
    Redacteur &operator<<(Int16 entier) {
        octets_ += static_cast<char>(entier & 0xFF);
        octets_ += static_cast<char>((entier >> 8) & 0xFF);
        return *this;
    }
    template <std::size_t Largeur>
    Redacteur &operator<<(const FixedText<Largeur> &texte) {
        octets_ += toAnsi(texte.text());
        return *this;
    }
    std::string octets() { return std::move(octets_); }

private:
    std::string octets_;
};

} // namespace

TypeMot TypeMot::lire(std::string_view octets) {
    TypeMot mot;
    Lecteur(octets, taille) >> mot.EntierDebut >> mot.Mot >> mot.EntierMilieu >> mot.TexteLong >>
        mot.TexteCourt >> mot.EntierFin;
    return mot;
}

Texte TypeMot::lireMot(std::string_view octets) {
    if (octets.size() != static_cast<std::size_t>(taille)) {
        throw Failure(failure::internal);
    }
    const std::string_view mot = octets.substr(2, 30);
    const auto debut = mot.find_first_not_of(' ');
    return debut == std::string_view::npos
               ? Texte()
               : fromAnsi(mot.substr(debut, mot.find_last_not_of(' ') - debut + 1));
}

std::string TypeMot::ecrire() const {
    Redacteur redacteur;
    redacteur << EntierDebut << Mot << EntierMilieu << TexteLong << TexteCourt << EntierFin;
    return redacteur.octets();
}

TypeBase TypeBase::lire(std::string_view octets) {
    TypeBase base;
    Lecteur(octets, taille) >> base.Numero >> base.NbMots >> base.Fichier >> base.Titre >>
        base.Image >> base.Actif;
    return base;
}

std::string TypeBase::ecrire() const {
    Redacteur redacteur;
    redacteur << Numero << NbMots << Fichier << Titre << Image << Actif;
    return redacteur.octets();
}

} // namespace grimoval
