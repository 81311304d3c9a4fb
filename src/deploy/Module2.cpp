// SPDX-License-Identifier: GPL-3.0-or-later
#include "deploy/Module2.h"

#include "shared/cProg.h"

#include <QCoreApplication>

namespace Module2 {

int CopyProgress(qint64 total, qint64 copied, shared::cProg& bar) {
    const double share = total > 0 ? static_cast<double>(copied) / static_cast<double>(total) : 1;
    bar.Value(static_cast<int>(share * 100));
    QCoreApplication::processEvents();
    return 0;
}

} // namespace Module2
