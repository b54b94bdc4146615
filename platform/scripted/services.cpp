// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/scripted/services.h"

namespace grimoval::scripted {

namespace {

std::string fileName(const Texte &path) {
    return toUtf8(path.substr(path.find_last_of(separator) + 1));
}

std::string argument(const Texte &text) {
    return text.empty() || text.find(u' ') != Texte::npos ? shownValue(text) : toUtf8(text);
}

} // namespace

float ScriptedRandom::next() {
    ++drawn;
    if (numbers.empty()) {
        return 0;
    }
    const float number = numbers.front();
    numbers.pop_front();
    return number;
}

void RecordedSound::playWave(const Texte &path) { sink("parole " + fileName(path)); }

void RecordedSound::playMidi(const Texte &path, bool loop) {
    looping = loop;
    sink("musique " + fileName(path));
}

void RecordedDocuments::openWeb(const Texte &address) { sink("web " + argument(address)); }

void RecordedDocuments::openDocument(const Texte &path) { sink("document " + argument(path)); }

void RecordedDocuments::showHelp(const Texte &path, const Texte &keyword) {
    sink("aide " + argument(path) + " " + argument(keyword));
}

void RecordedDocuments::writeMail(const Texte &address) { sink("courriel " + argument(address)); }

} // namespace grimoval::scripted
