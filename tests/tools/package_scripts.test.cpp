// SPDX-License-Identifier: GPL-3.0-or-later
// The scripts of the Debian package, run in folders of a test's own: an upgrade of the whole system
// neither waits for them nor fails by them.
#include "platform/files.h"
#include "support/process.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace grimoval::test::package_scripts {

struct PackageScript : testing::Test {
    TemporaryFolder folder;

    // The absolute places of the script are moved into the folder; a search for programs finds
    // impostors first.
    Answer run(const std::string &name, const std::string &word) const {
        Files files;
        std::string script = files.read(fromUtf8(GRIMOVAL_SOURCES "/packaging/debian/" + name));
        for (const std::string place : {"/usr/bin/grimbases", "/var/lib/grimoval"}) {
            std::size_t found = script.find(place);
            for (; found != std::string::npos; found = script.find(place, found)) {
                const std::string moved = folder.bytePath(u"") + place.substr(1);
                script.replace(found, place.size(), moved);
                found += moved.size();
            }
        }
        folder.write(u"script", script);
        program(u"faux/grimbases", "touch \"$0.appele\"");
        program(u"faux/install", "touch \"$0.appele\"");
        const Answer answer =
            test::run({"/usr/bin/env", "PATH=" + folder.bytePath(u"faux") + ":/usr/bin:/bin",
                       "/bin/sh", folder.bytePath(u"script"), word});
        EXPECT_FALSE(folder.exists(u"faux/grimbases.appele"));
        EXPECT_FALSE(folder.exists(u"faux/install.appele"));
        return answer;
    }
    void program(const Texte &name, const std::string &text) const {
        folder.write(name, "#!/bin/sh\n" + text + "\n");
        test::run({"/bin/chmod", "755", folder.bytePath(name)});
    }
};

TEST_F(PackageScript, CallsItsOwnProgramByItsPlace) {
    folder.makeFolder(u"var/lib");
    program(u"usr/bin/grimbases", "echo \"$@\"");
    const Answer answer = run("postinst", "configure");
    EXPECT_EQ(answer.status, 0) << answer.errors;
    EXPECT_EQ(answer.output, "refaire\n");
    EXPECT_TRUE(folder.exists(u"var/lib/grimoval"));
}

TEST_F(PackageScript, GoesOnWhereTheBasesCannotBeMadeAndSaysSo) {
    folder.makeFolder(u"var/lib");
    program(u"usr/bin/grimbases", "echo occupé >&2; exit 1");
    const Answer answer = run("postinst", "configure");
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.errors, "occupé\ngrimoval : les bases de mots ne sont pas toutes bonnes ; "
                             "« sudo grimbases refaire » dit pourquoi.\n");
}

TEST_F(PackageScript, LeavesWhatPeopleAddedUntilAPurge) {
    folder.write(u"var/lib/grimoval/MASK/CE1.DBS", "à la main");
    folder.write(u"var/lib/grimoval/listes/A.txt", "ALGUE\n");
    EXPECT_EQ(run("postrm", "remove").status, 0);
    EXPECT_TRUE(folder.exists(u"var/lib/grimoval/MASK/CE1.DBS"));
    EXPECT_TRUE(folder.exists(u"var/lib/grimoval/listes/A.txt"));
    EXPECT_EQ(run("postrm", "purge").status, 0);
    EXPECT_FALSE(folder.exists(u"var/lib/grimoval"));
}

TEST_F(PackageScript, CompletesTitlesAndExpandsNothingInThem) {
    const std::string bash = "/bin/bash", trap = folder.bytePath(u"piege");
    if (!std::filesystem::exists(bash)) {
        GTEST_SKIP() << "bash is missing";
    }
    const std::string title = "La $(touch " + trap + ") `touch " + trap + "`";
    program(u"faux/grimbases",
            "cat <<'FIN'\nLa mer (MER.DBS, 2 mots)\n  VAGUE (d'eau)\nLe ciel (CIEL.DBS, 1 mot)\n" +
                title + " (A.DBS, 1 mot)\nFIN");
    const auto completed = [&](const std::string &typed) {
        return test::run({bash, "-c",
                          "PATH=" + folder.bytePath(u"faux") +
                              ":/usr/bin:/bin; . \"$1\"; COMP_WORDS=(grimbases retirer \"$2\"); "
                              "COMP_CWORD=2; _grimbases; printf '%s\\n' \"${COMPREPLY[@]}\"",
                          "bash", GRIMOVAL_SOURCES "/packaging/completion/grimbases", typed})
            .output;
    };
    EXPECT_EQ(completed(""), "La mer\nLe ciel\n" + title + "\n");
    EXPECT_EQ(completed("La\\ m"), "La mer\n");
    EXPECT_EQ(completed("\"Le c"), "Le ciel\n");
    EXPECT_FALSE(folder.exists(u"piege"));
}

} // namespace grimoval::test::package_scripts
