// SPDX-License-Identifier: GPL-3.0-or-later
// Disks and folders that refuse: full, read-only, closed to this user, too many files open.
#include "platform/files.h"

#include "support/conditions.h"
#include "support/failures.h"
#include "support/temporary_folder.h"

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace grimoval {
namespace {

using test::failureNumber;
namespace fs = std::filesystem;

struct RefusalsTest : testing::Test {
    test::TemporaryFolder folder;
    Files files;

    Texte at(const Texte &name) const { return folder.path(name); }
    void permit(const Texte &name, unsigned mode) {
        fs::permissions(folder.bytePath(name), fs::perms(mode));
    }
};

TEST_F(RefusalsTest, AFileThatMayNotBeReadIs70) {
    folder.write(u"ferme", "x");
    permit(u"ferme", 0);
    const test::OrdinaryUser user;
    EXPECT_EQ(failureNumber([&] { files.read(at(u"ferme")); }), failure::permissionDenied);
    EXPECT_EQ(failureNumber([&] { files.copy(at(u"ferme"), at(u"copie")); }),
              failure::permissionDenied);
    EXPECT_EQ(failureNumber([&] { RecordFile(files, at(u"ferme"), 84); }),
              failure::permissionDenied);
}

TEST_F(RefusalsTest, AFolderThatMayNotBeEnteredIs70AndListsNothing) {
    folder.write(u"secret/fichier", "x");
    permit(u"secret", 0);
    {
        const test::OrdinaryUser user;
        EXPECT_EQ(failureNumber([&] { files.read(at(u"secret/fichier")); }),
                  failure::permissionDenied);
        EXPECT_EQ(failureNumber([&] { files.length(at(u"secret/fichier")); }),
                  failure::permissionDenied);
        EXPECT_FALSE(files.exists(at(u"secret/fichier")));
        EXPECT_TRUE(files.list(at(u"secret"), u"*").empty());
    }
    permit(u"secret", 0755);
    EXPECT_EQ(files.list(at(u"secret"), u"*").size(), 1u);
}

TEST_F(RefusalsTest, AFolderThatMayNotBeWrittenIs70ForEveryChange) {
    folder.write(u"dossier/ancien", "ancien contenu");
    permit(u"dossier/ancien", 0444);
    permit(u"dossier", 0555);
    {
        const test::OrdinaryUser user;
        EXPECT_EQ(failureNumber([&] { files.remove(at(u"dossier/ancien")); }), 70);
        EXPECT_EQ(failureNumber([&] { files.makeFolder(at(u"dossier/x")); }), 70);
        EXPECT_EQ(failureNumber([&] { files.replace(at(u"dossier/ancien"), "neuf"); }), 70);
        EXPECT_EQ(failureNumber([&] { files.copy(at(u"dossier/ancien"), at(u"dossier/x")); }), 70);
        EXPECT_EQ(failureNumber([&] { RecordFile(files, at(u"dossier/x"), 84); }), 70);
    }
    EXPECT_EQ(folder.read(u"dossier/ancien"), "ancien contenu");
    EXPECT_EQ(folder.list(), (std::vector<std::string>{"dossier/", "dossier/ancien"}));
    permit(u"dossier", 0755);
}

TEST_F(RefusalsTest, RecordsThatMayNotBeWrittenAreOpenedForReading) {
    folder.write(u"base.dbs", "aaaabbbb");
    permit(u"base.dbs", 0444);
    const test::OrdinaryUser user;
    const RecordFile records(files, at(u"base.dbs"), 4);
    EXPECT_EQ(records.count(), 2);
    EXPECT_EQ(records.read(2), "bbbb");
}

TEST_F(RefusalsTest, AFullDiskIs61AndAReplacedFileKeepsItsOldContent) {
    folder.write(u"a", "ancien contenu");
    {
        const test::FileSizeLimit limit(1000);
        EXPECT_EQ(failureNumber([&] { files.replace(at(u"a"), std::string(5000, 'x')); }), 61);
    }
    EXPECT_EQ(folder.read(u"a"), "ancien contenu");
    EXPECT_EQ(folder.list(), std::vector<std::string>{"a"});
}

TEST_F(RefusalsTest, ASmallDiskThatIsFullIs61ForEveryWrite) {
    folder.makeFolder(u"disque");
    const test::SmallDisk disk(folder.bytePath(u"disque"));
    if (!disk.there()) {
        GTEST_SKIP() << "this user may not mount a disk";
    }
    folder.write(u"gros", std::string(100'000, 'x'));
    folder.write(u"disque/a", "ancien contenu");
    EXPECT_EQ(failureNumber([&] { files.replace(at(u"disque/a"), std::string(100'000, 'x')); }),
              61);
    EXPECT_EQ(folder.read(u"disque/a"), "ancien contenu");
    EXPECT_EQ(failureNumber([&] { files.copy(at(u"gros"), at(u"disque/b")); }), 61);
}

TEST_F(RefusalsTest, AReadOnlyDiskIs75ForChangesAndItsRecordsCanBeRead) {
    folder.makeFolder(u"disque");
    test::SmallDisk disk(folder.bytePath(u"disque"));
    if (!disk.there()) {
        GTEST_SKIP() << "this user may not mount a disk";
    }
    folder.write(u"disque/base.dbs", "aaaabbbb");
    ASSERT_TRUE(disk.makeReadOnly());
    EXPECT_EQ(RecordFile(files, at(u"disque/base.dbs"), 4).count(), 2);
    EXPECT_EQ(failureNumber([&] { RecordFile(files, at(u"disque/autre.dbs"), 4); }), 75);
    EXPECT_EQ(failureNumber([&] { files.replace(at(u"disque/base.dbs"), "x"); }), 75);
    EXPECT_EQ(failureNumber([&] { files.remove(at(u"disque/base.dbs")); }), 75);
    EXPECT_EQ(failureNumber([&] { files.makeFolder(at(u"disque/x")); }), 75);
    EXPECT_EQ(files.read(at(u"disque/base.dbs")), "aaaabbbb");
}

TEST_F(RefusalsTest, TooManyOpenFilesAre67) {
    folder.write(u"a", "x");
    const test::NoMoreDescriptors none;
    EXPECT_EQ(failureNumber([&] { files.read(at(u"a")); }), failure::tooManyFiles);
    EXPECT_EQ(failureNumber([&] { RecordFile(files, at(u"a"), 1); }), failure::tooManyFiles);
    EXPECT_EQ(failureNumber([&] { files.replace(at(u"a"), "y"); }), failure::tooManyFiles);
}

TEST_F(RefusalsTest, NoOperationLeavesAFileOpen) {
    folder.write(u"a", "aaaabbbb");
    folder.makeFolder(u"dossier");
    const auto open = [] {
        const fs::directory_iterator descriptors("/proc/self/fd");
        return std::distance(fs::begin(descriptors), fs::end(descriptors));
    };
    const auto before = open();
    files.read(at(u"a"));
    files.copy(at(u"a"), at(u"b"));
    files.replace(at(u"a"), "cccc");
    files.list(at(u""), u"*");
    files.exists(at(u"A"));
    failureNumber([&] { files.read(at(u"dossier")); });
    failureNumber([&] { RecordFile(files, at(u"dossier"), 4); });
    {
        RecordFile first(files, at(u"a"), 4);
        const RecordFile second = std::move(first);
        EXPECT_EQ(open(), before + 1);
        EXPECT_EQ(second.count(), 1);
    }
    EXPECT_EQ(open(), before);
}

TEST_F(RefusalsTest, AProgramThatRunsIs55ForWriting) {
    fs::copy_file("/bin/sleep", folder.bytePath(u"programme"));
    std::string name = folder.bytePath(u"programme"), seconds = "60";
    char *const arguments[] = {name.data(), seconds.data(), nullptr};
    pid_t child = 0;
    ASSERT_EQ(::posix_spawn(&child, name.c_str(), nullptr, nullptr, arguments, environ), 0);
    EXPECT_EQ(failureNumber([&] { RecordFile(files, at(u"programme"), 84); }),
              failure::fileAlreadyOpen);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
}

} // namespace
} // namespace grimoval
