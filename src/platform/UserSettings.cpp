// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/UserSettings.h"

#include "platform/Failure.h"
#include "platform/Log.h"

#include <QSettings>

namespace platform {
namespace {

QSettings Store(const QString& application) {
    return {QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Quillmark"),
            application};
}

QString Path(const QString& section, const QString& key) {
    return section + u'/' + key;
}

// The path in the spelling of the store, or as given if it isn't there.
QString Stored(const QSettings& store, const QString& path) {
    for (const QString& key : store.allKeys()) {
        if (key.compare(path, Qt::CaseInsensitive) == 0)
            return key;
    }
    return path;
}

void Sync(QSettings& store) {
    store.sync();
    if (store.status() != QSettings::NoError)
        qCWarning(lcQuillmark) << "the user settings can't be written:" << store.fileName();
}

void Remove(const QString& application, const QString& path, bool there) {
    if (!there)
        throw Failure(FailureCode::FileNotFound, QStringLiteral("Ajustes"),
                      QStringLiteral("No existe el ajuste \"%1\".").arg(path));
    QSettings store = Store(application);
    store.remove(path);
    Sync(store);
}

} // namespace

QString GetSetting(const QString& application, const QString& section, const QString& key,
                   const QString& fallback) {
    const QSettings store = Store(application);
    return store.value(Stored(store, Path(section, key)), fallback).toString();
}

void SaveSetting(const QString& application, const QString& section, const QString& key,
                 const QString& value) {
    QSettings store = Store(application);
    store.setValue(Stored(store, Path(section, key)), value);
    Sync(store);
}

void DeleteSetting(const QString& application, const QString& section, const QString& key) {
    const QSettings store = Store(application);
    const QString path = Stored(store, Path(section, key));
    Remove(application, path, store.contains(path));
}

void DeleteSetting(const QString& application, const QString& section) {
    Remove(application, section, Store(application).childGroups().contains(section));
}

} // namespace platform
