// SPDX-License-Identifier: GPL-3.0-or-later
// A profile file of any bytes: what is written is read back, and no other line changes.
#include "platform/files/ProfileFile.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    const QByteArray file(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QByteArray others = platform::ProfileValue(file, "general", "nuevo").value_or("-");
    const QByteArray written = platform::WithProfileValue(file, "inicio", "ejecuciones", "1");
    if (platform::ProfileValue(written, "INICIO", "Ejecuciones") != QByteArray("1") ||
        platform::ProfileValue(written, "general", "nuevo").value_or("-") != others)
        std::abort();
    return 0;
}
