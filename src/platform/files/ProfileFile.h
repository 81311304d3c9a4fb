// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <span>

namespace platform {

/// Profile files ("INI"): lines "[section]" and "key=value" in the code page. Sections and keys are
/// found without regard to case; the first of several counts. Blanks around names and values are
/// ignored. A ";" begins a comment only at the start of a line. Double quotes around a value are
/// left out.

/// True if there is a file or folder of this path.
bool PathFileExistsA(const QString& path);

/// Copies the value, or `fallback` if file, section or key is missing, into the buffer and adds a
/// NUL. Returns the number of bytes without the NUL: at most the buffer's size less 1. Never fails.
int GetPrivateProfileStringA(const QString& section, const QString& key, const QString& fallback,
                             std::span<char> buffer, const QString& path);

/// Sets the key and leaves all other lines as they are; adds key, section or file if missing. The
/// file is replaced whole. Fails as WriteFile does, and on a file that is there but can't be read.
void WritePrivateProfileStringA(const QString& section, const QString& key, const QString& value,
                                const QString& path);

/// The same on the bytes of a profile file; nullopt without the key.
std::optional<QByteArray> ProfileValue(const QByteArray& file, const QByteArray& section,
                                       const QByteArray& key);
QByteArray WithProfileValue(const QByteArray& file, const QByteArray& section,
                            const QByteArray& key, const QByteArray& value);

} // namespace platform
