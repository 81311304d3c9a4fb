// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/Registry.h"

#include "platform/desktop/UserSettings.h"

namespace platform {
namespace {

const QString kStore = QStringLiteral("Clases de archivos");
const QString kSection = QStringLiteral("HKEY_CLASSES_ROOT");

QString Below(const RegistryKey& key, const QString& name) {
    const bool atRoot = key.Path().isEmpty();
    return name.isEmpty() ? key.Path() : key.Path() + QStringLiteral("\\").left(!atRoot) + name;
}

// The settings store separates the names by "/".
QString SettingsKey(const RegistryKey& key, const QString& subKey) {
    return Below(key, subKey).replace(u'\\', u'/');
}

} // namespace

RegistryKey RegCreateKeyA(const RegistryKey& root, const QString& name) {
    return RegistryKey(Below(root, name));
}

void RegSetValueA(const RegistryKey& key, const QString& subKey, const QString& text) {
    SaveSetting(kStore, kSection, SettingsKey(key, subKey), text);
}

QString RegQueryValueA(const RegistryKey& key, const QString& subKey) {
    return GetSetting(kStore, kSection, SettingsKey(key, subKey), QString());
}

} // namespace platform
