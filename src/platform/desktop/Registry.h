// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <utility>

namespace platform {

/// The per-user store of file classes: a tree of keys with one text each. "\" separates the names
/// of a path; they are found without regard to case. An extension (".lua") holds the name of its
/// class; a class holds its title, and below it "shell\open\command" and "DefaultIcon".

/// A key, which need not hold anything yet.
class RegistryKey {
public:
    explicit RegistryKey(QString path) : m_path(std::move(path)) {}
    const QString& Path() const { return m_path; }

private:
    QString m_path;
};

/// The root of all classes.
inline const RegistryKey HKEY_CLASSES_ROOT{QString()};

RegistryKey RegCreateKeyA(const RegistryKey& root, const QString& name);
/// Sets the text of `subKey` below the key, or of the key itself if `subKey` is empty. If the store
/// can't be written the text is lost, and the log says so.
void RegSetValueA(const RegistryKey& key, const QString& subKey, const QString& text);
/// The text of a key, named as in RegSetValueA; empty if it holds none.
QString RegQueryValueA(const RegistryKey& key, const QString& subKey);

} // namespace platform
