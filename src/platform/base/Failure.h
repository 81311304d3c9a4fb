// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <exception>

namespace platform {

/// Numbers of the failures that a handler may tell apart.
enum class FailureCode {
    Overflow = 6,
    TypeMismatch = 13,
    FileNotFound = 53,
    DiskFull = 61,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
    InvalidText = 321,
    InvalidArgument = 380,
    InvalidPicture = 481,
    Printer = 482,
};

/// The one exception type of the program. `text` is Spanish and meant for the user's eyes.
class Failure : public std::exception {
public:
    Failure(FailureCode code, QString source, QString text);

    FailureCode Code() const { return m_code; }
    const QString& Source() const { return m_source; }
    const QString& Text() const { return m_text; }
    /// True if a path or file couldn't be reached, read or written.
    bool IsFileAccess() const;
    const char* what() const noexcept override { return m_what.constData(); }

private:
    FailureCode m_code;
    QString m_source;
    QString m_text;
    QByteArray m_what;
};

} // namespace platform
