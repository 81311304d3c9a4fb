// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/base/Failure.h"

namespace platform {

/// Thrown where a call fails; whoever knows the path and the verb turns it into a Failure.
struct SystemError {
    int number; ///< an errno, or one of those below
};

inline constexpr int kNotRegular = -1;
inline constexpr int kTooLarge = -2;
inline constexpr int kNoParent = -3; // the folder that would hold it is missing

/// Throws errno as a SystemError.
[[noreturn]] void ThrowErrno();

/// The Spanish reason for the number of a SystemError.
QString ErrorText(int error);

/// The text of a failure: the verb in Spanish ("abrir"), the file and the reason.
QString FileFailureText(QStringView verb, const QString& path, const QString& reason);
Failure FileFailure(QStringView verb, const QString& path, SystemError error);
/// The same for a file that is saved. The file need not exist, so ENOENT means that its folder
/// doesn't.
Failure SaveFailure(const QString& path, SystemError error);
/// The same for a folder.
Failure FolderFailure(QStringView verb, const QString& path, SystemError error);

} // namespace platform
