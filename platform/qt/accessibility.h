// SPDX-License-Identifier: GPL-3.0-or-later
// The widgets that we draw, on the accessibility bus.
#pragma once

namespace grimoval {

// From now on each Drawn widget tells its role, its name, its state and its action.
void installAccessibility();

} // namespace grimoval
