// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

namespace core {

/// The Spanish text, in UTF-8, that the user reads for an errno.
struct ErrorText {
    int number;
    const char* text;
};

/// The text for an errno of files and connections; null if the table has none.
const char* TextOfError(int number);
/// The same, but `special` is searched first: texts for numbers that mean something else there.
const char* TextOfError(std::span<const ErrorText> special, int number);

} // namespace core
