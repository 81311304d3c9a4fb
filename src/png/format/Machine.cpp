// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/format/Machine.h"

namespace png {

const Machine& ThisMachine() {
#ifdef QUILLMARK_PNG_X86
    static const Machine machine = {__builtin_cpu_supports("ssse3") != 0,
                                    __builtin_cpu_supports("bmi") != 0 &&
                                        __builtin_cpu_supports("bmi2") != 0};
#else
    static const Machine machine;
#endif
    return machine;
}

} // namespace png
