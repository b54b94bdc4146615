// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/replay.h"

namespace grimoval::fuzz {

TEST(ForeignBytes, OfFacesAndPictures) { replay("pictures", pictures); }

} // namespace grimoval::fuzz
