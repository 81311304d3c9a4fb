// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/base/Failure.h"

namespace platform {

/// A number of errno, or one of ours, on its way to the one place that knows the path and the verb.
struct SystemError {
    int number;
};

/// Our own numbers beside those of errno.
inline constexpr int kNotRegular = -1;
inline constexpr int kTooLarge = -2;
inline constexpr int kNoParent = -3; // the folder that would hold it is missing

/// Throws errno as a SystemError.
[[noreturn]] void ThrowErrno();

/// The Spanish reason for a number of errno or of ours.
QString ErrorText(int error);

/// The text of a failure: the verb in Spanish ("abrir"), the file and the reason.
QString FileFailureText(QStringView verb, const QString& path, const QString& reason);
Failure FileFailure(QStringView verb, const QString& path, SystemError error);
/// The same of a file to be written. One that isn't there yet is no failure, so it is its folder
/// that is missing.
Failure SaveFailure(const QString& path, SystemError error);
/// The same of a folder.
Failure FolderFailure(QStringView verb, const QString& path, SystemError error);

} // namespace platform
