// SPDX-License-Identifier: GPL-3.0-or-later
// Profile files: lines [section] and key=value in Windows-1252, CR LF.
#pragma once

#include "platform/files.h"

namespace grimoval {

// The text of a key without the blanks around it; empty if the file, the section or the key is
// missing or cannot be read, or the file is larger than 1 MiB. Creates nothing. Names are compared
// without regard to case.
Texte readProfile(Files &files, const Texte &path, const Texte &section, const Texte &key);

// Replaces the key where it stands, or adds it after the last line of its section, or adds the
// section at the end of the file, or the file. Everything else in the file is kept as it is. A
// write that fails leaves the old file whole and says nothing, as does one to a file that may not
// be written or is too large to be read. A link is followed.
void writeProfile(Files &files, const Texte &path, const Texte &section, const Texte &key,
                  const Texte &value);

} // namespace grimoval
