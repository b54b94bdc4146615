// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/guard.h"

#include "platform/services.h"

#include <cstdio>
#include <cstdlib>

namespace grimoval {

void endProcess(int status) {
    std::fflush(nullptr);
    std::_Exit(status);
}

Texte failureReport(int number) {
    return u"L'ERREUR " + decimal(number) + u" est survenue.\n" + failureMeaning(number) +
           u"\n\nLe Grimoval va être arrêté.";
}

void Guard::run(const std::function<void()> &action) {
    if (!isOpen()) {
        return;
    }
    try {
        action();
    } catch (const ProgramEnd &programEnd) {
        finish(programEnd.status);
    } catch (const Failure &failed) {
        fail(failed.number);
    } catch (...) {
        fail(failure::internal);
    }
}

void Guard::fail(int number) {
    if (!reporting_) {
        reporting_ = true;
        try {
            showMessage_({failureReport(number), MessageIcon::critical, Application::title});
        } catch (...) {
            // The report cannot be shown: the status alone tells.
        }
    }
    finish(1);
}

void Guard::finish(int status) {
    if (!ended_) {
        ended_ = true;
        end(status);
    }
}

} // namespace grimoval
