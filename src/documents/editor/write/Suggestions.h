// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QObject;

namespace documents {

/// Whether lists and tips appear by themselves while the user writes, in all documents.
bool SuggestionsOn();
void SuggestionsOn(bool on);

/// Sets `on` now and after each change, as long as the follower lives.
void FollowSuggestions(QObject& follower, bool& on);

} // namespace documents
