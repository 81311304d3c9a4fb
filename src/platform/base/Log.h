// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLoggingCategory>

namespace platform {

/// What is worth knowing but is not shown to the user goes here: stderr, or the journal without
/// one.
Q_DECLARE_LOGGING_CATEGORY(lcQuillmark)

} // namespace platform
