// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/Looks.h"

#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/EditorSettings.h"
#include "documents/editor/engine/ScriptEditor.h"

#include <QEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>
#include <array>
#include <vector>

namespace documents {
namespace {

constexpr int kDarkest = 128; // of 255: a window below it is dark

struct ColorsRow {
    const char16_t* text;
    const char16_t* word; // in config.ini
};

constexpr std::array kColors = {
    ColorsRow{u"&Claros", u"claro"},
    ColorsRow{u"&Oscuros", u"oscuro"},
    ColorsRow{u"Como el &escritorio", u"escritorio"},
};

QString FontKey() {
    return QStringLiteral("fuente");
}

QString ColorsKey() {
    return QStringLiteral("colores");
}

QString KeptFont() {
    return EditorSettings::Value(FontKey(), QString());
}

QString KeptColors() {
    return EditorSettings::Value(ColorsKey(), QString::fromUtf16(kColors.front().word));
}

bool WantsDark() {
    const QString kept = KeptColors();
    if (kept == u"escritorio")
        return QGuiApplication::palette().color(QPalette::Window).lightness() < kDarkest;
    return kept == u"oscuro";
}

Command Choice(const QString& text, const QString& key, const QString& value, QString (*kept)()) {
    return {text, {}, [=] { SharedSettings().Keep(key, value); }, [=] { return kept() == value; }};
}

QStringList FixedFonts() {
    QStringList fixed;
    for (const QString& family : QFontDatabase::families()) {
        if (QFontDatabase::isFixedPitch(family) && !QFontDatabase::isPrivateFamily(family))
            fixed.append(family);
    }
    return fixed;
}

} // namespace

Looks::Looks(ScriptEditor& editor, CommandSet& commands, QObject* parent)
    : QObject(parent), m_editor(editor) {
    AddFonts(commands);
    AddColors(commands);
    Use();
    connect(&SharedSettings(), &EditorSettings::Changed, this, &Looks::Use);
    editor.installEventFilter(this);
}

void Looks::AddFonts(CommandSet& commands) {
    commands.AddSubmenu(Menu::View, QStringLiteral("Tipo de &letra"), [] {
        std::vector<Command> fonts = {
            Choice(QStringLiteral("El de siempre"), FontKey(), QString(), KeptFont)};
        for (const QString& family : FixedFonts())
            fonts.push_back(Choice(family, FontKey(), family, KeptFont));
        return fonts;
    });
}

void Looks::AddColors(CommandSet& commands) {
    commands.AddSubmenu(Menu::View, QStringLiteral("&Colores"), [] {
        std::vector<Command> sets;
        sets.reserve(kColors.size());
        for (const ColorsRow& row : kColors)
            sets.push_back(Choice(QString::fromUtf16(row.text), ColorsKey(),
                                  QString::fromUtf16(row.word), KeptColors));
        return sets;
    });
}

void Looks::Use() {
    m_editor.SetOwnFont(KeptFont());
    if (m_editor.Dark() != WantsDark())
        m_editor.Dark(WantsDark());
}

bool Looks::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        Use();
    return QObject::eventFilter(watched, event);
}

} // namespace documents
