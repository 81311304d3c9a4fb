// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/CodeMax.h"
#include "shell/MenuPrincipal.h"
#include "support/TestHome.h"

#include <QAction>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <map>

using namespace Qt::StringLiterals;

namespace {

QString Spanish(const QKeySequence& key) {
    QString text = key.toString(QKeySequence::PortableText);
    for (const auto& [english, spanish] : {std::pair("Shift", u"Mayús"),
                                           {"PgUp", u"RePág"},
                                           {"PgDown", u"AvPág"},
                                           {"Up", u"↑"},
                                           {"Down", u"↓"},
                                           {"Space", u"Espacio"}})
        text.replace(QLatin1StringView(english), QString::fromUtf16(spanish));
    return text;
}

// The keys that the manual's table of the editor names.
QStringList KeysOfTheManual() {
    const QString manual = QString::fromUtf8(support::Bytes(MANUAL));
    const QString table = manual.section(u"### Teclas del editor"_s, 1).section(u"\n##"_s, 0, 0);
    QStringList keys;
    for (const QString& line : table.split(u'\n')) {
        if (line.startsWith(u"| "_s) && !line.startsWith(u"| Tecla"_s))
            keys += line.section(u'|', 1, 1).trimmed().split(u", "_s);
    }
    return keys;
}

} // namespace

TEST(EditorKeysTest, EachIsInTheManualAndNoneIsAnothersOrTheMenus) {
    const support::TestHome home;
    const documents::CodeMax control;
    QStringList keys;
    for (const QAction* action : control.actions()) {
        for (const QKeySequence& key : action->shortcuts())
            keys.append(Spanish(key));
    }
    EXPECT_EQ(QSet<QString>(keys.begin(), keys.end()).size(), keys.size());
    for (const shell::EntradaMenu& entry : shell::MenuPrincipal())
        EXPECT_FALSE(keys.contains(QString::fromLatin1(entry.tecla))) << entry.nombre;
    for (const char* key : {"Ctrl+Z", "Ctrl+Y", "Ctrl+W", "Ctrl+F4", "Ctrl+F6", "Ctrl+Tab", "F10"})
        EXPECT_FALSE(keys.contains(QString::fromLatin1(key))) << key;
    QStringList told = KeysOfTheManual();
    keys.sort();
    told.sort();
    EXPECT_EQ(keys.join(u' ').toStdString(), told.join(u' ').toStdString());
}
