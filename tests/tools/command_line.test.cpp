// SPDX-License-Identifier: GPL-3.0-or-later
// A call that is suggested can be typed as it stands, and means what was meant.
#include "support/process.h"
#include "tools/bases/ligne.h"
#include "tools/bases/probleme.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace grimoval::test::command_line {

using Words = std::vector<std::string>;

std::string line(const Words &words) { return toUtf8(outils::ligneDe(words).value_or(u"aucune")); }

TEST(SuggestedLine, QuotesWhatTheShellWouldTakeForItsOwn) {
    EXPECT_EQ(line({}), "grimbases");
    EXPECT_EQ(line({"ajouter", "liste.txt", "/media/cle"}),
              "grimbases ajouter liste.txt /media/cle");
    EXPECT_EQ(line({"ajouter", "Dictée n°1.txt", ""}), "grimbases ajouter 'Dictée n°1.txt' ''");
    EXPECT_EQ(line({"l'été;rm -rf ~{a,b}$HOME`x`!%"}),
              "grimbases 'l'\\''été;rm -rf ~{a,b}$HOME`x`!%'");
}

TEST(SuggestedLine, IsNoneWhereAWordCannotBeShownAsItIs) {
    for (const char *word : {"a\nrm -rf /", "a\tb", "\x1B[2J", "\x7F", "\xC2\x9B", "\xE2\x80\xAE",
                             "\xE2\x80\x8B", "\xE2\x81\xA6", "\xC2\xAD", "\xEF\xBB\xBF", "\xD8\x9C",
                             "\xE2\x80\xA8", "Latin-1 \xE9t\xE9"}) {
        EXPECT_EQ(line({"ajouter", word}), "aucune") << word;
    }
}

TEST(SuggestedLine, ComesBackFromAShellWordByWord) {
    ASSERT_TRUE(rc::check([] {
        const auto words = *rc::gen::container<Words>(
            rc::gen::container<std::string>(rc::gen::inRange(' ', '\x7F')));
        const std::string call = line(words);
        const Answer answer =
            run({"/bin/sh", "-c", "set -- " + call + R"(; for w; do printf '%s\n' "$w"; done)"});
        std::string expected = "grimbases\n";
        for (const std::string &word : words) {
            expected += word + "\n";
        }
        RC_ASSERT(answer.output == expected);
    }));
}

TEST(Shown, HidesWhatCommandsATerminalAndWhatIsNotSeen) {
    EXPECT_EQ(outils::montrable(u"Été « 1 » ☂ \U0001F600"), u"Été « 1 » ☂ \U0001F600");
    for (const char16_t c : {u'\n', u'\x1B', u'\x7F', u'\x9B', u'\xAD', u'\u061C', u'\u200B',
                             u'\u200E', u'\u2028', u'\u202E', u'\u2066', u'\uFEFF', u'\uFFF9'}) {
        EXPECT_EQ(outils::montrable(Texte(u"a") + c + u"b"), u"a?b") << static_cast<int>(c);
    }
    EXPECT_EQ(outils::montrable(Texte(1, 0xD83D)), u"?");
    EXPECT_EQ(outils::montrable(Texte(1, 0xDE00)), u"?");
    EXPECT_EQ(outils::montrable(u"\U000E0041").find(char16_t{0xDB40}), Texte::npos);
}

} // namespace grimoval::test::command_line
