// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/lua/Calls.h"

#include <span>

namespace documents {

/// The rows of the table of calls, by what they are about.
std::span<const Call> PictureCalls();
std::span<const Call> SoundCalls();
std::span<const Call> MachineCalls();
std::span<const Call> NetworkCalls();
std::span<const Call> BasicCalls();
std::span<const Call> TextCalls();
std::span<const Call> TableCalls();
std::span<const Call> MathCalls();
std::span<const Call> FileCalls();

} // namespace documents
