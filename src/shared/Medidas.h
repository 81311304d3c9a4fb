// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace shared {

/// The width at which a document starts, in twips. What stands beside it begins there.
inline constexpr int kAnchoDocumento = 8000;

} // namespace shared
