// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

namespace core {

/// What the user reads, in Spanish and UTF-8, for a number of errno.
struct ErrorText {
    int number;
    const char* text;
};

/// The text of files and connections; null for a number that has none.
const char* TextOfError(int number);
/// The same, where a few numbers have another meaning: those of `special` go first.
const char* TextOfError(std::span<const ErrorText> special, int number);

} // namespace core
