// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/write/Suggestions.h"

#include "documents/editor/engine/EditorSettings.h"

namespace documents {
namespace {

QString Key() {
    return QStringLiteral("sugerencias");
}

} // namespace

bool SuggestionsOn() {
    return EditorSettings::IsOn(Key(), true);
}

void SuggestionsOn(bool on) {
    SharedSettings().Keep(Key(), on);
}

void FollowSuggestions(QObject& follower, bool& on) {
    on = SuggestionsOn();
    QObject::connect(&SharedSettings(), &EditorSettings::Changed, &follower,
                     [&on](const QString& key) {
                         if (key == Key())
                             on = SuggestionsOn();
                     });
}

} // namespace documents
