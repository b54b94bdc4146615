// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files.h"

#include "support/failures.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace grimoval {
namespace {

using test::failureNumber;

struct RecordsTest : testing::Test {
    test::TemporaryFolder folder;
    Files files;

    Texte at(const Texte &name) const { return folder.path(name); }
};

TEST_F(RecordsTest, AreNumberedFromOneAndReadInAnyOrder) {
    folder.write(u"base", "aaaabbbbcccc");
    const RecordFile records(files, at(u"base"), 4);
    EXPECT_EQ(records.count(), 3);
    EXPECT_EQ(records.read(3), "cccc");
    EXPECT_EQ(records.read(1), "aaaa");
    EXPECT_EQ(records.read(2), "bbbb");
    EXPECT_EQ(records.read(2), "bbbb");
}

TEST_F(RecordsTest, HoldAnyBytes) {
    const std::string bytes("\0\r\n\x1A\xFF\0", 6);
    folder.write(u"base", bytes);
    EXPECT_EQ(RecordFile(files, at(u"base"), 6).read(1), bytes);
}

TEST_F(RecordsTest, TheTailOfAnIncompleteRecordDoesNotCount) {
    for (std::size_t length = 0; length <= 3 * 84; ++length) {
        folder.write(u"base", std::string(length, 'x'));
        ASSERT_EQ(RecordFile(files, at(u"base"), 84).count(), static_cast<int>(length / 84))
            << length;
    }
}

TEST_F(RecordsTest, ANumberBelowOneIs63) {
    folder.write(u"base", "aaaabbbb");
    const RecordFile records(files, at(u"base"), 4);
    EXPECT_EQ(failureNumber([&] { records.read(0); }), failure::badRecordNumber);
    EXPECT_EQ(failureNumber([&] { records.read(-1); }), failure::badRecordNumber);
}

TEST_F(RecordsTest, ANumberBeyondTheLastWholeRecordIs62) {
    folder.write(u"base", "aaaabbbbccc");
    const RecordFile records(files, at(u"base"), 4);
    EXPECT_EQ(failureNumber([&] { records.read(3); }), failure::inputPastEnd);
    EXPECT_EQ(failureNumber([&] { records.read(4); }), failure::inputPastEnd);
    EXPECT_EQ(failureNumber([&] { records.read(2'000'000'000); }), failure::inputPastEnd);
}

TEST_F(RecordsTest, OpeningCreatesAMissingFileWithoutRecords) {
    const RecordFile records(files, at(u"nouvelle"), 84);
    EXPECT_EQ(records.count(), 0);
    EXPECT_EQ(failureNumber([&] { records.read(1); }), failure::inputPastEnd);
    EXPECT_EQ(folder.read(u"nouvelle"), "");
}

TEST_F(RecordsTest, OpeningLeavesTheContentAsItIs) {
    folder.write(u"base", "aaaabbb");
    RecordFile(files, at(u"base"), 4).read(1);
    EXPECT_EQ(folder.read(u"base"), "aaaabbb");
}

TEST_F(RecordsTest, FailToOpenInAMissingFolderOrInAFoldersPlace) {
    folder.makeFolder(u"dossier");
    folder.write(u"fichier", "x");
    const auto opening = [&](const Texte &path) {
        return failureNumber([&] { RecordFile(files, path, 84); });
    };
    EXPECT_EQ(opening(at(u"absent/base")), failure::pathNotFound);
    EXPECT_EQ(opening(at(u"fichier/base")), failure::pathNotFound);
    EXPECT_EQ(opening(at(u"dossier")), failure::pathAccess);
    EXPECT_EQ(opening(at(Texte(300, u'a'))), failure::badFileNameOrNumber);
    EXPECT_EQ(opening(u""), failure::badFileNameOrNumber);
    EXPECT_EQ(folder.list(), (std::vector<std::string>{"dossier/", "fichier"}));
}

TEST_F(RecordsTest, CountWhatIsAppendedWhileTheyAreOpen) {
    folder.write(u"base", "aaaa");
    const RecordFile records(files, at(u"base"), 4);
    EXPECT_EQ(records.count(), 1);
    folder.write(u"base", "aaaabbbbcccc");
    EXPECT_EQ(records.count(), 3);
    EXPECT_EQ(records.read(3), "cccc");
}

RC_GTEST_FIXTURE_PROP(RecordsTest, EveryWholeRecordReadsAsItsBytes, (const std::string &bytes)) {
    const auto width = *rc::gen::inRange<std::size_t>(1, 20);
    folder.write(u"base", bytes);
    const RecordFile records(files, at(u"base"), static_cast<int>(width));
    const std::size_t whole = bytes.size() / width;
    RC_ASSERT(records.count() == static_cast<std::int64_t>(whole));
    for (std::size_t i = 0; i < whole; ++i) {
        RC_ASSERT(records.read(static_cast<std::int64_t>(i) + 1) == bytes.substr(i * width, width));
    }
    const auto beyond = static_cast<std::int64_t>(whole) + 1;
    RC_ASSERT(failureNumber([&] { records.read(beyond); }) == failure::inputPastEnd);
}

} // namespace
} // namespace grimoval
