// SPDX-License-Identifier: GPL-3.0-or-later
// The run-time failure: a number, thrown. A routine with an error rule of its own catches it and
// acts on the number; one that nobody catches ends the process with a failure report.
#pragma once

#include "platform/text.h"

#include <exception>

namespace grimoval {

class Failure : public std::exception {
public:
    explicit Failure(int failureNumber) : number(failureNumber) {}
    const char *what() const noexcept override { return "run-time failure"; }
    int number;
};

// Thrown by Application::end(): the process ends at once, whatever handlers are running.
struct ProgramEnd {
    int status = 0;
};

namespace failure {
// The classic numbers of the run-time and its file layer.
enum Number : int {
    overflow = 6,
    outOfMemory = 7,
    divisionByZero = 11,
    badFileNameOrNumber = 52,
    fileNotFound = 53,
    fileAlreadyOpen = 55,
    deviceError = 57,
    fileAlreadyExists = 58,
    diskFull = 61,
    inputPastEnd = 62,
    badRecordNumber = 63,
    badFileName = 64,
    tooManyFiles = 67,
    deviceUnavailable = 68,
    permissionDenied = 70,
    diskNotReady = 71,
    pathAccess = 75,
    pathNotFound = 76,
    noSuchElement = 340,
    windowUnloaded = 364,
    invalidPropertyValue = 380,
    invalidPicture = 481,
    printerError = 482,
    internal = 51
};
} // namespace failure

// What a failure's number means, one French sentence for the failure report.
Texte failureMeaning(int number);

} // namespace grimoval
