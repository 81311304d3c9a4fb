// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/TextFile.h"

#include "platform/FileErrors.h"
#include "platform/Files.h"

namespace platform {

DecodedText ReadTextFile(const QString& path) {
    const QByteArray bytes = ReadFile(path);
    try {
        return DecodeText(bytes);
    } catch (const Failure& failure) {
        throw Failure(failure.Code(), failure.Source(),
                      FileFailureText(u"abrir", path, failure.Text()));
    }
}

} // namespace platform
