// SPDX-License-Identifier: GPL-3.0-or-later
// The session bus, before the toolkit asks it: a bus that takes a connection and never answers
// keeps the toolkit, and with it the first window, for ever.
#pragma once

#include <chrono>
#include <string>

namespace grimoval {

// Asks the bus of the session. One that has not answered by then is forgotten: for this process and
// what it starts there is none. To be called before there is a QApplication.
void forgetSilentBus(std::chrono::milliseconds patience);

// Whether a bus on this machine's own socket answers in time; true for an address of any other
// kind, and for one that nobody serves, which says so at once.
bool answers(const std::string &address, std::chrono::milliseconds patience);

} // namespace grimoval
