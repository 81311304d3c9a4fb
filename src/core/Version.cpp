// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Version.h"

namespace core {

const char* Version() {
    return QUILLMARK_VERSION;
}

} // namespace core
