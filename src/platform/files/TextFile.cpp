// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/TextFile.h"

#include "platform/base/Failure.h"
#include "platform/files/FileErrors.h"
#include "platform/files/Files.h"

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
