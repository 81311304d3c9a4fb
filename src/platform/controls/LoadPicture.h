// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>

namespace platform {

/// The picture in the file of that program path, upright as its camera noted it; a null one for an
/// empty path. Fails with a text that names the file and the reason.
QImage LoadPicture(const QString& path);

} // namespace platform
