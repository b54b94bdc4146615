// SPDX-License-Identifier: GPL-3.0-or-later
// A theme as a person writes it: headings, entries, and what is said of what is wrong.
#include "support/themes.h"

#include <gtest/gtest.h>

namespace grimoval::test::themes {

struct ThemeSource : ReadThemes {};

TEST_F(ThemeSource, HasHeadingsAndAWordALineWithoutCommentsAndBlankLines) {
    const Theme theme =
        read("# commentaire\r\n\r\n  TITRE: Les été \t\r\nimagé   :  plage\r\n"
             "Niveau : Moyen\n\norigine : un livre : celui-là\nL'ÉTÉ CHAUD (SAISON : ICI)\n"
             "  PORTE-MANTEAU  2 \n#FIN\nDERNIER",
             u"mer_1.txt");
    EXPECT_EQ(told(), Told{});
    EXPECT_EQ(toUtf8(theme.fichier), "MER_1");
    EXPECT_EQ(toUtf8(theme.titre), "Les été");
    EXPECT_EQ(toUtf8(theme.image), "PLAGE");
    EXPECT_EQ(toUtf8(theme.niveau), "Moyen");
    EXPECT_EQ(toUtf8(theme.origine), "un livre : celui-là");
    EXPECT_EQ(words(theme), (Told{"L'ÉTÉ CHAUD (SAISON : ICI)", "PORTE-MANTEAU  2", "DERNIER"}));
    EXPECT_EQ(theme.entrees[0].ligne, 8);
    EXPECT_EQ(theme.entrees[2].ligne, 11);
}

TEST_F(ThemeSource, MayBeAPlainListOfWordsNamedByItsFile) {
    const Theme theme = read("CHAT\nCHIEN\n", u"mes_mots.txt");
    EXPECT_EQ(told(), Told{});
    EXPECT_EQ(toUtf8(theme.titre), "Mes mots");
    EXPECT_EQ(theme.image, Texte());
    EXPECT_EQ(theme.entrees.size(), 2u);
    EXPECT_EQ(toUtf8(read("Titre :\nImage :\nNiveau :\nMOTS\n").titre), "ESSAI");
    EXPECT_EQ(told(), Told{});
}

TEST_F(ThemeSource, IsPutInCapitalsButForWhatTheParenthesisHolds) {
    EXPECT_EQ(words(read("chat\nBœuf Bourguignon\nfaçade (de maison)\nLa forêt\n")),
              (Told{"CHAT", "BŒUF BOURGUIGNON", "FAÇADE (de maison)", "LA FORÊT"}));
    EXPECT_EQ(told(), Told{});
}

TEST_F(ThemeSource, ToldWhatIsWrongWithAHeading) {
    read("Titer : Faute\nTitre : Un\nTITRE : Deux\nNiveau : dur\nMOTS\nImage : TARD\nA : BCD\n");
    EXPECT_EQ(told(),
              (Told{"ESSAI.txt:1 Titer : Faute : les en-têtes sont Titre, Image, Niveau et "
                    "Origine ; un mot n'a pas de « : »",
                    "ESSAI.txt:3 TITRE : Deux : il y a déjà cet en-tête plus haut : effacez "
                    "l'un des deux",
                    "ESSAI.txt:4 Niveau : dur : le niveau est facile, moyen ou difficile",
                    "ESSAI.txt:6 Image : TARD : cette ligne doit être avant le premier "
                    "mot"}));
    read("Titre : Un titre qui dépasse trente lettres\nImage : UNEIMAGEDETROP\nMOTS\n");
    EXPECT_EQ(told(), (Told{"ESSAI.txt:1 Titre : Un titre qui dépasse trente lettres : le titre a "
                            "35 caractères : 30 au plus, raccourcissez-le",
                            "ESSAI.txt:2 Image : UNEIMAGEDETROP : le nom d'une image a 1 à 8 "
                            "lettres sans accent ou chiffres, sans .JPG : corrigez-le, ou effacez "
                            "cette ligne"}));
    read("Titre : Łódź\nMOTS\n");
    EXPECT_EQ(told(), Told{"ESSAI.txt:1 Titre : Łódź : le jeu ne connaît pas le caractère « Ł » : "
                           "remplacez-le"});
}

TEST_F(ThemeSource, ToldEachEntryThatTheGameWouldNotTakeWithItsLine) {
    read("BONNE\nBonne\nAB\nABCDEFGHIJKLMNOPQRSTUVWXYZABCDE\nŁÓDŹ VILLE\nMOT (bas permis ici)\n"
         "ÉTÉS\nTRÈS BON\n");
    const std::string few = " : il n'y a pas 3 lettres à trouver (une lettre accentuée est montrée "
                            "dès le début) : changez ou effacez cette ligne";
    EXPECT_EQ(told(),
              (Told{"ESSAI.txt:2 Bonne : ce mot est déjà à la ligne 1 : effacez l'un des deux",
                    "ESSAI.txt:3 AB" + few,
                    "ESSAI.txt:4 ABCDEFGHIJKLMNOPQRSTUVWXYZABCDE : il y a 31 caractères : 30 au "
                    "plus, raccourcissez cette ligne",
                    "ESSAI.txt:5 ŁÓDŹ VILLE : le jeu ne connaît pas le caractère « Ł » : "
                    "remplacez-le",
                    "ESSAI.txt:7 ÉTÉS" + few}));
}

TEST_F(ThemeSource, MayHaveEntriesOfExactly30CharactersAndThreeLetters) {
    read(
        "Titre : Titre de trente caractères xxx\nImage : IMAGES88\nABCDEFGHIJKLMNOPQRSTUVWXYZABCD\n"
        "A-B 2C\n");
    EXPECT_EQ(told(), Told{});
}

TEST_F(ThemeSource, MustHaveAWordAndNoMoreThanABaseHolds) {
    for (const char *source : {"", "Titre : Titre\nImage : IMAGE\n", "# rien\n\n"}) {
        read(source);
        EXPECT_EQ(told(), Told{"ESSAI.txt:0 il n'y a aucun mot : écrivez-en un par ligne"});
    }
    std::string many;
    for (int i = 0; i < 32767; ++i) {
        many += "MOT " + std::to_string(i) + "\n";
    }
    EXPECT_EQ(read(many).entrees.size(), 32767u);
    EXPECT_EQ(told(), Told{});
    read(many + "MOTDETROP\n");
    EXPECT_EQ(told(), Told{"ESSAI.txt:0 il y a plus de 32767 mots : partagez cette liste en deux"});
}

TEST_F(ThemeSource, TakesTitleAndBaseFromAnyFileName) {
    struct Row {
        const char16_t *name;
        const char *title, *stem;
    };
    for (const Row &row :
         {Row{u"Dictée de la semaine 12.txt", "Dictée de la semaine 12", "DICTEEDE"},
          Row{u"MER.TXT", "MER", "MER"}, Row{u"mots_de_la_mer.csv", "Mots de la mer", "MOTS_DE"},
          Row{u"l'œuf & l'été.txt", "L'œuf & l'été", "LOEUFLET"},
          Row{u"e\u0301te\u0301.txt", "Été", "ETE"}, Row{u"語.txt", "Mes mots", "LISTE"},
          Row{u"___.txt", "Mes mots", "___"}, Row{u".txt", ".txt", "TXT"}, Row{u"a", "A", "A"},
          Row{u"Un nom de fichier bien trop long pour un titre.txt",
              "Un nom de fichier bien trop lo", "UNNOMDEF"}}) {
        const Theme theme = read("CHAT\n", row.name);
        EXPECT_EQ(toUtf8(theme.titre), row.title);
        EXPECT_EQ(toUtf8(theme.fichier), row.stem);
        EXPECT_EQ(told(), Told{});
    }
}

TEST_F(ThemeSource, ComesBackFromWhatIsWrittenOfIt) {
    const Theme theme = read("Titre : L'été\nImage : PLAGE\nNiveau : facile\nOrigine : moi\nsable\n"
                             "mer (bleue)\n");
    const Theme again = read(outils::ecrireTheme(theme), u"AUTRE.txt");
    EXPECT_EQ(told(), Told{});
    EXPECT_EQ(again.titre, theme.titre);
    EXPECT_EQ(again.image, theme.image);
    EXPECT_EQ(again.niveau, theme.niveau);
    EXPECT_EQ(again.origine, theme.origine);
    EXPECT_EQ(words(again), words(theme));
}

} // namespace grimoval::test::themes
