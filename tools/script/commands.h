// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of grimoval-script: one a line, UTF-8, arguments that hold blanks in double quotes.
#pragma once

#include "tools/script/program.h"

#include <iosfwd>

namespace grimoval::script {

// Words of a line; quotes group, and inside them \" and \\ stand for themselves. Nothing for quotes
// that are not closed.
std::optional<std::vector<Texte>> splitCommand(const Texte &line);

class Interpreter {
public:
    Interpreter(std::istream &input, std::ostream &output) : input_(input), output_(output) {}
    // Until the end of input, which closes nothing.
    void run();

private:
    struct EndOfInput {};
    using Words = std::vector<Texte>;

    // Reads and carries out commands as long as the condition holds.
    void converse(const std::function<bool()> &waiting);
    void obey(const Texte &line);
    // A refusal's reason, or nothing when the command has been carried out.
    std::optional<std::string> carryOut(const Words &words);
    std::optional<std::string> prepare(const Words &words);
    std::optional<std::string> act(const Words &words);
    std::optional<std::string> press(const Texte &name);
    void start(const Words &words);

    std::istream &input_;
    std::ostream &output_;
    Surroundings around_;
    std::unique_ptr<Program> program_;
};

} // namespace grimoval::script
