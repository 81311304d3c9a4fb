// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/Log.h"

namespace platform {

Q_LOGGING_CATEGORY(lcQuillmark, "quillmark")

} // namespace platform
