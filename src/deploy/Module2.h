// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace shared {
class cProg;
}

namespace Module2 {

/// Shows in the bar how many of a file's bytes are copied (100 % for a size of 0) and handles
/// pending events. Returns 0: the copy goes on.
int CopyProgress(qint64 total, qint64 copiado, shared::cProg& barra);

} // namespace Module2
