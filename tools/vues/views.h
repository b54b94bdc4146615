// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the views, plays the person up to each, and keeps its picture. The language is that of
// grimoval-script, with the words of tools/vues/*.script added.
#pragma once

#include "platform/scripted/services.h"
#include "shell/MAINGRIM.h"
#include "tools/aide/viewer.h"
#include "tools/script/person.h"
#include "tools/vues/stage.h"

#include <iosfwd>

namespace grimoval::vues {

// A line of the script that could not be carried out.
struct Mistake {
    int line;
    std::string reason;
};

class Views {
public:
    // `data` is copied before anything is changed in it; `list` is told of each picture.
    Views(const QString &data, const QString &pictures, std::istream &script, std::ostream &list)
        : data_(data), pictures_(pictures), script_(script), list_(list) {}

    // To the end of the script; throws Mistake.
    void run();

private:
    struct Arret {}; // the person pulls the plug
    using Words = script::Words;

    bool next(Words &words);
    void prepare(const Words &words);
    void play();
    void showHelp(const Texte &page);
    void converse(const std::function<bool()> &waiting);
    void obey(const Words &words);
    void keep(const Words &words);
    void want(const script::Refusal &refusal) const;
    void want(bool good, const char *reason) const;
    void makeData(const QString &folder) const;

    QString data_, pictures_;
    std::istream &script_;
    std::ostream &list_;
    int line_ = 0;

    // What the next run of the program finds.
    std::vector<Texte> missing_; // files of the data
    std::vector<Texte> theme_;   // title, picture, entries: the only theme there is
    scripted::ScriptedRandom random_;
    Stage *stage_ = nullptr;
    std::unique_ptr<HelpWindow> help_;
};

} // namespace grimoval::vues
