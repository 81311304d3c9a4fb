// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/forms/CommonDialog.h"

#include <QStringList>
#include <vector>

namespace platform {

std::vector<FileFilter> FilterPairs(const QString& text, QChar separator) {
    const QStringList items = text.split(separator, Qt::SkipEmptyParts);
    std::vector<FileFilter> pairs;
    for (qsizetype i = 0; i + 1 < items.size(); i += 2)
        pairs.push_back({items.at(i), items.at(i + 1)});
    return pairs;
}

void CommonDialog::ShowSave() {
    Take(CurrentDialogs().AskSaveName(
        {m_owner, QStringLiteral("Guardar como"), QString(), FilterPairs(m_filter, u'|')}));
}

void CommonDialog::ShowOpen() {
    const QString pick = CurrentDialogs().AskOpenName(
        {m_owner, QStringLiteral("Abrir"), QString(), FilterPairs(m_filter, u'|')});
    if (!pick.isEmpty())
        Take(pick);
}

void CommonDialog::Take(const QString& fileName) {
    m_fileName = fileName;
    m_fileTitle = fileName.section(u'\\', -1);
}

} // namespace platform
