// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextBrowser>

namespace documents {

struct Call;

/// Shows the manual that the program brings along, and pages of single calls. Only what is in the
/// program is ever loaded.
class ManualBrowser : public QTextBrowser {
    Q_OBJECT

public:
    explicit ManualBrowser(QWidget* parent);

    /// From a heading on, which is named as its links in the manual do: lower-case, with hyphens.
    void ShowManual(const QString& heading = {});
    void ShowCall(const Call& call);

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

private:
    QVariant Picture(const QVariant& bytes) const;
};

} // namespace documents
