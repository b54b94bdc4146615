// SPDX-License-Identifier: GPL-3.0-or-later
// Scripts in, every change of every control out: each *.script of this folder is played and its
// events are compared with the *.transcript beside it, line by line. A change that is meant is
// taken over by running the test once with ECRIRE_TRANSCRIPTS in the environment; the diff is the
// review.
#include "support/scripts.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace grimoval::test::transcripts {

namespace fs = std::filesystem;

std::string content(const fs::path &path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> scripts() {
    std::vector<std::string> names;
    for (const fs::directory_entry &entry :
         fs::directory_iterator(GRIMOVAL_SOURCES "/tests/stories")) {
        if (entry.path().extension() == ".script") {
            names.push_back(entry.path().stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

class Transcript : public testing::TestWithParam<std::string> {};

TEST_P(Transcript, IsTheOneThatIsStored) {
    const fs::path base = fs::path(GRIMOVAL_SOURCES "/tests/stories") / GetParam();
    ScriptedRun scripted;
    const std::vector<std::string> got = scripted.run(content(base.string() + ".script"));
    if (std::getenv("ECRIRE_TRANSCRIPTS") != nullptr) {
        std::ofstream stream(base.string() + ".transcript", std::ios::binary);
        for (const std::string &line : got) {
            stream << line << '\n';
        }
        GTEST_SKIP() << "the transcript has been written";
    }
    std::vector<std::string> stored;
    std::istringstream stream(content(base.string() + ".transcript"));
    for (std::string line; std::getline(stream, line);) {
        stored.push_back(line);
    }
    EXPECT_FALSE(stored.empty());
    const std::size_t lines = std::max(got.size(), stored.size());
    for (std::size_t i = 0; i < lines; ++i) {
        const std::string now = i < got.size() ? got[i] : "(nothing more)";
        const std::string before = i < stored.size() ? stored[i] : "(nothing more)";
        ASSERT_EQ(now, before) << "line " << i + 1 << ", after: "
                               << (i > 0 ? stored[i - 1] : std::string("the beginning"));
    }
}

INSTANTIATE_TEST_SUITE_P(Stories, Transcript, testing::ValuesIn(scripts()),
                         [](const auto &param) { return param.param; });

TEST(Transcripts, AreThere) { EXPECT_GE(scripts().size(), 5u); }

} // namespace grimoval::test::transcripts
