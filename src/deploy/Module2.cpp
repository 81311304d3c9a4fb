// SPDX-License-Identifier: GPL-3.0-or-later
#include "deploy/Module2.h"

#include "shared/cProg.h"

#include <QCoreApplication>

namespace Module2 {

int CopyProgress(qint64 total, qint64 copiado, shared::cProg& barra) {
    const double parte = total > 0 ? static_cast<double>(copiado) / static_cast<double>(total) : 1;
    barra.Value(static_cast<int>(parte * 100));
    QCoreApplication::processEvents();
    return 0;
}

} // namespace Module2
