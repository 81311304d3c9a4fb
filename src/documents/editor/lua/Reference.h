// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace documents {

struct Call;

/// The manual's chapter of all calls, without its heading: Markdown, a table for each library.
std::string ReferenceChapter();

/// The Markdown of one call: how it's written, what it takes, gives and does, and an example.
std::string ReferenceEntry(const Call& call);

} // namespace documents
