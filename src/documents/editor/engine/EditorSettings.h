// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

namespace documents {

/// What the user has chosen for all editors, kept in the section "editor" of config.ini. A change
/// reaches every open document.
class EditorSettings : public QObject {
    Q_OBJECT

public:
    static QString Value(const QString& key, const QString& fallback);
    /// As written by Keep(key, bool).
    static bool IsOn(const QString& key, bool fallback);
    /// A failure of the writing goes to the log.
    void Keep(const QString& key, const QString& value);
    void Keep(const QString& key, bool on);

Q_SIGNALS:
    void Changed(const QString& key);
};

/// Those of this process.
EditorSettings& SharedSettings();

} // namespace documents
