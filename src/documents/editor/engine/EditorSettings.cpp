// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/engine/EditorSettings.h"

#include "shared/Module1.h"

namespace documents {
namespace {

QString Section() {
    return QStringLiteral("editor");
}

QString Word(bool on) {
    return on ? QStringLiteral("si") : QStringLiteral("no");
}

} // namespace

QString EditorSettings::Value(const QString& key, const QString& fallback) {
    return Module1::LeerIni(Module1::RutaConfig(), Section(), key, fallback);
}

bool EditorSettings::IsOn(const QString& key, bool fallback) {
    return Value(key, Word(fallback)) == Word(true);
}

void EditorSettings::Keep(const QString& key, const QString& value) {
    Module1::EscribirIni(Module1::RutaConfig(), Section(), key, value);
    Q_EMIT Changed(key);
}

void EditorSettings::Keep(const QString& key, bool on) {
    Keep(key, Word(on));
}

EditorSettings& SharedSettings() {
    static EditorSettings settings;
    return settings;
}

} // namespace documents
