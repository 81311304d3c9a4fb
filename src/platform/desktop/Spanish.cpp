// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/Spanish.h"

#include "platform/base/Log.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace platform {
namespace {

// Qt's Spanish calls the key "Control", which keyboards and the manual don't.
class KeyNames : public QTranslator {
public:
    using QTranslator::QTranslator;
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override {
        const bool key = qstrcmp(context, "QShortcut") == 0 && qstrcmp(text, "Ctrl") == 0;
        return key ? QStringLiteral("Ctrl") : QString();
    }
};

} // namespace

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
    QCoreApplication::installTranslator(new KeyNames(&application)); // the last one is asked first
}

} // namespace platform
