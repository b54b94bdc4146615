// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/scripts.h"

#include "support/game.h"
#include "tools/script/commands.h"

#include <sstream>

namespace grimoval::test {

namespace {

std::string replaced(std::string text, const std::string &from, const std::string &to) {
    for (std::size_t place = text.find(from); place != std::string::npos;
         place = text.find(from, place + to.size())) {
        text.replace(place, from.size(), to);
    }
    return text;
}

} // namespace

ScriptedRun::ScriptedRun() {
    folder.makeFolder(u"donnees");
    folder.makeFolder(u"vide/MASK");
    folder.write(u"appli/MASK/ANIMAUX.DBS", wordRecords({u"CHAT", u"LION", u"OURS", u"PUMA"}));
    folder.write(u"appli/MASK/ETE.DBS", wordRecords({u"MER", u"SABLE"}));
    folder.write(u"appli/MASK/GRIMV.LST", baseRecord(1, 2, u"ETE", u"Été (la plage)") +
                                              baseRecord(2, 4, u"ANIMAUX", u"Animaux", u"ANIMAUX"));
    folder.write(u"appli/IMAGES/ANIMAUX.JPG", "\xFF\xD8");
    folder.write(u"appli/IMAGES/IMG01.BMP", "BM");
    folder.write(u"appli/IMAGES/IMG02.BMP", "BM");
    folder.makeFolder(u"appli/SONS");
}

std::vector<std::pair<std::string, std::string>> ScriptedRun::places() const {
    return {{"{APPLI}", folder.bytePath(u"appli")},
            {"{DONNEES}", folder.bytePath(u"donnees")},
            {"{VIDE}", folder.bytePath(u"vide")}};
}

std::vector<std::string> ScriptedRun::run(const std::string &commands) {
    std::string text = commands;
    for (const auto &[placeholder, path] : places()) {
        text = replaced(text, placeholder, path);
    }
    std::istringstream input(text);
    std::ostringstream output;
    script::Interpreter(input, output).run();
    text = output.str();
    for (const auto &[placeholder, path] : places()) {
        text = replaced(text, path, placeholder);
    }
    std::vector<std::string> lines;
    std::istringstream events(text);
    for (std::string line; std::getline(events, line);) {
        lines.push_back(line);
    }
    return lines;
}

} // namespace grimoval::test
