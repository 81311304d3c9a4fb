// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/LineEnds.h"
#include "platform/text/TextEncoding.h"

#include <QTimer>
#include <QWidget>
#include <array>

class QLabel;
class QMenu;
class QToolButton;

namespace documents {

class ScriptEditor;

/// The line at the foot of the editor: where the caret is, how the text will be saved and what is
/// wrong with it. Most fields can be clicked. It follows the editor a moment later, so that no key
/// waits for it.
class StatusLine : public QWidget {
    Q_OBJECT

public:
    StatusLine(ScriptEditor& editor, QWidget* parent);

    void Encoding(platform::TextEncoding encoding);
    /// Empty for a script without fault.
    void Fault(const QString& text);

    /// What a narrow document needn't show doesn't widen it.
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void PlaceClicked();
    void InsertClicked();
    void ZoomClicked();
    void FaultClicked();
    void EncodingChosen(platform::TextEncoding encoding);
    void LineEndsChosen(core::LineEnd end);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    enum Field { kPlace, kSelection, kModified, kEncoding, kEnds, kInsert, kZoom, kFault };
    static constexpr size_t kFields = kFault + 1;

    void AddField(size_t field);
    void MakeMenus();
    void OpenAbove(Field field, QMenu* menu);
    void Later();
    void Show(Field field, const QString& text);
    void Refresh();
    void Fit();

    ScriptEditor& m_editor;
    QTimer m_timer;
    QString m_fault;
    platform::TextEncoding m_encoding = platform::TextEncoding::CodePage;
    std::array<QToolButton*, kFields> m_fields{};
    std::array<QLabel*, kFields> m_dots{};
};

/// The name of an encoding, and of a line end, as the status line shows them.
QString EncodingName(platform::TextEncoding encoding);
QString LineEndName(core::LineEnd end);

inline constexpr std::array kEncodings = {
    platform::TextEncoding::CodePage, platform::TextEncoding::Utf8,
    platform::TextEncoding::Utf8WithMark, platform::TextEncoding::Utf16LEWithMark,
    platform::TextEncoding::Utf16BEWithMark};
inline constexpr std::array kLineEnds = {core::LineEnd::CrLf, core::LineEnd::Lf, core::LineEnd::Cr};

} // namespace documents
