// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/inflate/FastLoop.h"
#include "png/inflate/FastLoopBody.h"

bool png::FastLoopPlain(FastBlock& block) {
    return FastLoop(block);
}
