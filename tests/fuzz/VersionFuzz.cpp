// SPDX-License-Identifier: GPL-3.0-or-later
// The first item of a version file, which comes from outside.
#include "update/Form7.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (update::PrimerElemento(bytes).size() > 255)
        std::abort();
    return 0;
}
