// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/inflate/FastLoop.h"

#include "png/format/Machine.h"

namespace png {

bool DecodeFast(FastBlock& block, bool fastest) {
    const Machine& machine = ThisMachine();
    return fastest && machine.Bmi2 && machine.Ssse3 ? FastLoopBmi2(block) : FastLoopPlain(block);
}

} // namespace png
