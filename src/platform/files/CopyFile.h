// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

namespace platform {

/// Called with the size of the file and the bytes copied so far.
using CopyProgressRoutine = std::function<void(qint64 total, qint64 copied)>;

/// Copies a file in steps of at most 1 MiB and calls `progress` after each, at least once, on the
/// caller's thread; events of the window system are handled while the disk works. The target
/// appears, or is replaced, when the copy is whole and on the disk. `cancel` other than 0 stops the
/// copy: this returns false and no target is left. Fails with a text that names the reason and
/// which file caused it; an old target then stays.
bool CopyFileExA(const QString& source, const QString& target, const CopyProgressRoutine& progress,
                 const int& cancel);

} // namespace platform
