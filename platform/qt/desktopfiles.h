// SPDX-License-Identifier: GPL-3.0-or-later
// The settings files of the desktops, which the toolkit reads as well as we do.
#pragma once

#include <QString>

namespace grimoval {

// Whether it may be read: a plain file, no larger than any of them. A pipe would keep a reader for
// ever.
bool isSettingsFile(const QString &path);

// Before there is a QApplication. With anything but a plain file in the place of one, the toolkit
// is to take no desktop's looks, and reads none of them; ours need none.
void avoidOddDesktop();

} // namespace grimoval
