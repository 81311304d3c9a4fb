// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace platform {

/// The 8-bit code page of the program's files: Windows-1252 as core/Windows1252.h defines it. Every
/// byte has a character.
QString FromCodePage(QByteArrayView bytes);

/// The same, straight to UTF-8.
QByteArray CodePageToUtf8(QByteArrayView bytes);

/// The bytes of a text; nullopt if a character is not in the code page.
std::optional<QByteArray> ToCodePage(QStringView text);

/// The index of the first character that is not in the code page, or -1.
qsizetype FirstOutsideCodePage(QStringView text);

/// As ToCodePage, with "?" for each character not in it. It loses text: never for a user's file.
QByteArray ToCodePageLossy(QStringView text);

} // namespace platform
