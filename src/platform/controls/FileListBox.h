// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListWidget>

namespace platform {

/// The files of a folder that match a pattern. Nothing is chosen until the user does.
class FileListBox : public QListWidget {
    Q_OBJECT

public:
    explicit FileListBox(QWidget* parent = nullptr);

    /// A program path; at first the current directory.
    const QString& Path() const { return m_path; }
    void Path(const QString& path);
    const QString& Pattern() const { return m_pattern; }
    void Pattern(const QString& pattern);
    /// The name of the chosen file; empty without one.
    QString FileName() const;
    /// Lists what is there now; the choice is lost.
    void Refresh();

Q_SIGNALS:
    /// A file was chosen by mouse or key, or pressed again.
    void Click();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString m_path;
    QString m_pattern = QStringLiteral("*");
};

} // namespace platform
