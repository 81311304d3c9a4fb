// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>
#include <string>

namespace platform {

/// A character of a native name that a program path can't hold (\ : * ? " < > | and controls), and
/// each byte that isn't UTF-8, travels in program paths as U+F000 + code, both ways.

/// A single name of a native path as a name of a program path.
QString FromNativeName(QByteArrayView name);
/// The bytes of a name of a program path.
std::string ToNativeName(const QString& name);

/// A name or path as people should read it: travelling characters as themselves, bytes that are no
/// text as the replacement character.
QString DisplayText(const QString& text);

} // namespace platform
