// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QCoreApplication;

namespace platform {

/// Puts the texts of Qt and QScintilla into Spanish by QTranslator, whatever the desktop speaks.
void SpeakSpanish(QCoreApplication& application);

} // namespace platform
