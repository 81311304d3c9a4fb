// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLoggingCategory>

namespace platform {

/// The log for what the user isn't shown: it goes to stderr, or to the journal if there is none.
Q_DECLARE_LOGGING_CATEGORY(lcQuillmark)

} // namespace platform
