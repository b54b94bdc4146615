// SPDX-License-Identifier: GPL-3.0-or-later
// The cloth of the curtain.
#pragma once

#include "platform/qt/painting.h"

namespace grimoval {

// Velvet in folds, with a hem of gold braid and fringe at its bottom, as it hangs over a whole
// frame. The hem is `hem` high.
QPixmap makeDrapery(QSizeF place, double hem, double deviceRatio);

} // namespace grimoval
