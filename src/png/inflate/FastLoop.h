// SPDX-License-Identifier: GPL-3.0-or-later
// The accelerated loop is built once for every machine and once for those with BMI2 and SSSE3.
#pragma once

#include "png/inflate/FastCodes.h"

namespace png {

bool FastLoopPlain(FastBlock& block);
bool FastLoopBmi2(FastBlock& block);

} // namespace png
