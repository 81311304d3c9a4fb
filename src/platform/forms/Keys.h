// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeyEvent>

namespace platform {

/// The key of that name, or the one on the number pad.
inline bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace platform
