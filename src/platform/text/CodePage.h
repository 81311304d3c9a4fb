// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace platform {

/// The 8-bit code page of the program's files: Windows-1252 as the WHATWG Encoding Standard defines
/// it, so the five bytes without a character (81, 8D, 8F, 90, 9D) stand for the C1 controls of the
/// same value, both ways.
QString FromCodePage(QByteArrayView bytes);

/// The same as UTF-8, without the way round.
QByteArray CodePageToUtf8(QByteArrayView bytes);

/// Empty if a character has no place in the code page.
std::optional<QByteArray> ToCodePage(QStringView text);

/// As ToCodePage, with "?" for each character that has no place. Never for a user's own file.
QByteArray ToCodePageLossy(QStringView text);

} // namespace platform
