// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

namespace documents {

class CommandSet;
class ScriptEditor;

/// The size of the letters by keys and wheel, the same in all documents and in the next run.
class Zoom : public QObject {
    Q_OBJECT

public:
    Zoom(ScriptEditor& editor, CommandSet& commands, QObject* parent);
    ~Zoom() override;

    void Reset();

private:
    int Points() const;
    void Use(int points);
    void Follow(const QString& key);
    void Keep();

    ScriptEditor& m_editor;
    QTimer m_keeping; // once for all turns of the wheel
};

} // namespace documents
