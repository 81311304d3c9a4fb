// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/StatusLine.h"

#include "documents/editor/engine/ScriptEditor.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <chrono>

namespace documents {
namespace {

using platform::TextEncoding;

constexpr std::chrono::milliseconds kDelay(40);
constexpr int kMargin = 4;

struct FieldRow {
    const char16_t* name; // for a screen reader
    const char16_t* tip;
    void (StatusLine::*clicked)(); // null: it opens a menu, or only tells
};

constexpr std::array kRows = {
    FieldRow{u"Línea y columna", u"Ir a una línea (Ctrl+G)", &StatusLine::PlaceClicked},
    FieldRow{u"Letras seleccionadas", u"", nullptr},
    FieldRow{u"Cambios", u"", nullptr},
    FieldRow{u"Codificación", u"Codificación con la que se guardará", nullptr},
    FieldRow{u"Fines de línea", u"Fines de línea de lo que se escriba", nullptr},
    FieldRow{u"Insertar o sobrescribir", u"INS: lo escrito se inserta; SOB: sobrescribe (Insert)",
             &StatusLine::InsertClicked},
    FieldRow{u"Tamaño", u"Volver al tamaño normal (Ctrl+0)", &StatusLine::ZoomClicked},
    FieldRow{u"Error", u"", &StatusLine::FaultClicked},
};

} // namespace

QString EncodingName(TextEncoding encoding) {
    switch (encoding) {
    case TextEncoding::Utf8:
        return QStringLiteral("UTF-8");
    case TextEncoding::Utf8WithMark:
        return QStringLiteral("UTF-8 con marca");
    case TextEncoding::Utf16LEWithMark:
        return QStringLiteral("UTF-16 LE");
    case TextEncoding::Utf16BEWithMark:
        return QStringLiteral("UTF-16 BE");
    default:
        return QStringLiteral("Windows-1252");
    }
}

QString LineEndName(core::LineEnd end) {
    switch (end) {
    case core::LineEnd::Lf:
        return QStringLiteral("LF");
    case core::LineEnd::Cr:
        return QStringLiteral("CR");
    default:
        return QStringLiteral("CR LF");
    }
}

StatusLine::StatusLine(ScriptEditor& editor, QWidget* parent) : QWidget(parent), m_editor(editor) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMargin, 0, kMargin, 0);
    layout->setSpacing(0);
    for (size_t field = 0; field < kFields; ++field)
        AddField(field);
    layout->addStretch();
    MakeMenus();
    for (const Field told : {kSelection, kModified})
        m_fields.at(told)->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_timer.setSingleShot(true);
    m_timer.setInterval(kDelay);
    connect(&m_timer, &QTimer::timeout, this, &StatusLine::Refresh);
    connect(&editor, &QsciScintillaBase::SCN_UPDATEUI, this, &StatusLine::Later);
    connect(&editor, &QsciScintillaBase::SCN_ZOOM, this, &StatusLine::Later);
    connect(&editor, &QsciScintilla::modificationChanged, this, &StatusLine::Later);
    Refresh();
}

void StatusLine::AddField(size_t field) {
    const FieldRow& row = kRows.at(field);
    auto* button = new QToolButton(this);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAccessibleName(QString::fromUtf16(row.name));
    button->setToolTip(QString::fromUtf16(row.tip));
    if (row.clicked)
        connect(button, &QToolButton::clicked, this, row.clicked);
    m_dots.at(field) = new QLabel(field > 0 ? QStringLiteral("·") : QString(), this);
    m_fields.at(field) = button;
    layout()->addWidget(m_dots.at(field));
    layout()->addWidget(button);
}

void StatusLine::MakeMenus() {
    auto* encodings = new QMenu(this);
    for (const TextEncoding encoding : kEncodings)
        encodings->addAction(EncodingName(encoding), this,
                             [this, encoding] { Q_EMIT EncodingChosen(encoding); });
    auto* ends = new QMenu(this);
    for (const core::LineEnd end : kLineEnds)
        ends->addAction(LineEndName(end), this, [this, end] { Q_EMIT LineEndsChosen(end); });
    OpenAbove(kEncoding, encodings);
    OpenAbove(kEnds, ends);
}

void StatusLine::OpenAbove(Field field, QMenu* menu) {
    QToolButton* button = m_fields.at(field);
    connect(button, &QToolButton::clicked, menu, [button, menu] {
        menu->popup(button->mapToGlobal(QPoint(0, -menu->sizeHint().height())));
    });
}

QSize StatusLine::minimumSizeHint() const {
    return {0, sizeHint().height()};
}

void StatusLine::Encoding(TextEncoding encoding) {
    m_encoding = encoding;
    Later();
}

void StatusLine::Fault(const QString& text) {
    m_fault = text;
    Later();
}

void StatusLine::Later() {
    if (!m_timer.isActive())
        m_timer.start();
}

void StatusLine::Show(Field field, const QString& text) {
    m_fields.at(field)->setText(text);
    m_fields.at(field)->setVisible(!text.isEmpty());
    m_dots.at(field)->setVisible(!text.isEmpty());
}

void StatusLine::Refresh() {
    const qsizetype caret = m_editor.Caret();
    const qsizetype line = m_editor.LineOf(caret);
    const auto characters = [this](qsizetype from, qsizetype to) {
        return m_editor.Send(QsciScintilla::SCI_COUNTCHARACTERS, from, to);
    };
    const long selected = characters(m_editor.SelectionStart(), m_editor.SelectionEnd());
    const int zoom = m_editor.ZoomPercent();
    Show(kPlace, QStringLiteral("Lín %1, Col %2")
                     .arg(line + 1)
                     .arg(characters(m_editor.LineStart(line), caret) + 1));
    Show(kSelection, selected > 0 ? QStringLiteral("%1 sel.").arg(selected) : QString());
    Show(kModified, m_editor.isModified() ? QStringLiteral("modificado") : QString());
    Show(kEncoding, EncodingName(m_encoding));
    Show(kEnds, LineEndName(m_editor.NewLineEnd()));
    Show(kInsert, m_editor.overwriteMode() ? QStringLiteral("SOB") : QStringLiteral("INS"));
    Show(kZoom, zoom == 100 ? QString() : QStringLiteral("%1 %").arg(zoom));
    Fit();
}

// What there is no room for is left out, the fault last and the place never.
void StatusLine::Fit() {
    const QString least = QStringLiteral("1 error");
    for (size_t field = kPlace; field < kFault; ++field)
        Show(static_cast<Field>(field), m_fields.at(field)->text());
    Show(kFault, m_fault.isEmpty() ? QString() : least);
    m_fields.at(kFault)->setToolTip(m_fault);
    for (const Field field : {kInsert, kEnds, kZoom, kEncoding, kSelection, kModified, kFault}) {
        if (layout()->sizeHint().width() <= width())
            break;
        m_fields.at(field)->hide();
        m_dots.at(field)->hide();
    }
    if (m_fields.at(kFault)->isHidden())
        return;
    const int room =
        width() - layout()->sizeHint().width() + fontMetrics().horizontalAdvance(least);
    const QString text =
        fontMetrics().elidedText(least + QStringLiteral(": ") + m_fault, Qt::ElideRight, room);
    Show(kFault, text.size() > least.size() + 2 ? text : least);
}

void StatusLine::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Fit();
}

} // namespace documents
