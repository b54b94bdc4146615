// SPDX-License-Identifier: GPL-3.0-or-later
// grimbases ended at every single call that changes a file, or met by a full disk there: what it
// leaves is the old set or the new one, the check finds it good, and the game plays it.
#include "support/installed_game.h"

namespace grimoval::test::grimbases_death {

struct Change {
    const char *name;
    std::vector<std::string> words; // "@" stands for the folder of the class
    Offer result;
};

Offer with(Offer offer, const std::string &title, const std::vector<std::string> &words) {
    offer[title] = words;
    return offer;
}
Offer without(Offer offer, const std::string &title) {
    offer.erase(title);
    return offer;
}

const Offer before = with(with(shippedOffer, "Ma liste", {"CHAT", "CHIEN"}), "Du CE1", {"LIVRE"});
const Change changes[] = {
    {"anotherList", {"ajouter", "@autre.txt"}, with(before, "Autre", {"SABLE"})},
    {"moreWords", {"ajouter", "@plus.txt"}, with(before, "Ma liste", {"CHAT", "CHIEN", "RAT"})},
    {"otherWords", {"ajouter", "@change.txt"}, with(before, "Ma liste", {"LOUP", "OURS"})},
    {"removal", {"retirer", "Ma liste"}, without(before, "Ma liste")},
    {"removalOfABaseByHand", {"retirer", "Du CE1"}, without(before, "Du CE1")},
    {"upgrade",
     {"refaire"},
     without(with(with(before, "La mer", {"ORQUE"}), "La forêt", {"CHÊNE"}), "Le ciel")},
    {"wholeSet",
     {"construire", "@textes", "@../usr/share/games/grimoval/MASK"},
     {{"La mer", {"MOUETTE"}}, {"Un seul", {"MOT UNIQUE"}}}},
};
const char *const ways[] = {"mort", "panne"};

struct Interrupted : InstalledGame,
                     testing::WithParamInterface<std::tuple<std::size_t, const char *>> {
    Interrupted() : InstalledGame(GRIMBASES) {
        good({"refaire"});
        good({"ajouter", list(u"a.txt", "Titre : Ma liste\nCHAT\nCHIEN\n")});
        list(u"autre.txt", "SABLE\n");
        list(u"suite.txt", "SUITE\n");
        list(u"plus.txt", "Titre : Ma liste\nCHAT\nCHIEN\nRAT\n");
        list(u"change.txt", "Titre : Ma liste\nLOUP\nOURS\n");
        list(u"textes/MER.txt", "Titre : La mer\nMOUETTE\n");
        list(u"textes/UN.txt", "Titre : Un seul\nMOT UNIQUE\n");
        byHand(u"CE1", u"Du CE1", {u"LIVRE"});
        start_ = offered();
    }

    const Change &change() const { return changes[std::get<0>(GetParam())]; }
    std::vector<std::string> words() const {
        std::vector<std::string> all = change().words;
        for (std::string &word : all) {
            if (word.starts_with('@')) {
                word = in(u"classe/") + word.substr(1);
            }
        }
        return all;
    }
    void upgradeSources() const {
        shipped(u"MER.txt", "Titre : La mer\nORQUE\n");
        shipped(u"FORET.txt", "Titre : La forêt\nCHÊNE\n");
        std::filesystem::remove(in(game + u"mots/CIEL.txt"));
    }
    // The folders as they were.
    void keep() const { copy(u"var", u"garde"); }
    void putBack() const {
        std::filesystem::remove_all(in(u"var"));
        copy(u"garde", u"var");
    }

    Offer start_;

private:
    void copy(const Texte &from, const Texte &to) const {
        std::filesystem::copy(in(from), in(to), std::filesystem::copy_options::recursive);
    }
};

TEST_P(Interrupted, LeavesTheOldSetOrTheNewOne) {
    ASSERT_EQ(start_, before);
    upgradeSources();
    keep();
    const std::string way = std::get<1>(GetParam());
    int stopped = 0, old = 0, fresh = 0;
    for (int call = 1;; ++call) {
        SCOPED_TRACE(call);
        ASSERT_LT(call, 500);
        putBack();
        const Answer answer =
            run(words(), {"LD_PRELOAD=" DEATH, "ASAN_OPTIONS=verify_asan_link_order=0",
                          "GRIM_MORT=" + way, "GRIM_MORT_A=" + std::to_string(call)});
        if (!answer.killed && answer.status == 0) {
            EXPECT_EQ(offered(), change().result);
            break;
        }
        ++stopped;
        EXPECT_EQ(answer.killed, way != "panne") << answer.errors;
        if (way == "panne") {
            EXPECT_EQ(answer.status, 1);
            EXPECT_NE(answer.errors.find("Le disque est plein"), std::string::npos)
                << answer.errors;
        }
        const Answer check = run({"verifier"});
        EXPECT_EQ(check.status, 0) << check.errors;
        const Offer left = offered();
        EXPECT_TRUE(left == before || left == change().result);
        (left == before ? old : fresh) += 1;

        // Done again, it comes to its end.
        if (left == before) {
            good(words());
        }
        EXPECT_EQ(offered(), change().result);

        // The next change, whatever it is, clears what the death has left.
        good({"ajouter", in(u"classe/suite.txt")});
        EXPECT_EQ(names(var + u"MASK/").size(), change().result.size() + 2);
        for (const std::string &name : names(var)) {
            EXPECT_TRUE(name.ends_with(".DBS") || name == "MASK/GRIMV.LST" ||
                        name == "bases-faites.txt" ||
                        (name.starts_with("listes/") && name[7] != '.' && name.ends_with(".txt")))
                << name;
        }
    }
    EXPECT_GE(stopped, 6); // at least a file, its place, and the list were at stake
    EXPECT_GE(old, 3);
    EXPECT_GE(fresh, 1);
}

INSTANTIATE_TEST_SUITE_P(AtEveryCall, Interrupted,
                         testing::Combine(testing::Range(std::size_t{0}, std::size(changes)),
                                          testing::ValuesIn(ways)),
                         [](const auto &chosen) {
                             return std::string(changes[std::get<0>(chosen.param)].name) + "_" +
                                    std::get<1>(chosen.param);
                         });

} // namespace grimoval::test::grimbases_death
