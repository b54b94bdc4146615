// SPDX-License-Identifier: GPL-3.0-or-later
// A list of bases names its files, and it comes from anybody: no name reaches out of its folder.
// The system itself tells which files were opened.
#include "support/game.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <set>
#include <sys/inotify.h>
#include <unistd.h>

namespace grimoval::test::hostile_names {

// The files that are opened in a folder, without those of the folders in it.
class Opened {
public:
    explicit Opened(const std::string &folder) : descriptor_(::inotify_init1(IN_NONBLOCK)) {
        EXPECT_GE(::inotify_add_watch(descriptor_, folder.c_str(), IN_OPEN | IN_CREATE), 0);
    }
    ~Opened() { ::close(descriptor_); }
    Opened(const Opened &) = delete;
    Opened &operator=(const Opened &) = delete;

    // Since the last call.
    std::set<std::string> take() {
        std::set<std::string> names;
        alignas(inotify_event) char events[16384];
        for (ssize_t got = 0; (got = ::read(descriptor_, events, sizeof events)) > 0;) {
            for (char *place = events; place < events + got;) {
                const auto *event = reinterpret_cast<const inotify_event *>(place);
                if ((event->mask & IN_ISDIR) == 0 && event->len > 0) {
                    names.insert(event->name);
                }
                place += sizeof(inotify_event) + event->len;
            }
        }
        return names;
    }

private:
    int descriptor_;
};

// Of two themes the first is good; the second has the name under test, for its base or picture.
struct HostileName : testing::Test {
    HostileName() {
        base("A.DBS");
        game.write(u"IMAGES/IMG01.BMP", "BM");
        // Beside the folders, under the names that a way out would lead to.
        for (const char16_t *name : {u"C.DBS", u"C.JPG", u".DBS", u".JPG"}) {
            game.write(name, wordRecords({u"CANARI"}));
        }
        game.folder.makeFolder(u"grimoval/MASK/SOUS");
        game.folder.makeFolder(u"grimoval/IMAGES/SOUS");
        game.write(u"MASK/SOUS/C.DBS", wordRecords({u"CANARI"}));
        game.write(u"IMAGES/SOUS/C.JPG", "\xFF\xD8");
        for (Opened *folder : {&outside, &below, &belowImages}) {
            folder->take(); // what the test itself has opened
        }
    }
    void base(const std::string &name) const {
        game.write(u"MASK/" + fromUtf8(name), wordRecords({u"MOT"}));
    }
    // A record whose fields are any bytes.
    static std::string record(int number, std::string file, std::string image) {
        file.resize(8, ' ');
        image.resize(8, ' ');
        const std::string bytes = baseRecord(number, 1, u"X", number == 1 ? u"A" : u"B");
        return bytes.substr(0, 4) + file + bytes.substr(12, 30) + image + bytes.substr(50);
    }
    // What the chooser says when it opens, and how many themes it offers.
    std::string open(const std::string &second) {
        game.write(u"MASK/GRIMV.LST", record(1, "A", "") + second);
        game.windows.messages.clear();
        std::string said;
        try {
            game.titles.show();
        } catch (const ProgramEnd &) {
            said = "fin ";
        }
        for (const Message &message : game.windows.messages) {
            const std::string title = toUtf8(message.title);
            said += (title.starts_with("ERREUR") ? title : "attention") + " ";
        }
        return said + std::to_string(game.titles.LstTitre.ListCount());
    }
    void expectNothingOpenedOutside() {
        EXPECT_EQ(outside.take(), std::set<std::string>());
        EXPECT_EQ(below.take(), std::set<std::string>());
        EXPECT_EQ(belowImages.take(), std::set<std::string>());
    }

    Game game;
    Opened outside{game.folder.bytePath(u"grimoval")};
    Opened below = watch(u"grimoval/MASK/SOUS"), belowImages = watch(u"grimoval/IMAGES/SOUS");

private:
    Opened watch(const Texte &name) const {
        game.folder.makeFolder(name);
        return Opened(game.folder.bytePath(name));
    }
};

struct Name {
    std::string bytes;
    bool onDisk; // a file of that very name can lie in the folder
    bool good = false;
};

const std::vector<Name> &names() {
    using namespace std::string_literals;
    static const std::vector<Name> all = {
        {"../C", false},     {"/C", false},       {"./C", false},       {"SOUS/C", false},
        {"..\\C", true},     {"SOUS\\C", true},   {"\\C", true},        {"C:C", true},
        {"C:\\C", true},     {"*", true},         {"?", true},          {"C\"", true},
        {"<C", true},        {"C|", true},        {"\x01", true},       {"C\x1F", true},
        {"C\x7F", true},     {"C\n", true},       {"\0"s, false},       {"A\0C"s, false},
        {"", true, true},    {"..", true, true},  {".", true, true},    {"NUL", true, true},
        {"CON", true, true}, {"AUX", true, true}, {"COM1", true, true}, {"A B", true, true},
    };
    return all;
}

TEST_F(HostileName, IsSeenWhereItIsOpened) {
    game.files.read(game.folder.path(u"grimoval/C.DBS"));
    EXPECT_EQ(outside.take(), std::set<std::string>{"C.DBS"});
    game.files.read(game.folder.path(u"grimoval/MASK/SOUS/C.DBS"));
    EXPECT_EQ(below.take(), std::set<std::string>{"C.DBS"});
}

TEST_F(HostileName, OfABaseIsAMissingOneOrABadOne) {
    for (const Name &name : names()) {
        SCOPED_TRACE(shownValue(fromAnsi(name.bytes)));
        // No file bears it: some other file keeps the check going.
        base("RESTE.DBS");
        EXPECT_EQ(open(record(2, name.bytes, "")), "attention 1");
        expectNothingOpenedOutside();
        game.titles.unload();
        if (!name.onDisk) {
            continue;
        }
        // A file bears it.
        const std::string file = toUtf8(upper(fromAnsi(name.bytes))) + ".DBS";
        base(file);
        EXPECT_EQ(open(record(2, name.bytes, "")), name.good ? "2" : "fin ERREUR : 64 0");
        expectNothingOpenedOutside();
        game.titles.unload();
        std::filesystem::remove(game.folder.bytePath(u"grimoval/MASK/" + fromUtf8(file)));
    }
}

TEST_F(HostileName, OfAPictureGivesNoneAndTheGameIsPlayed) {
    for (const Name &name : names()) {
        SCOPED_TRACE(shownValue(fromAnsi(name.bytes)));
        base("B.DBS");
        EXPECT_EQ(open(record(2, "B", name.bytes)), "2");
        ASSERT_TRUE(game.titles.LstTitre.userSelect(1));
        ASSERT_TRUE(game.titles.CmdTitre[1].userClick());
        EXPECT_FALSE(game.titles.isLoaded());
        EXPECT_TRUE(game.windows.messages.empty());
        EXPECT_EQ(game.menu.LstMot[0].ListCount(), 1);
        // A good name that is missing has become the default picture; a bad one is no picture.
        EXPECT_EQ(toUtf8(game.menu.VSDessin.PictureFile.get()),
                  name.good ? game.folder.bytePath(u"grimoval/IMAGES/IMG01.BMP") : "");
        expectNothingOpenedOutside();
        game.menu.DessTmp.PictureFile = u"";
    }
}

TEST_F(HostileName, OfAnyBytesOpensNothingElse) {
    const auto field = [] {
        return *rc::gen::container<std::string>(
            8, rc::gen::oneOf(rc::gen::elementOf(std::string("./\\:CSOU ")),
                              rc::gen::arbitrary<char>()));
    };
    rc::detail::checkGTest([&] {
        open(record(2, field(), field()));
        if (game.titles.LstTitre.ListCount() > 1) {
            game.titles.LstTitre.userSelect(1);
            game.titles.CmdTitre[1].userClick();
        }
        game.titles.unload();
        RC_ASSERT(outside.take().empty());
        RC_ASSERT(below.take().empty());
        RC_ASSERT(belowImages.take().empty());
    });
}

} // namespace grimoval::test::hostile_names
