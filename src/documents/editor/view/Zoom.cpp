// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/Zoom.h"

#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/EditorSettings.h"
#include "documents/editor/engine/ScriptEditor.h"

#include <algorithm>
#include <chrono>

namespace documents {
namespace {

constexpr std::chrono::milliseconds kDelay(500);
// In points more than the document's own size; what the engine allows.
constexpr int kSmallest = -10;
constexpr int kLargest = 20;

QString Key() {
    return QStringLiteral("zoom");
}

int KeptPoints() {
    return std::clamp(EditorSettings::Value(Key(), QString()).toInt(), kSmallest, kLargest);
}

} // namespace

Zoom::Zoom(ScriptEditor& editor, CommandSet& commands, QObject* parent)
    : QObject(parent), m_editor(editor) {
    m_keeping.setSingleShot(true);
    m_keeping.setInterval(kDelay);
    Use(KeptPoints());
    connect(&editor, &QsciScintillaBase::SCN_ZOOM, &m_keeping, qOverload<>(&QTimer::start));
    connect(&m_keeping, &QTimer::timeout, this, &Zoom::Keep);
    connect(&SharedSettings(), &EditorSettings::Changed, this, &Zoom::Follow);
    commands.Add(Menu::View, {QStringLiteral("Letra más &grande"),
                              {QKeySequence(Qt::CTRL | Qt::Key_Plus)},
                              [this] { Use(Points() + 1); }});
    commands.Add(Menu::View, {QStringLiteral("Letra más &pequeña"),
                              {QKeySequence(Qt::CTRL | Qt::Key_Minus)},
                              [this] { Use(Points() - 1); }});
    commands.Add(Menu::View, {QStringLiteral("Tamaño &normal"),
                              {QKeySequence(Qt::CTRL | Qt::Key_0)},
                              [this] { Reset(); }});
}

Zoom::~Zoom() {
    if (m_keeping.isActive())
        Keep();
}

void Zoom::Reset() {
    Use(0);
}

int Zoom::Points() const {
    return static_cast<int>(m_editor.Send(QsciScintilla::SCI_GETZOOM));
}

void Zoom::Use(int points) {
    const int allowed = std::clamp(points, kSmallest, kLargest);
    if (allowed != Points())
        m_editor.zoomTo(allowed);
}

void Zoom::Follow(const QString& key) {
    if (key == Key())
        Use(KeptPoints());
}

void Zoom::Keep() {
    m_keeping.stop();
    if (Points() != KeptPoints())
        SharedSettings().Keep(Key(), QString::number(Points()));
}

} // namespace documents
