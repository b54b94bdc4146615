// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <vector>

namespace grimoval {
namespace {

int sign(int value) { return (value > 0) - (value < 0); }

TEST(FrenchOrder, IgnoresCaseAndAccentsFirst) {
    std::vector<Texte> titles = {u"Zoo",    u"oiseaux", u"École", u"Éléphants", u"arbres",
                                 u"Zèbres", u"Œufs",    u"Ours",  u"étoiles",   u"Eau",
                                 u"Odeurs", u"Fruits",  u"çà",    u"Cadeaux",   u"Animaux"};
    sortFrench(titles);
    EXPECT_EQ(titles, (std::vector<Texte>{u"Animaux", u"arbres", u"çà", u"Cadeaux", u"Eau",
                                          u"École", u"Éléphants", u"étoiles", u"Fruits", u"Odeurs",
                                          u"Œufs", u"oiseaux", u"Ours", u"Zèbres", u"Zoo"}));
}

TEST(FrenchOrder, AnAccentStandsBesideItsLetterAndAfterIt) {
    EXPECT_LT(compareFrench(u"pecher", u"pécher"), 0);
    EXPECT_LT(compareFrench(u"pécher", u"pechers"), 0);
    EXPECT_LT(compareFrench(u"E", u"É"), 0);
    EXPECT_LT(compareFrench(u"É", u"F"), 0);
    EXPECT_LT(compareFrench(u"D", u"É"), 0);
}

TEST(FrenchOrder, LigaturesAreTheirTwoLetters) {
    EXPECT_GT(compareFrench(u"coffre", u"cœur"), 0);
    EXPECT_LT(compareFrench(u"cœur", u"coffre"), 0);
    EXPECT_LT(compareFrench(u"oeil", u"œil"), 0);
    EXPECT_LT(compareFrench(u"œil", u"oeils"), 0);
    EXPECT_LT(compareFrench(u"adx", u"æ"), 0);
    EXPECT_LT(compareFrench(u"æ", u"af"), 0);
    EXPECT_LT(compareFrench(u"œéa", u"óeêa"), 0) << "the accents behind keep their places";
}

TEST(FrenchOrder, AccentsWeighMoreThanCase) {
    EXPECT_LT(compareFrench(u"E", u"é"), 0);
    EXPECT_LT(compareFrench(u"e", u"É"), 0);
    EXPECT_LT(compareFrench(u"Ete", u"été"), 0);
}

TEST(FrenchOrder, CaseDecidesLastAndTheShorterOfTwoBeginningsComesFirst) {
    EXPECT_NE(compareFrench(u"Chat", u"chat"), 0);
    EXPECT_EQ(compareFrench(u"Chat", u"Chat"), 0);
    EXPECT_LT(compareFrench(u"chat", u"CHATS"), 0);
    EXPECT_LT(compareFrench(u"CHAT", u"chats"), 0);
    EXPECT_LT(compareFrench(u"", u"a"), 0);
}

// Every text of up to three of these pieces: beside each other they make the same letters in many
// ways. A sort over an order with a cycle would never be sure of its end.
TEST(FrenchOrder, IsOneOrderOverManySpellingsOfTheSameLetters) {
    const std::vector<Texte> pieces = {u"", u"Œ", u"œ", u"OE", u"óE", u"Óe", u"oè", u"a", u"À"};
    std::vector<Texte> texts;
    for (const Texte &first : pieces) {
        for (const Texte &second : pieces) {
            for (const Texte &third : {Texte(), Texte(u"a"), Texte(u"É")}) {
                texts.push_back(first + second + third);
            }
        }
    }
    std::sort(texts.begin(), texts.end());
    texts.erase(std::unique(texts.begin(), texts.end()), texts.end());
    const std::size_t count = texts.size();
    std::vector<std::vector<int>> order(count, std::vector<int>(count));
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t j = 0; j < count; ++j) {
            order[i][j] = sign(compareFrench(texts[i], texts[j]));
        }
    }
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t j = 0; j < count; ++j) {
            ASSERT_EQ(order[i][j] == 0, i == j) << toUtf8(texts[i]) << " " << toUtf8(texts[j]);
            ASSERT_EQ(order[i][j], -order[j][i]) << toUtf8(texts[i]) << " " << toUtf8(texts[j]);
            for (std::size_t k = 0; order[i][j] < 0 && k < count; ++k) {
                ASSERT_FALSE(order[j][k] < 0 && order[i][k] >= 0)
                    << toUtf8(texts[i]) << " " << toUtf8(texts[j]) << " " << toUtf8(texts[k]);
            }
        }
    }
}

Texte anyTitle() {
    static const Texte alphabet = u"aAeEéÉèoOÓœŒæÆÁzZ '-1";
    const auto picks = *rc::gen::container<std::vector<std::size_t>>(
        rc::gen::inRange<std::size_t>(0, alphabet.size()));
    Texte text;
    for (const std::size_t pick : picks) {
        text += alphabet[pick];
    }
    return text;
}

RC_GTEST_PROP(FrenchOrder, IsTransitive, ()) {
    const Texte a = anyTitle(), b = anyTitle(), c = anyTitle();
    if (compareFrench(a, b) <= 0 && compareFrench(b, c) <= 0) {
        RC_ASSERT(compareFrench(a, c) <= 0);
    }
}

RC_GTEST_PROP(FrenchOrder, IsTheSameFromBothSides, ()) {
    const Texte a = anyTitle(), b = anyTitle();
    RC_ASSERT(sign(compareFrench(a, b)) == -sign(compareFrench(b, a)));
    RC_ASSERT((compareFrench(a, b) == 0) == (a == b));
}

} // namespace
} // namespace grimoval
