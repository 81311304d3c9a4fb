// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace shared {
class cProg;
}

namespace Module2 {

/// Shows in the bar how much of a file is copied, and lets the window system's events through. A
/// file of size 0 counts as whole. Answers 0: the copy goes on.
int CopyProgress(qint64 total, qint64 copiado, shared::cProg& barra);

} // namespace Module2
