// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/script/program.h"

namespace grimoval::script {

namespace {
scripted::Sink whileRunning(const std::shared_ptr<bool> &over, const scripted::Sink &sink) {
    return [over, sink](const std::string &line) {
        if (!*over) {
            sink(line);
        }
    };
}
} // namespace

Program::Program(Surroundings &around, const scripted::Sink &sink,
                 std::function<void(Form &)> converse, const Texte &folder,
                 const std::optional<Texte> &userData)
    : Program(around, std::make_shared<bool>(false), sink, std::move(converse), folder, userData) {}

Program::Program(Surroundings &around, const std::shared_ptr<bool> &over,
                 const scripted::Sink &sink, std::function<void(Form &)> converse,
                 const Texte &folder, const std::optional<Texte> &userData)
    : scripted::Windows(files_, whileRunning(over, sink)), over_(over),
      sink_(whileRunning(over, sink)), converse_(std::move(converse)), sound_(sink_),
      documents_(sink_), printer_(sink_),
      wheel_(screen, around.clock), services_{screen, files_,     around.clock, around.random,
                                              sound_, documents_, application_, printer_},
      g_(services_), windows_(g_) {
    wheel = &wheel_;
    files_.writeTime = [&around] { return around.clock.now(); };
    width = around.width;
    height = around.height;
    sound_.wave = around.wave;
    sound_.midi = around.midi;
    printer_.measures = around.printer;
    application_.folder = folder;
    application_.userData = userData;
}

void Program::run() {
    // However it ends, the windows go with the process, and tell nobody.
    const std::unique_ptr<bool, void (*)(bool *)> atTheEnd(over_.get(),
                                                           [](bool *over) { *over = true; });
    try {
        Main(g_, windows_);
    } catch (const ProgramEnd &end) {
        sink_("fin " + std::to_string(end.status));
    } catch (const Failure &failure) {
        sink_("echec " + std::to_string(failure.number));
    }
}

void Program::printState() {
    printVariables(g_, windows_.menu, sink_);
    const auto print = [this](const Element &element) {
        for (const PropertyBase *property : element.properties()) {
            for (const std::string &line : property->lines()) {
                sink_(element.path() + "." + line);
            }
        }
    };
    for (const Form *form : screen.loaded()) {
        print(*form);
        for (const Control *control : form->controls()) {
            print(*control);
        }
    }
}

} // namespace grimoval::script
