// SPDX-License-Identifier: GPL-3.0-or-later
// The folders: what was installed, and what is written for the user.
#include "shell/mdAppData.h"
#include "support/failures.h"
#include "support/game.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace grimoval::test::folders {

struct Folders : testing::Test {
    World world;
    Globales g{world.services};

    // The folders alone, relative to the world's.
    std::vector<std::string> disk() const { return world.folder.list(); }
    std::string relative(const Texte &path) const {
        const std::string root = world.folder.bytePath(u""), text = toUtf8(path);
        return text.starts_with(root) ? text.substr(root.size()) : text;
    }
};

TEST_F(Folders, OfANewUserAreMadeLevelByLevel) {
    world.folder.makeFolder(u"donnees");
    TrouverDossierUtilisateur(g);
    EXPECT_EQ(disk(), (std::vector<std::string>{"donnees/", "donnees/Calvenor/",
                                                "donnees/Calvenor/Le Grimoval/"}));
    EXPECT_EQ(relative(g.dossiers.DossierUtilisateur), "donnees/Calvenor/Le Grimoval/");
}

TEST_F(Folders, OfASecondStartAreFoundAndLeftAlone) {
    world.folder.makeFolder(u"donnees");
    TrouverDossierUtilisateur(g);
    world.folder.write(u"donnees/Calvenor/Le Grimoval/GRIMOVA.INI", "x");
    const auto before = disk();
    TrouverDossierUtilisateur(g);
    EXPECT_EQ(disk(), before);
    EXPECT_EQ(world.windows.take(), Events{});
}

TEST_F(Folders, OfWhichTheFirstExistsGetTheSecondAlone) {
    world.folder.write(u"donnees/Calvenor/autre.txt", "d'un autre jeu");
    const auto identity = [this] {
        struct stat status = {};
        EXPECT_EQ(::stat(world.folder.bytePath(u"donnees/Calvenor").c_str(), &status), 0);
        return status.st_ino;
    };
    const auto first = identity();
    TrouverDossierUtilisateur(g);
    EXPECT_EQ(identity(), first);
    EXPECT_EQ(disk(), (std::vector<std::string>{"donnees/", "donnees/Calvenor/",
                                                "donnees/Calvenor/Le Grimoval/",
                                                "donnees/Calvenor/autre.txt"}));
    EXPECT_EQ(world.folder.read(u"donnees/Calvenor/autre.txt"), "d'un autre jeu");
}

TEST_F(Folders, GetNoSecondSeparatorWhereTheUsersPlaceEndsInOne) {
    world.folder.makeFolder(u"donnees");
    world.application.userData = world.folder.path(u"donnees/");
    TrouverDossierUtilisateur(g);
    EXPECT_EQ(relative(g.dossiers.DossierUtilisateur), "donnees/Calvenor/Le Grimoval/");
}

TEST_F(Folders, WithoutAUsersPlaceAreTheApplicationsPathWithoutItsSeparatorAndNothingIsMade) {
    world.folder.makeFolder(u"grimoval");
    world.application.userData.reset();
    TrouverDossierUtilisateur(g);
    EXPECT_EQ(relative(g.dossiers.DossierUtilisateur), "grimoval");
    EXPECT_EQ(disk(), std::vector<std::string>{"grimoval/"});
    // A file of the user then stands beside the folder, under the joined name.
    g.VBTINI.FichierIni = g.dossiers.DossierUtilisateur + u"GRIMOVA.INI";
    g.VBTINI.Section = u"S";
    g.VBTINI.Cle = u"C";
    g.VBTINI.Valeur = u"1";
    g.VBTINI.Action(Clvutil::ecrireCle);
    EXPECT_EQ(disk(), (std::vector<std::string>{"grimoval/", "grimovalGRIMOVA.INI"}));
}

TEST_F(Folders, TakeTheAnswerErrorByItsExactLetters) {
    world.folder.makeFolder(u"grimoval");
    world.application.userData = u"error";
    TrouverDossierUtilisateur(g);
    EXPECT_EQ(relative(g.dossiers.DossierUtilisateur), "grimoval");
    world.application.userData = world.folder.path(u"ERROR");
    world.folder.makeFolder(u"ERROR");
    TrouverDossierUtilisateur(g);
    EXPECT_EQ(relative(g.dossiers.DossierUtilisateur), "ERROR/Calvenor/Le Grimoval/");
}

TEST_F(Folders, ThatCannotBeMadeEndInAFailure) {
    // The user's place itself is missing.
    EXPECT_EQ(failureNumber([this] { TrouverDossierUtilisateur(g); }), failure::pathNotFound);
    // A file stands where a folder must be.
    world.folder.write(u"donnees/Calvenor", "x");
    EXPECT_NE(failureNumber([this] { TrouverDossierUtilisateur(g); }), 0);
}

TEST_F(Folders, OfTheInstallationAreFormedAndNeitherTestedNorMade) {
    g.dossiers.DossierAppli = asFolder(world.folder.path(u"grimoval"));
    g.dossiers.DossierUtilisateur = u"/x/y/";
    EXPECT_TRUE(DefinirRepertoires(g));
    EXPECT_EQ(relative(g.dossiers.DossierBases), "grimoval/MASK/");
    EXPECT_EQ(relative(g.dossiers.DossierSons), "grimoval/SONS/");
    EXPECT_EQ(relative(g.dossiers.DossierImages), "grimoval/IMAGES/");
    EXPECT_EQ(toUtf8(g.dossiers.DossierTemp), "/x/y/");
    EXPECT_EQ(toUtf8(g.dossiers.DossierScore), "/x/y/");
    EXPECT_EQ(disk(), std::vector<std::string>{});
}

TEST_F(Folders, AskTheUtilityControlForOneValueOfTheUsersBranch) {
    world.folder.makeFolder(u"donnees");
    TrouverDossierUtilisateur(g);
    EXPECT_EQ(g.VBTINI.RacineRegistre, 1);
    EXPECT_EQ(toUtf8(g.VBTINI.CleRegistre),
              "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders");
    EXPECT_EQ(toUtf8(g.VBTINI.NomRegistre), "AppData");
    EXPECT_EQ(toUtf8(g.VBTINI.ValeurRegistre), toUtf8(*world.application.userData));
}

} // namespace grimoval::test::folders
