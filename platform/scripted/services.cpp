// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/scripted/services.h"

#include <array>
#include <cstdio>

namespace grimoval::scripted {

namespace {

std::string fileName(const Texte &path) {
    return toUtf8(path.substr(path.find_last_of(separator) + 1));
}

std::string argument(const Texte &text) {
    return text.empty() || text.find(u' ') != Texte::npos ? shownValue(text) : toUtf8(text);
}

// With at most two decimals, and none that tells nothing.
std::string measure(double value) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.2f", value);
    std::string number = text.data();
    number.erase(number.find_last_not_of('0') + 1);
    if (number.back() == '.') {
        number.pop_back();
    }
    return number == "-0" ? "0" : number;
}

std::string corners(double x1, double y1, double x2, double y2) {
    return measure(x1) + " " + measure(y1) + " " + measure(x2) + " " + measure(y2);
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

const RecordedPrinter::Measures &RecordedPrinter::printer() const {
    if (!measures) {
        throw Failure(failure::printerError);
    }
    return *measures;
}

void RecordedPrinter::drawText(double x, double y, const Texte &text) {
    printer();
    sink("page texte " + measure(x) + " " + measure(y) + " " + shownValue(text));
}

void RecordedPrinter::drawLine(double x1, double y1, double x2, double y2) {
    printer();
    sink("page ligne " + corners(x1, y1, x2, y2));
}

void RecordedPrinter::drawRectangle(double x1, double y1, double x2, double y2) {
    printer();
    sink("page cadre " + corners(x1, y1, x2, y2));
}

void RecordedPrinter::endDocument() {
    printer();
    sink("page fin");
}

} // namespace grimoval::scripted
