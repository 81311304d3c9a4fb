// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Spanish.h"

#include "platform/Log.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace platform {

void SpeakSpanish(QCoreApplication& application) {
    const QLocale spanish(QLocale::Spanish, QLocale::Spain);
    QLocale::setDefault(spanish);
    for (const char* catalogue : {"qtbase", "qscintilla"}) {
        auto* translator = new QTranslator(&application);
        if (translator->load(spanish, QString::fromLatin1(catalogue), QStringLiteral("_"),
                             QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
            QCoreApplication::installTranslator(translator);
        else
            qCWarning(lcQuillmark) << "no Spanish texts for" << catalogue;
    }
}

} // namespace platform
