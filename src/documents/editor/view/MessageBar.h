// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>

class QLabel;

namespace documents {

/// What the editor has to say without a question, under the text; hidden while there is nothing.
/// Escape in the bar and its button close it.
class MessageBar : public QFrame {
    Q_OBJECT

public:
    explicit MessageBar(QWidget* parent);

    void Say(const QString& text);
    QString Text() const;

Q_SIGNALS:
    /// It was closed by the user, so the keyboard goes back to the text.
    void Closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Close();

    QLabel* m_text;
};

} // namespace documents
