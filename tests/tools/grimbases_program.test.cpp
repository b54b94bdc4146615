// SPDX-License-Identifier: GPL-3.0-or-later
// grimbases as a program: its words, its answers, and nothing written when a source is bad.
#include "support/game.h"
#include "support/process.h"

#include <gtest/gtest.h>

namespace grimoval::test::grimbases_program {

struct Grimbases : testing::Test {
    TemporaryFolder folder;

    static Answer run(std::vector<std::string> words) {
        words.insert(words.begin(), GRIMBASES);
        return test::run(words);
    }
    std::string in(const Texte &name) const { return folder.bytePath(name); }
    Answer make() { return run({"construire", in(u"sources"), in(u"MASK")}); }
    void source(const Texte &name, const std::string &text) {
        folder.write(u"sources/" + name, text);
        folder.makeFolder(u"MASK");
    }
    std::vector<std::string> made() const {
        std::vector<std::string> names;
        for (const std::string &name : folder.list()) {
            if (name.starts_with("MASK/") && name != "MASK/") {
                names.push_back(name.substr(5));
            }
        }
        return names;
    }
};

TEST_F(Grimbases, MakesABaseOfEachSourceAndTheList) {
    source(u"mer.txt", "Titre : La mer\nDAUPHIN\nBALEINE\n");
    source(u"ciel.txt", "Titre : Le ciel\nImage : CIEL\nNUAGE\n");
    const Answer answer = make();
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.output + answer.errors, "");
    EXPECT_EQ(made(), (std::vector<std::string>{"CIEL.DBS", "GRIMV.LST", "MER.DBS"}));
    EXPECT_EQ(run({"verifier", in(u"MASK")}).output, "2 thèmes, 3 mots : le jeu acceptera tout.\n");
    EXPECT_EQ(run({"lister", in(u"MASK")}).output,
              "Le ciel (CIEL.DBS, 1 mot, image CIEL)\n  NUAGE\n"
              "La mer (MER.DBS, 2 mots)\n  DAUPHIN\n  BALEINE\n");
}

TEST_F(Grimbases, WritesNothingWhenASourceIsBadAndTellsTheLine) {
    source(u"BON.txt", "Titre : Bon\nDAUPHIN\n");
    source(u"MAUVAIS.txt", "Titre : Mauvais\nDAUPHIN\ndauphin\n");
    const Answer answer = make();
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.errors,
              "MAUVAIS.txt:3 : dauphin : ce mot est déjà à la ligne 2 : effacez l'un des deux\n"
              "grimbases : rien n'est changé.\n");
    EXPECT_EQ(made(), std::vector<std::string>{});
}

TEST_F(Grimbases, RefusesTwoSourcesOfOneTitle) {
    source(u"mer.txt", "DAUPHIN\n");
    source(u"MER.txt", "BALEINE\n");
    const Answer answer = make();
    EXPECT_EQ(answer.status, 1);
    EXPECT_NE(answer.errors.find("le titre « Mer » est déjà celui de MER.txt"), std::string::npos)
        << answer.errors;
    EXPECT_EQ(made(), std::vector<std::string>{});
}

TEST_F(Grimbases, TakesSeveralFoldersAndNumbersNamesThatAreAlike) {
    source(u"mer.txt", "Titre : Un\nDAUPHIN\n");
    folder.write(u"autres/MER.csv", "Titre : Deux;\nmot;indice\nbaleine;mammifère\n");
    const Answer answer = run({"construire", in(u"sources"), in(u"autres"), in(u"MASK")});
    EXPECT_EQ(answer.status, 0) << answer.errors;
    EXPECT_EQ(made(), (std::vector<std::string>{"GRIMV.LST", "MER.DBS", "MER_2.DBS"}));
}

TEST_F(Grimbases, SaysSoWhenThereIsNoSource) {
    folder.makeFolder(u"sources");
    const Answer answer = make();
    EXPECT_EQ(answer.status, 1);
    EXPECT_NE(answer.errors.find("aucun fichier .txt ou .csv"), std::string::npos);
}

TEST_F(Grimbases, TellsTheProblemsOfAFolderAndAnswersByItsStatus) {
    folder.write(u"MASK/A.DBS", wordRecords({u"CHAT"}));
    folder.write(u"MASK/GRIMV.LST", baseRecord(1, 2, u"A"));
    const Answer answer = run({"verifier", in(u"MASK")});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.errors,
              "A.DBS:1 : la liste annonce 2 mots, le fichier en a 1\n"
              "GRIMV.LST : aucune base n'est bonne : le jeu s'arrête\n"
              "grimbases : « grimbases refaire » peut recréer la liste des bases.\n");
}

TEST_F(Grimbases, PrintsDeadBasesWithoutWordsAndWhatCannotBeShownInShort) {
    folder.write(u"MASK/ETE.DBS", wordRecords({u"ÉTÉ", u"SABLE\x1B[2J"}));
    folder.write(u"MASK/GRIMV.LST", baseRecord(1, 2, u"ete", u"L'été", u"PLAGE") +
                                        baseRecord(2, 5, u"MORT", u"Mort", u"", 0));
    EXPECT_EQ(run({"lister", in(u"MASK")}).output,
              "L'été (ETE.DBS, 2 mots, image PLAGE)\n  ÉTÉ\n  SABLE?[2J\n"
              "Mort (MORT.DBS, 5 mots, hors service)\n");
}

TEST_F(Grimbases, TellsAFailureOfTheDiskWithItsFolder) {
    source(u"mer.txt", "DAUPHIN\n");
    const Answer answer = run({"construire", in(u"sources"), in(u"absent")});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.errors,
              "grimbases : " + in(u"absent") + " : Un dossier est introuvable. (erreur 76)\n");
    EXPECT_EQ(run({"lister", in(u"absent")}).status, 1);
    const Answer missing = run({"ajouter", in(u"absent.txt"), in(u"MASK")});
    EXPECT_EQ(missing.status, 1);
    EXPECT_NE(missing.errors.find("absent.txt : Un fichier est introuvable."), std::string::npos);
}

TEST_F(Grimbases, ShowsItsUseForACallThatIsNone) {
    struct Row {
        std::vector<std::string> words;
        std::string shown;
    };
    for (const Row &row :
         {Row{{}, "Usage : grimbases COMMANDE ...\n"},
          Row{{"construire"}, "Usage : grimbases construire SOURCES... DOSSIER\n"},
          Row{{"construire", "a"}, "Usage : grimbases construire "},
          Row{{"ajouter"}, "Usage : grimbases ajouter LISTE... [DOSSIER]\n"},
          Row{{"lister", "a", "b"}, "Usage : grimbases lister [DOSSIER]\n"},
          Row{{"xyzxyz"}, "grimbases : la commande « xyzxyz » n'existe pas.\n\nUsage : "},
          Row{{"ajuter"},
              "grimbases : la commande « ajuter » n'existe pas : "
              "vouliez-vous dire « ajouter » ?\n"},
          Row{{"vérifie", "a"},
              "grimbases : la commande « vérifie » n'existe pas : "
              "vouliez-vous dire « verifier » ?\n"}}) {
        const Answer answer = run(row.words);
        EXPECT_EQ(answer.status, 2);
        EXPECT_EQ(answer.errors.substr(0, row.shown.size()), row.shown);
        EXPECT_EQ(answer.output, "");
    }
}

TEST_F(Grimbases, ShowsItsHelpAndItsVersion) {
    const Answer help = run({"--aide"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.output.substr(0, 8), "Usage : ");
    EXPECT_EQ(run({"--help"}).output, help.output);
    for (const char *command :
         {"ajouter", "retirer", "lister", "verifier", "refaire", "extraire", "construire"}) {
        const std::string usage = std::string("grimbases ") + command + " ";
        EXPECT_NE(help.output.find("  " + usage), std::string::npos) << command;
        const Answer one = run({command, "--aide"});
        EXPECT_EQ(one.status, 0);
        EXPECT_EQ(one.output.substr(0, 8 + usage.size()), "Usage : " + usage);
    }
    EXPECT_EQ(run({"Vérifier", "--aide"}).status, 0);
    EXPECT_EQ(run({"--version"}).output, "grimbases " GRIMOVAL_VERSION "\n");
}

} // namespace grimoval::test::grimbases_program
