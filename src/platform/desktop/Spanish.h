// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QCoreApplication;

namespace platform {

/// Puts the toolkit's own buttons, menus and dialogs into Spanish, whatever the desktop speaks.
void SpeakSpanish(QCoreApplication& application);

} // namespace platform
