// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/UserSettings.h"

#include "platform/base/Failure.h"
#include "platform/base/Log.h"

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

// The name as the store spells it, or as given if it isn't there.
QString Spelled(const QStringList& stored, const QString& name) {
    for (const QString& spelling : stored) {
        if (spelling.compare(name, Qt::CaseInsensitive) == 0)
            return spelling;
    }
    return name;
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
    return store.value(Spelled(store.allKeys(), Path(section, key)), fallback).toString();
}

void SaveSetting(const QString& application, const QString& section, const QString& key,
                 const QString& value) {
    QSettings store = Store(application);
    store.setValue(Spelled(store.allKeys(), Path(section, key)), value);
    Sync(store);
}

void SaveSettings(const QString& application, const QString& section,
                  const QMap<QString, QString>& values) {
    QSettings store = Store(application);
    const QStringList stored = store.allKeys();
    for (auto value = values.begin(); value != values.end(); ++value) {
        const QString path = Spelled(stored, Path(section, value.key()));
        if (value->isNull())
            store.remove(path);
        else
            store.setValue(path, *value);
    }
    Sync(store);
}

void DeleteSetting(const QString& application, const QString& section, const QString& key) {
    const QSettings store = Store(application);
    const QString path = Spelled(store.allKeys(), Path(section, key));
    Remove(application, path, store.contains(path));
}

void DeleteSetting(const QString& application, const QString& section) {
    const QStringList sections = Store(application).childGroups();
    const QString name = Spelled(sections, section);
    Remove(application, name, sections.contains(name));
}

} // namespace platform
