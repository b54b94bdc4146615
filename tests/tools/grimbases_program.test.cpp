// SPDX-License-Identifier: GPL-3.0-or-later
// grimbases as a program: its words, its answers, and nothing written when a source is bad.
#include "support/game.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace grimoval::test::grimbases_program {

struct Answer {
    int status;
    std::string output, errors;
};

struct Grimbases : testing::Test {
    TemporaryFolder folder;

    Answer run(const std::string &arguments) {
        const std::string output = folder.bytePath(u"sortie"), errors = folder.bytePath(u"erreurs");
        const int status =
            std::system((GRIMBASES " " + arguments + " >" + output + " 2>" + errors).c_str());
        return {WEXITSTATUS(status), folder.read(u"sortie"), folder.read(u"erreurs")};
    }
    Answer make() {
        return run("construire " + folder.bytePath(u"sources") + " " + folder.bytePath(u"MASK"));
    }
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
    const std::string mask = folder.bytePath(u"MASK");
    EXPECT_EQ(run("verifier " + mask).status, 0);
    EXPECT_EQ(run("lister " + mask).output,
              "Le ciel (CIEL.DBS, 1 mots, image CIEL)\n  NUAGE\n"
              "La mer (MER.DBS, 2 mots, image )\n  DAUPHIN\n  BALEINE\n");
}

TEST_F(Grimbases, WritesNothingWhenASourceIsBadAndTellsTheLine) {
    source(u"BON.txt", "Titre : Bon\nDAUPHIN\n");
    source(u"MAUVAIS.txt", "Titre : Mauvais\nDAUPHIN\ndauphin\n");
    const Answer answer = make();
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.errors, "MAUVAIS.txt:3 : dauphin : le mot doit être en capitales\n");
    EXPECT_EQ(made(), std::vector<std::string>{});
}

TEST_F(Grimbases, RefusesTwoSourcesOfOneName) {
    source(u"mer.txt", "DAUPHIN\n");
    source(u"MER.txt", "BALEINE\n");
    const Answer answer = make();
    EXPECT_EQ(answer.status, 1);
    EXPECT_NE(answer.errors.find("un autre fichier porte déjà ce nom"), std::string::npos);
    EXPECT_EQ(made(), std::vector<std::string>{});
}

TEST_F(Grimbases, SaysSoWhenThereIsNoSource) {
    folder.makeFolder(u"sources");
    const Answer answer = make();
    EXPECT_EQ(answer.status, 1);
    EXPECT_NE(answer.errors.find("aucun fichier .txt"), std::string::npos);
}

TEST_F(Grimbases, TellsTheProblemsOfAFolderAndAnswersByItsStatus) {
    folder.write(u"MASK/A.DBS", wordRecords({u"CHAT"}));
    folder.write(u"MASK/GRIMV.LST", baseRecord(1, 2, u"A"));
    const Answer answer = run("verifier " + folder.bytePath(u"MASK"));
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.errors, "A.DBS:1 : la liste annonce 2 mots, le fichier en a 1\n"
                             "GRIMV.LST : aucune base n'est bonne : le jeu s'arrête\n");
}

TEST_F(Grimbases, TellsAFailureOfTheDiskByItsNumber) {
    source(u"mer.txt", "DAUPHIN\n");
    const Answer answer =
        run("construire " + folder.bytePath(u"sources") + " " + folder.bytePath(u"absent"));
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.errors.substr(0, 22), "grimbases : erreur 76 ");
    EXPECT_EQ(run("lister " + folder.bytePath(u"absent")).status, 1);
}

TEST_F(Grimbases, ShowsItsUseForAnyOtherWord) {
    for (const char *words :
         {"", "inconnu", "construire", "construire a", "verifier", "lister a b"}) {
        const Answer answer = run(words);
        EXPECT_EQ(answer.status, 2) << words;
        EXPECT_EQ(answer.errors.substr(0, 8), "Usage :\n");
    }
    const Answer help = run("--aide");
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.output.substr(0, 8), "Usage :\n");
}

} // namespace grimoval::test::grimbases_program
