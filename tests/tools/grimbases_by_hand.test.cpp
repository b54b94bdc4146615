// SPDX-License-Identifier: GPL-3.0-or-later
// Bases that a person put into the folder of an installed game: kept, listed and told of, whatever
// an upgrade brings.
#include "support/conditions.h"
#include "support/installed_game.h"
#include "support/odd_files.h"

namespace grimoval::test::grimbases_by_hand {

using Names = std::vector<std::string>;

struct BasesByHand : InstalledGame {
    BasesByHand() : InstalledGame(GRIMBASES) { good({"refaire"}); }

    static Offer with(Offer offer, const std::string &title, const Names &words) {
        offer[title] = words;
        return offer;
    }
    std::string remake(const std::string &remarks = "") const {
        const Answer answer = run({"refaire"});
        EXPECT_EQ(answer.status, 0);
        EXPECT_EQ(answer.errors, remarks);
        return answer.output;
    }
    static std::string unused(const std::string &stem) {
        return stem + ".DBS : remarque : aucun thème ne se sert de ce fichier\n";
    }
};

TEST_F(BasesByHand, AreKeptAndListedByARemakeWhichSaysSo) {
    byHand(u"CE1", u"Du CE1", {u"CHAT", u"CHIEN"});
    EXPECT_EQ(run({"verifier"}).output, "3 thèmes, 5 mots : le jeu acceptera tout.\n");
    const Offer all = with(shippedOffer, "Du CE1", {"CHAT", "CHIEN"});
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(remake(),
                  "CE1.DBS (Du CE1) : cette base ne vient d'aucune liste ; elle est gardée.\n");
        EXPECT_EQ(offered(), all);
        EXPECT_EQ(run({"verifier"}).output, "3 thèmes, 5 mots : le jeu acceptera tout.\n");
    }
    good({"ajouter", list(u"a.txt", "ALGUE\n")});
    good({"retirer", "A"});
    EXPECT_EQ(offered(), all);
}

TEST_F(BasesByHand, UnderANameThatGrimbasesWouldNotGiveAreKeptToo) {
    byHand(u"ÉCOLE", u"Du CE1", {u"CHAT", u"CHIEN"});
    for (int time = 0; time < 2; ++time) {
        remake();
        EXPECT_EQ(offered(), with(shippedOffer, "Du CE1", {"CHAT", "CHIEN"}));
    }
}

TEST_F(BasesByHand, StayWhereAnUpgradeDropsAThemeOfTheGame) {
    byHand(u"CE1", u"Du CE1", {u"CHAT"});
    shipped(u"MER.txt", "Titre : La mer\nORQUE\n");
    std::filesystem::remove(in(game + u"mots/CIEL.txt"));
    remake();
    EXPECT_EQ(offered(), (Offer{{"La mer", {"ORQUE"}}, {"Du CE1", {"CHAT"}}}));
}

TEST_F(BasesByHand, OfAGameThatHasNoRegisterYetAreNoneTheLess) {
    byHand(u"CE1", u"Du CE1", {u"CHAT"});
    shipped(u"MER.txt", "Titre : La mer\nORQUE\n");
    for (const char *register_ : {"", "CE1 pas une somme\n\xFF\n", "CE1 0000000000000000\n"}) {
        folder.write(var + u"bases-faites.txt", register_);
        EXPECT_EQ(remake().find("CE1.DBS (Du CE1)"), 0u);
        EXPECT_EQ(offered(), with(with(shippedOffer, "La mer", {"ORQUE"}), "Du CE1", {"CHAT"}));
    }
}

TEST_F(BasesByHand, WithoutARecordGetOneUnderTheTitleOfTheirName) {
    byHand(u"CE1", u"", {u"CHAT"});
    byHand(u"CIEL_9", u"", {u"NUAGE"}); // the words of a theme: that one has them
    byHand(u"LA_MER", u"", {u"ALGUE"}); // the title of a theme
    EXPECT_EQ(run({"verifier"}).status, 0);
    EXPECT_EQ(remake(unused("CIEL_9")),
              "CE1.DBS (CE1) : cette base n'était dans aucune liste ; le jeu l'offre "
              "maintenant.\n"
              "LA_MER.DBS (LA MER 2) : cette base n'était dans aucune liste ; le jeu "
              "l'offre maintenant.\n");
    EXPECT_EQ(offered(), with(with(shippedOffer, "CE1", {"CHAT"}), "LA MER 2", {"ALGUE"}));
}

TEST_F(BasesByHand, ComeBackWhereTheListIsLost) {
    byHand(u"CE1", u"Du CE1", {u"CHAT"});
    good({"ajouter", list(u"a.txt", "ALGUE\n")});
    std::filesystem::remove(in(var + u"MASK/GRIMV.LST"));
    remake();
    EXPECT_EQ(offered(), with(with(shippedOffer, "CE1", {"CHAT"}), "A", {"ALGUE"}));
    EXPECT_EQ(names(var + u"MASK/"),
              (Names{"A.DBS", "CE1.DBS", "CIEL.DBS", "GRIMV.LST", "MER.DBS"}));
}

TEST_F(BasesByHand, UnderTheTitleOfAListGiveWayToItAndThatIsTold) {
    folder.write(var + u"MASK/MER.DBS", wordRecords({u"ALGUE", u"SABLE"}));
    EXPECT_EQ(remake(),
              "MER.DBS (La mer) : cette base n'était plus celle de sa liste ; elle est refaite.\n");
    EXPECT_EQ(offered(), shippedOffer);
    EXPECT_EQ(run({"verifier"}).errors, "");
}

TEST_F(BasesByHand, ThatHaveNoWordsAreLeftAsideAndTheirFilesStay) {
    byHand(u"VIDE", u"Vide", {});
    EXPECT_EQ(remake(unused("VIDE")), "VIDE.DBS (Vide) : cette base doit avoir de 1 à 32767 mots "
                                      "lisibles ; elle est laissée de côté.\n");
    EXPECT_EQ(offered(), shippedOffer);
    EXPECT_TRUE(folder.exists(var + u"MASK/VIDE.DBS"));
    EXPECT_EQ(run({"verifier"}).status, 0);
}

TEST_F(BasesByHand, ThatAreNoFilesKeepNothingElseAway) {
    for (const OddFile &odd : oddFiles()) {
        SCOPED_TRACE(odd.name);
        byHand(u"CE1", u"Du CE1", {u"CHAT"});
        byHand(u"CE2", u"Du CE2", {u"CHIEN"});
        put(odd, folder, var + u"MASK/CE1.DBS");
        EXPECT_EQ(remake(), "CE2.DBS (Du CE2) : cette base ne vient d'aucune liste ; elle est "
                            "gardée.\n");
        EXPECT_EQ(offered(), with(shippedOffer, "Du CE2", {"CHIEN"}));
        good({"retirer", "Du CE2"});
        std::filesystem::remove_all(in(var + u"MASK/CE1.DBS"));
    }
}

TEST_F(BasesByHand, AreFoundUnderAListOfAHundredThousandRecords) {
    const Deadline deadline(60);
    byHand(u"CE1", u"", {u"CHAT"});
    std::string thousand, records;
    for (int number = 0; number < 1000; ++number) {
        thousand += baseRecord(1, 1, u"X" + decimal(number));
    }
    for (int times = 0; times < 100; ++times) {
        records += thousand;
    }
    folder.write(var + u"MASK/GRIMV.LST", records);
    EXPECT_EQ(run({"refaire"}).status, 0);
    EXPECT_EQ(offered(), with(shippedOffer, "CE1", {"CHAT"}));
}

TEST_F(BasesByHand, WithADeadRecordStayWhateverIsDoneAndLiveAgainWhenRemade) {
    const std::string list_ = folder.read(var + u"MASK/GRIMV.LST");
    folder.write(var + u"MASK/CE1.DBS", wordRecords({u"CHAT"}));
    folder.write(var + u"MASK/GRIMV.LST", list_ + baseRecord(3, 1, u"CE1", u"Du CE1", u"", 0));
    good({"ajouter", list(u"a.txt", "ALGUE\n")});
    EXPECT_TRUE(folder.exists(var + u"MASK/CE1.DBS"));
    folder.write(var + u"MASK/GRIMV.LST", list_ + baseRecord(3, 1, u"CE1", u"Du CE1", u"", 0));
    EXPECT_EQ(run({"verifier"}).status, 1);
    remake();
    EXPECT_EQ(offered(), with(with(shippedOffer, "Du CE1", {"CHAT"}), "A", {"ALGUE"}));
}

TEST_F(BasesByHand, GoOnlyWhenAsked) {
    byHand(u"CE1", u"Du CE1", {u"CHAT"});
    good({"retirer", "Du CE1"});
    EXPECT_EQ(offered(), shippedOffer);
    EXPECT_FALSE(folder.exists(var + u"MASK/CE1.DBS"));
    EXPECT_EQ(remake(), "");
    EXPECT_EQ(offered(), shippedOffer);
}

TEST_F(BasesByHand, CopiedFromAnotherGameWithItsListAreKept) {
    good({"ajouter", list(u"a.txt", "Titre : Du CE1\nALGUE\n")});
    const TemporaryFolder other;
    constexpr auto over = std::filesystem::copy_options::recursive |
                          std::filesystem::copy_options::overwrite_existing;
    std::filesystem::copy(in(var + u"MASK"), other.bytePath(u"MASK"), over);
    good({"retirer", "Du CE1"});
    std::filesystem::copy(other.bytePath(u"MASK"), in(var + u"MASK"), over);
    good({"ajouter", list(u"b.txt", "SABLE\n")}); // and the register forgets what was taken out
    remake();
    EXPECT_EQ(offered(), with(with(shippedOffer, "Du CE1", {"ALGUE"}), "B", {"SABLE"}));
}

} // namespace grimoval::test::grimbases_by_hand
