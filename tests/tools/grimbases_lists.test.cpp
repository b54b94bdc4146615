// SPDX-License-Identifier: GPL-3.0-or-later
// A person's own lists in an installed game: added, replaced, taken out, kept through an upgrade.
#include "support/installed_game.h"

#include <sys/stat.h>
#include <unistd.h>

namespace grimoval::test::grimbases_lists {

using Names = std::vector<std::string>;

struct OwnLists : InstalledGame {
    OwnLists() : InstalledGame(GRIMBASES) { good({"refaire"}); }

    // A game on a key, say: the bases alone.
    void copyWithoutSources() const {
        folder.makeFolder(u"cle/MASK");
        good({"construire", in(game + u"mots"), in(u"cle/MASK")});
    }
    static Offer with(Offer offer, const std::string &title, const Names &words) {
        offer[title] = words;
        return offer;
    }
};

TEST_F(OwnLists, StartFromTheThemesOfTheGame) {
    EXPECT_EQ(names(var),
              (Names{"MASK/CIEL.DBS", "MASK/GRIMV.LST", "MASK/MER.DBS", "bases-faites.txt"}));
    EXPECT_EQ(offered(), shippedOffer);
    EXPECT_EQ(run({"verifier"}).output, "2 thèmes, 3 mots : le jeu acceptera tout.\n");
}

TEST_F(OwnLists, AreAddedInOneCommandAndKept) {
    const Answer answer =
        run({"ajouter", list(u"Dictée de la semaine 12.txt", "chat\r\nl’île\r\nŒuf dur\r\n"),
             list(u"Dictée de la semaine 13.csv", "mot;indice\ncheval;animal\n")});
    EXPECT_EQ(answer.status, 0) << answer.errors;
    EXPECT_EQ(answer.errors, "");
    EXPECT_EQ(answer.output, "Dictée de la semaine 12 : 3 mots, dans DICTEEDE.DBS\n"
                             "Dictée de la semaine 13 : 1 mot, dans DICTEE_2.DBS\n"
                             "Dans le jeu : bouton « Changer de thème ».\n");
    const Offer all =
        with(with(shippedOffer, "Dictée de la semaine 12", {"CHAT", "L'ÎLE", "ŒUF DUR"}),
             "Dictée de la semaine 13", {"CHEVAL (animal)"});
    EXPECT_EQ(offered(), all);
    EXPECT_EQ(names(var + u"listes/"), (Names{"DICTEEDE.txt", "DICTEE_2.txt"}));

    // A new version of the game comes with other themes.
    shipped(u"MER.txt", "Titre : La mer\nDAUPHIN\nBALEINE\nORQUE\n");
    shipped(u"DICTEEDE.txt", "Titre : Les dictées\nFAUTE\n");
    std::filesystem::remove(in(game + u"mots/CIEL.txt"));
    good({"refaire"});
    Offer upgraded =
        with(with(all, "La mer", {"DAUPHIN", "BALEINE", "ORQUE"}), "Les dictées", {"FAUTE"});
    upgraded.erase("Le ciel");
    EXPECT_EQ(offered(), upgraded);
    const Names made = names(var + u"MASK/");
    good({"refaire"}); // and nothing of it moves when it is done again
    EXPECT_EQ(names(var + u"MASK/"), made);
}

TEST_F(OwnLists, OfOneTitleAreReplacedNotDoubled) {
    const std::string file = list(u"semaine.txt", "Titre : Ma semaine\nLUNDI\n");
    good({"ajouter", file});
    good({"ajouter", file});
    EXPECT_EQ(names(var + u"MASK/").size(), 4u);
    list(u"semaine.txt", "Titre : ma Semaine\nLUNDI\nMARDI\n");
    const Answer answer = run({"ajouter", file});
    EXPECT_EQ(answer.output.substr(answer.output.find('\n') + 1),
              "Une liste du même titre est remplacée.\n"
              "Dans le jeu : bouton « Changer de thème ».\n");
    EXPECT_EQ(offered(), with(shippedOffer, "ma Semaine", {"LUNDI", "MARDI"}));
    EXPECT_EQ(names(var + u"listes/").size(), 1u);
    EXPECT_EQ(names(var + u"MASK/").size(), 4u);
}

TEST_F(OwnLists, TakeThePlaceOfAThemeOfTheGameAlsoAfterAnUpgrade) {
    good({"ajouter", list(u"a.txt", "Titre : la Mér\nALGUE\n")});
    Offer expected = with(shippedOffer, "la Mér", {"ALGUE"});
    expected.erase("La mer");
    EXPECT_EQ(offered(), expected);
    good({"refaire"});
    EXPECT_EQ(offered(), expected);
}

TEST_F(OwnLists, ComeBackWhereTheFolderOfTheBasesIsGone) {
    good({"ajouter", list(u"a.txt", "ALGUE\n")});
    std::filesystem::remove_all(in(var + u"MASK"));
    good({"refaire", in(game)});
    EXPECT_EQ(offered(), with(shippedOffer, "A", {"ALGUE"}));
}

TEST_F(OwnLists, GoWhenAsked) {
    good({"ajouter", list(u"a.txt", "Titre : Un\nALGUE\n"),
          list(u"b.txt", "Titre : L'été\nSABLE\n"), list(u"c.txt", "Titre : Trois\nPLAGE\n")});
    good({"retirer", "A.dbs", "l’ete"});
    EXPECT_EQ(offered(), with(shippedOffer, "Trois", {"PLAGE"}));
    EXPECT_EQ(names(var + u"listes/"), Names{"C.txt"});
    good({"refaire"});
    EXPECT_EQ(offered(), with(shippedOffer, "Trois", {"PLAGE"}));
    const Answer shippedOne = run({"retirer", "MER", in(game)});
    EXPECT_EQ(shippedOne.output,
              "La mer : retiré. Un thème de ce nom vient avec le jeu : « grimbases refaire » ou "
              "une mise à jour le remettra.\n");
    const Answer unknown = run({"retirer", "Le cie"});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_EQ(unknown.errors, "grimbases : aucun thème ne s'appelle « Le cie » : vouliez-vous dire "
                              "« Le ciel » ?\n");
    const Answer last = run({"retirer", "CIEL", "Trois"});
    EXPECT_EQ(last.status, 1);
    EXPECT_EQ(last.errors, "grimbases : il ne resterait aucun thème, et le jeu en a besoin d'un : "
                           "rien n'est changé\n");
    EXPECT_EQ(offered().size(), 2u);
}

TEST_F(OwnLists, ChangeNothingWhereOneOfThemIsBad) {
    const Names before = names(u"");
    const Answer answer =
        run({"ajouter", list(u"a.txt", "ALGUE\n"), list(u"b.txt", "SABLE\nXY\n")});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.errors.substr(0, 10), "b.txt:2 : ");
    EXPECT_NE(answer.errors.find("grimbases : rien n'est changé.\n"), std::string::npos);
    EXPECT_EQ(offered(), shippedOffer);
    EXPECT_EQ(names(u"").size(), before.size() + 2);
}

TEST_F(OwnLists, MayNameAPictureOfTheGameAndAreToldOfOneThatIsMissing) {
    EXPECT_EQ(run({"ajouter", list(u"a.txt", "Image : mer\nALGUE\n")}).errors, "");
    const Answer answer = run({"ajouter", list(u"b.txt", "Image : PLAGE\nSABLE\n")});
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.errors, "b.txt : remarque : l'image PLAGE.JPG n'est pas dans " +
                                 in(game + u"IMAGES") + " : le jeu en prendra une des siennes\n");
}

TEST_F(OwnLists, OfAnOrdinaryUserAskForTheAdministrator) {
    if (::geteuid() != 0) {
        std::filesystem::permissions(in(var), std::filesystem::perms(0555));
        std::filesystem::permissions(in(var + u"MASK"), std::filesystem::perms(0555));
    }
    const std::string file = list(u"ma liste.txt", "ALGUE\n");
    const Answer answer = test::run({in(u"usr/bin/grimbases"), "ajouter", file}, {}, true);
    std::filesystem::permissions(in(var), std::filesystem::perms(0755));
    std::filesystem::permissions(in(var + u"MASK"), std::filesystem::perms(0755));
    EXPECT_EQ(answer.status, 1);
    EXPECT_NE(
        answer.errors.find("Recommencez en mettant sudo devant :\n  sudo grimbases ajouter '" +
                           file + "'\n"),
        std::string::npos)
        << answer.errors;
    EXPECT_EQ(offered(), shippedOffer);
}

TEST_F(OwnLists, AreReadableForEveryAccountWhateverTheAdministratorHidesElse) {
    const mode_t before = ::umask(077);
    const Answer answer = run({"ajouter", list(u"a.txt", "ALGUE\n")});
    ::umask(before);
    EXPECT_EQ(answer.status, 0) << answer.errors;
    for (const Texte &name : {Texte(u"MASK/A.DBS"), Texte(u"MASK/GRIMV.LST"), Texte(u"listes"),
                              Texte(u"listes/A.txt")}) {
        const auto rights = std::filesystem::status(in(var + name)).permissions();
        EXPECT_NE(rights & std::filesystem::perms::others_read, std::filesystem::perms::none)
            << toUtf8(name);
    }
}

TEST_F(OwnLists, ThatBecameBadAreLeftOutOfAnUpgradeWhichGoesOn) {
    good({"ajouter", list(u"a.txt", "ALGUE\n"), list(u"b.txt", "SABLE\n")});
    folder.write(var + u"listes/A.txt", "XY\n");
    const Answer answer = run({"refaire"});
    EXPECT_EQ(answer.status, 0) << answer.errors;
    EXPECT_NE(answer.errors.find("listes/A.txt : cette liste est laissée de côté."),
              std::string::npos);
    EXPECT_EQ(offered(), with(shippedOffer, "B", {"SABLE"}));
}

TEST_F(OwnLists, OfAGameWithoutSourcesAreInItsBasesAlone) {
    copyWithoutSources();
    good({"ajouter", list(u"a.txt", "ALGUE\n"), in(u"cle/MASK")});
    EXPECT_EQ(names(u"cle/"),
              (Names{"MASK/A.DBS", "MASK/CIEL.DBS", "MASK/GRIMV.LST", "MASK/MER.DBS"}));
    good({"retirer", "Le ciel", in(u"cle")});
    EXPECT_EQ(names(u"cle/"), (Names{"MASK/A.DBS", "MASK/GRIMV.LST", "MASK/MER.DBS"}));
    EXPECT_EQ(offered(), shippedOffer); // the installed game is another one
}

TEST_F(OwnLists, AreAddedBesideBadBasesWithAWarning) {
    copyWithoutSources();
    std::filesystem::remove(in(u"cle/MASK/MER.DBS"));
    const Answer answer = run({"ajouter", list(u"a.txt", "ALGUE\n"), in(u"cle")});
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.errors,
              "Attention : d'autres bases de ce dossier ont un défaut. « grimbases verifier » le "
              "dit, « grimbases refaire » recrée la liste.\n");
    good({"refaire", in(u"cle")});
    good({"verifier", in(u"cle")});
}

TEST_F(OwnLists, OfAGameWithoutSourcesGetAListAgain) {
    copyWithoutSources();
    const std::string list = folder.read(u"cle/MASK/GRIMV.LST");
    folder.write(u"cle/MASK/GRIMV.LST", list.substr(52) + list.substr(0, 52) + "x");
    EXPECT_EQ(run({"verifier", in(u"cle")}).status, 1);
    good({"refaire", in(u"cle")});
    EXPECT_EQ(run({"lister", in(u"cle")}).output,
              "La mer (MER.DBS, 2 mots, image MER)\n  DAUPHIN\n"
              "  BALEINE\nLe ciel (CIEL.DBS, 1 mot)\n  NUAGE\n");
    std::filesystem::remove(in(u"cle/MASK/GRIMV.LST"));
    good({"refaire", in(u"cle")});
    EXPECT_EQ(run({"lister", in(u"cle")}).output,
              "CIEL (CIEL.DBS, 1 mot)\n  NUAGE\nMER (MER.DBS, 2 mots)\n  DAUPHIN\n  BALEINE\n");
}

TEST_F(OwnLists, ThatTwoPeopleAddAtOnceBothCome) {
    const Answer answer =
        test::run({"/bin/sh", "-c",
                   "for i in 1 2 3 4 5 6 7 8; do printf 'MOT %s BIS\\n' $i >\"$2/l$i.txt\"; "
                   "\"$1\" ajouter \"$2/l$i.txt\" & done; wait",
                   "sh", in(u"usr/bin/grimbases"), in(u"")});
    EXPECT_EQ(answer.errors, "");
    EXPECT_EQ(offered().size(), 10u);
    EXPECT_EQ(names(var + u"listes/").size(), 8u);
}

TEST_F(OwnLists, ComeOutAsTextsThatMakeTheSameBases) {
    good({"extraire", in(u"textes")});
    EXPECT_EQ(folder.read(u"textes/MER.txt"), "Titre : La mer\nImage : MER\n\nDAUPHIN\nBALEINE\n");
    folder.makeFolder(u"neuf");
    good({"construire", in(u"textes"), in(u"neuf")});
    for (const std::string &name : names(u"neuf/")) {
        EXPECT_EQ(folder.read(u"neuf/" + fromUtf8(name)),
                  folder.read(var + u"MASK/" + fromUtf8(name)));
    }
    good({"extraire", in(u"textes")}); // the same once more
    folder.write(u"textes/MER.txt", "à moi");
    const Answer answer = run({"extraire", in(u"textes")});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.errors, "MER.txt : ce fichier existe déjà, il reste ce qu'il est : choisissez "
                             "un dossier vide\n");
    EXPECT_EQ(folder.read(u"textes/MER.txt"), "à moi");
}

TEST_F(OwnLists, OfOtherProgramsComeOutWithWhatASourceWouldRefuse) {
    folder.write(u"M/A.DBS", wordRecords({u"chat", u"AB"}));
    folder.write(u"M/B.DBS", wordRecords({u"chat"}));
    folder.write(u"M/GRIMV.LST", baseRecord(1, 2, u"A", u"Un") + baseRecord(2, 1, u"B", u"Deux") +
                                     baseRecord(3, 1, u"../X", u"Trois"));
    const Answer answer = run({"extraire", in(u"M"), in(u"textes")});
    EXPECT_EQ(answer.status, 1);
    EXPECT_NE(answer.errors.find("A.txt:4 : AB : il n'y a pas 3 lettres"), std::string::npos);
    EXPECT_NE(answer.errors.find("B.txt : remarque : ce texte donnera une base un peu différente"),
              std::string::npos);
    EXPECT_NE(answer.errors.find("../X.txt : ce nom n'est pas celui d'une base"),
              std::string::npos);
    EXPECT_EQ(names(u"textes/"), (Names{"A.txt", "B.txt"}));
}

} // namespace grimoval::test::grimbases_lists
