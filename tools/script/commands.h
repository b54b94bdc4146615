// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of grimoval-script: one a line, UTF-8, arguments that hold blanks in double quotes.
#pragma once

#include "tools/script/person.h"
#include "tools/script/program.h"

#include <iosfwd>

namespace grimoval::script {

class Interpreter {
public:
    Interpreter(std::istream &input, std::ostream &output) : input_(input), output_(output) {}
    // Until the end of input, which closes nothing.
    void run();

private:
    struct EndOfInput {};

    // Reads and carries out commands as long as the condition holds.
    void converse(const std::function<bool()> &waiting);
    void obey(const Texte &line);
    // A refusal's reason, or nothing when the command has been carried out.
    Refusal carryOut(const Words &words);
    Refusal prepare(const Words &words);
    Refusal act(const Words &words);
    void start(const Words &words);

    std::istream &input_;
    std::ostream &output_;
    Surroundings around_;
    std::unique_ptr<Program> program_;
};

} // namespace grimoval::script
