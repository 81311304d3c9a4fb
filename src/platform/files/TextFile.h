// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/text/TextEncoding.h"

namespace platform {

/// Reads a whole file by program path and decodes it as DecodeText does; a failure's text names the
/// file.
DecodedText ReadTextFile(const QString& path);

} // namespace platform
