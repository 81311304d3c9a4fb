// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>

namespace platform {

/// The per-user settings store: a text for each application, section and key, in a QSettings file
/// of the user. Sections and keys are found without regard to case. Each change is on the disk on
/// return.

/// The value, or the default if there is none.
QString GetSetting(const QString& application, const QString& section, const QString& key,
                   const QString& fallback);
/// If the store can't be written the value is lost, at the latest when the program ends, and the
/// log says so.
void SaveSetting(const QString& application, const QString& section, const QString& key,
                 const QString& value);
/// Several keys at once: if the program is killed meanwhile, all of the changes are stored or none.
/// A null text deletes its key, which need not be there.
void SaveSettings(const QString& application, const QString& section,
                  const QMap<QString, QString>& values);
/// Fails (FileNotFound) if there is no such key.
void DeleteSetting(const QString& application, const QString& section, const QString& key);
/// Deletes the whole section. Fails (FileNotFound) if there is no such section.
void DeleteSetting(const QString& application, const QString& section);

} // namespace platform
