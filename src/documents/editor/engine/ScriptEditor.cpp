// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/engine/ScriptEditor.h"

#include "core/LineEnds.h"
#include "documents/editor/engine/EditStep.h"
#include "documents/editor/engine/Layers.h"
#include "documents/editor/engine/LuaStyles.h"
#include "platform/forms/Dialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QFontDatabase>
#include <QFontInfo>
#include <QMimeData>
#include <Qsci/qscicommandset.h>
#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace documents {
namespace {

constexpr int kLeftMarginPixels = 6;
constexpr int kFoldMarginPixels = 14;
constexpr int kAirPixels = 4; // between the margins and the text
constexpr int kTabColumns = 4;
// Above these sizes, in bytes, colours and bracket matching are too slow.
constexpr qsizetype kLargeText = 8 << 20;
constexpr qsizetype kLongLine = 1 << 16;
constexpr unsigned long kKeptWidths = 1 << 14;

constexpr const char* kKeywords = "and break elseif false in local nil not or return true";
constexpr const char* kScopeKeywords = "do else end for function if repeat then until while";

struct EndRow {
    core::LineEnd end;
    QsciScintilla::EolMode mode;
};

constexpr std::array kEnds = {
    EndRow{core::LineEnd::CrLf, QsciScintilla::EolWindows},
    EndRow{core::LineEnd::Lf, QsciScintilla::EolUnix},
    EndRow{core::LineEnd::Cr, QsciScintilla::EolMac},
};

std::string_view Chars(QByteArrayView text) {
    return {text.data(), static_cast<size_t>(text.size())};
}

bool IsLineEnd(char byte) {
    return byte == '\n' || byte == '\r';
}

bool IsInside(char byte) { // a UTF-8 character: not its first byte
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

// The length in bytes of the common start of two texts, in whole characters.
qsizetype CommonHead(QByteArrayView a, QByteArrayView b) {
    const auto isInside = [](QByteArrayView text, qsizetype at) {
        return at < text.size() && IsInside(text[at]);
    };
    const auto [end, ignored] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    qsizetype same = end - a.begin();
    while (same > 0 && (isInside(a, same) || isInside(b, same)))
        --same;
    return same;
}

// Ctrl+C, Ctrl+X and Ctrl+V do the same in the menu and here.
bool BelongsToTheMenu(int key) {
    constexpr std::array kLetters = {Qt::Key_A, Qt::Key_E, Qt::Key_N,
                                     Qt::Key_Q, Qt::Key_S, Qt::Key_W};
    return std::any_of(kLetters.begin(), kLetters.end(),
                       [&](Qt::Key letter) { return key == (Qt::CTRL | letter).toCombined(); });
}

} // namespace

ScriptEditor::ScriptEditor(QWidget* parent) : QsciScintilla(parent) {
    setUtf8(true);
    setEolMode(EolWindows);
    setTabWidth(kTabColumns);
    setIndentationWidth(kTabColumns);
    setIndentationsUseTabs(false);
    setMarginWidth(kLeftMargin, 0);
    SendScintilla(SCI_SETMARGINTYPEN, kLeftMargin, SC_MARGIN_COLOUR);
    setFolding(BoxedTreeFoldStyle, kFoldMargin);
    setMarginWidth(kFoldMargin, 0);
    SendScintilla(SCI_SETMARGINLEFT, 0UL, long{kAirPixels});
    SendScintilla(SCI_SETCARETLINEVISIBLE, 1UL);
    SendScintilla(SCI_SETSCROLLWIDTH, 1);
    SendScintilla(SCI_SETSCROLLWIDTHTRACKING, 1);
    SendScintilla(SCI_SETLAYOUTCACHE, SC_CACHE_PAGE);
    SendScintilla(SCI_MARKERDEFINE, kHighlightMarker, SC_MARK_BACKGROUND);
    connect(this, &QsciScintilla::linesChanged, this, &ScriptEditor::FitLineNumbers);
    connect(this, &QsciScintilla::SCN_ZOOM, this, &ScriptEditor::FitLineNumbers);
    connect(this, &QsciScintilla::textChanged, this, &ScriptEditor::TellEdited);
    WatchInsertions();
    ReleaseMenuKeys();
    m_colors.Apply(*this);
}

qsizetype ScriptEditor::LongestLine(QByteArrayView text) {
    qsizetype longest = 0;
    for (auto start = text.begin(); start != text.end();) {
        const auto end = std::find_if(start, text.end(), IsLineEnd);
        longest = std::max<qsizetype>(longest, end - start);
        start = end == text.end() ? end : end + 1;
    }
    return longest;
}

bool ScriptEditor::Reserve(qsizetype bytes) {
    SendScintilla(SCI_SETSTATUS, 0UL);
    SendScintilla(SCI_ALLOCATE, static_cast<unsigned long>(bytes));
    return SendScintilla(SCI_GETSTATUS) == SC_STATUS_OK;
}

void ScriptEditor::ReleaseMenuKeys() {
    for (QsciCommand* command : standardCommands()->commands()) {
        if (BelongsToTheMenu(command->key()))
            command->setKey(0);
        if (BelongsToTheMenu(command->alternateKey()))
            command->setAlternateKey(0);
    }
}

QByteArrayView ScriptEditor::View() const {
    const auto* text = static_cast<const char*>(SendScintillaPtrResult(SCI_GETCHARACTERPOINTER));
    return {text, static_cast<qsizetype>(SendScintilla(SCI_GETLENGTH))};
}

QByteArray ScriptEditor::Range(qsizetype from, qsizetype to) const {
    if (from >= to)
        return {};
    QByteArray piece(to - from, Qt::Uninitialized); // has room for the NUL behind it
    SendScintilla(SCI_GETTEXTRANGE, static_cast<long>(from), static_cast<long>(to), piece.data());
    return piece;
}

QByteArray ScriptEditor::Bytes() const {
    return View().toByteArray();
}

qsizetype ScriptEditor::LineOf(qsizetype position) const {
    return SendScintilla(SCI_LINEFROMPOSITION, static_cast<unsigned long>(position));
}

qsizetype ScriptEditor::LineStart(qsizetype line) const {
    return SendScintilla(SCI_POSITIONFROMLINE, static_cast<unsigned long>(line));
}

qsizetype ScriptEditor::LineEnd(qsizetype line) const {
    return SendScintilla(SCI_GETLINEENDPOSITION, static_cast<unsigned long>(line));
}

core::LineEnd ScriptEditor::NewLineEnd() const {
    return std::find_if(kEnds.begin(), kEnds.end(),
                        [this](const EndRow& row) { return row.mode == eolMode(); })
        ->end;
}

void ScriptEditor::NewLineEnd(core::LineEnd end) {
    setEolMode(std::find_if(kEnds.begin(), kEnds.end(), [&](const EndRow& row) {
                   return row.end == end;
               })->mode);
}

void ScriptEditor::ConvertLineEnds(core::LineEnd end) {
    NewLineEnd(end);
    const std::string converted = core::WithLineEnds(Chars(View()), end);
    if (Chars(View()) == converted)
        return;
    const qsizetype line = LineOf(Caret());
    const qsizetype column = Caret() - LineStart(line);
    ReplaceAll(QByteArray::fromStdString(converted));
    GoTo(LineStart(line) + column);
}

void ScriptEditor::Replace(qsizetype from, qsizetype to, QByteArrayView utf8) {
    const EditStep step(*this);
    SendScintilla(SCI_SETTARGETRANGE, static_cast<unsigned long>(from), static_cast<long>(to));
    SendScintilla(SCI_REPLACETARGET, static_cast<unsigned long>(utf8.size()),
                  utf8.isEmpty() ? "" : utf8.data());
}

void ScriptEditor::Select(qsizetype anchor, qsizetype caret) {
    const auto line = static_cast<unsigned long>(LineOf(caret));
    SendScintilla(SCI_ENSUREVISIBLE, line);
    const long first = SendScintilla(SCI_GETFIRSTVISIBLELINE);
    const long shown = SendScintilla(SCI_VISIBLEFROMDOCLINE, line) - first;
    SendScintilla(SCI_SETSEL, static_cast<unsigned long>(anchor), static_cast<long>(caret));
    if (shown < 0 || shown >= SendScintilla(SCI_LINESONSCREEN))
        SendScintilla(SCI_VERTICALCENTRECARET);
}

void ScriptEditor::BeginStep() {
    HoldEdited();
    SendScintilla(SCI_BEGINUNDOACTION);
}

void ScriptEditor::EndStep() {
    SendScintilla(SCI_ENDUNDOACTION);
    ReleaseEdited();
}

void ScriptEditor::ReleaseEdited() {
    if (--m_holds == 0 && std::exchange(m_edited, false))
        Q_EMIT Edited();
}

void ScriptEditor::TellEdited() {
    HoldEdited();
    m_edited = true;
    ReleaseEdited();
}

// A pasted text may bring lines that are too long for the colours and brackets.
void ScriptEditor::WatchInsertions() {
    connect(this, &QsciScintilla::SCN_MODIFIED, this,
            [this](int, int kind, const char*, int length) {
                if ((kind & SC_MOD_INSERTTEXT) == 0 || length < kLongLine)
                    return;
                ChooseHelpers(View());
                SplitRuns();
            });
}

void ScriptEditor::Load(const QByteArray& utf8) {
    ChooseHelpers(utf8);
    // Without notifications: each copies its piece of text, which takes as long as the loading.
    const long events = SendScintilla(SCI_GETMODEVENTMASK);
    SendScintilla(SCI_SETMODEVENTMASK, 0);
    SendScintilla(SCI_SETUNDOCOLLECTION, 0);
    SendScintilla(SCI_CLEARALL);
    SendScintilla(SCI_ADDTEXT, static_cast<unsigned long>(utf8.size()), utf8.constData());
    SplitRuns();
    SendScintilla(SCI_GOTOPOS, 0UL);
    SendScintilla(SCI_EMPTYUNDOBUFFER);
    SendScintilla(SCI_SETUNDOCOLLECTION, 1);
    SendScintilla(SCI_SETMODEVENTMASK, static_cast<unsigned long>(events));
    FitLineNumbers();
    NewLineEnd(core::MainLineEnd(Chars(utf8)));
    Q_EMIT Loaded();
}

void ScriptEditor::ReplaceAll(const QByteArray& utf8) {
    ChooseHelpers(utf8);
    const EditStep step(*this);
    const qsizetype same = CommonHead(View(), utf8);
    Replace(same, Length(), QByteArrayView(utf8).sliced(same));
    SendScintilla(SCI_GOTOPOS, static_cast<unsigned long>(utf8.size()));
}

void ScriptEditor::SetItemColor(int item, int color) {
    m_colors.Set(item, color);
    m_colors.Apply(*this);
}

void ScriptEditor::Dark(bool dark) {
    m_colors.Dark(dark);
    m_colors.Apply(*this);
}

void ScriptEditor::SetFontName(const QString& name) {
    m_font = name;
    UseFont();
}

void ScriptEditor::SetOwnFont(const QString& name) {
    if (std::exchange(m_ownFont, name) != name)
        UseFont();
}

void ScriptEditor::UseFont() {
    QFont font(m_ownFont.isEmpty() ? m_font : m_ownFont);
    font.setStyleHint(QFont::Monospace);
    if (!QFontInfo(font).fixedPitch())
        font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    SendScintilla(SCI_STYLESETFONT, static_cast<unsigned long>(STYLE_DEFAULT),
                  font.family().toUtf8().constData());
    m_colors.Apply(*this);
    FitLineNumbers();
}

void ScriptEditor::SetFontPoints(int points) {
    SendScintilla(SCI_STYLESETSIZE, static_cast<unsigned long>(STYLE_DEFAULT),
                  static_cast<long>(points));
    m_colors.Apply(*this);
    FitLineNumbers();
}

int ScriptEditor::ZoomPercent() const {
    const long points = SendScintilla(SCI_STYLEGETSIZE, static_cast<unsigned long>(STYLE_DEFAULT));
    return static_cast<int>((points + SendScintilla(SCI_GETZOOM)) * 100 / points);
}

void ScriptEditor::SetLuaColors(bool on) {
    m_wantsColors = on;
    ChooseHelpers(View());
}

void ScriptEditor::SetBraceMatch(bool on) {
    m_wantsBraces = on;
    ChooseHelpers(View());
}

void ScriptEditor::ChooseHelpers(QByteArrayView text) {
    m_longLines = LongestLine(text) > kLongLine;
    const bool costly = m_longLines || text.size() > kLargeText;
    ColorLua(m_wantsColors && !costly);
    setBraceMatching(m_wantsBraces && !costly ? SloppyBraceMatch : NoBraceMatch);
}

// The engine measures each run of one style in a QTextLayout, but caches the widths of short runs.
// In a text with long lines neighbours therefore differ in style, so each run is a character. A
// line end keeps the style before it: with one of its own the line would be measured twice.
void ScriptEditor::SplitRuns() {
    if (!m_longLines)
        return;
    const QByteArrayView text = View();
    QByteArray styles(text.size(), Qt::Uninitialized);
    char style = 0;
    std::transform(text.begin(), text.end(), styles.begin(), [&](char byte) {
        if (!IsInside(byte) && !IsLineEnd(byte))
            style = style == 0 ? kTwin : 0;
        return style;
    });
    SendScintilla(SCI_SETPOSITIONCACHE, kKeptWidths);
    SendScintilla(SCI_STARTSTYLING, 0UL, 0L);
    SendScintilla(SCI_SETSTYLINGEX, static_cast<unsigned long>(styles.size()), styles.constData());
}

void ScriptEditor::ColorLua(bool on) {
    if (std::exchange(m_luaColors, on) == on)
        return;
    // SCLEX_CONTAINER because SCLEX_NULL would overwrite the styles of SplitRuns.
    SendScintilla(SCI_SETLEXER, static_cast<unsigned long>(on ? SCLEX_LUA : SCLEX_CONTAINER));
    SendScintilla(SCI_SETKEYWORDS, 0UL, kScopeKeywords);
    SendScintilla(SCI_SETKEYWORDS, 1UL, kKeywords);
    SendScintilla(SCI_SETPROPERTY, "fold", "1");
    SendScintilla(SCI_SETPROPERTY, "fold.compact", "0"); // blank lines behind a block stay
    setMarginWidth(kFoldMargin, on ? kFoldMarginPixels : 0);
    SendScintilla(SCI_CLEARDOCUMENTSTYLE);    // unfolds too
    SendScintilla(SCI_STARTSTYLING, 0UL, 0L); // styles are set again as lines are shown
}

void ScriptEditor::ShowLeftMargin(bool on) {
    setMarginWidth(kLeftMargin, on ? kLeftMarginPixels : 0);
}

void ScriptEditor::ShowLineNumbers(bool on) {
    m_lineNumbers = on;
    setMarginLineNumbers(kLineNumberMargin, true);
    FitLineNumbers();
}

void ScriptEditor::FitLineNumbers() {
    const qsizetype digits = std::max<qsizetype>(3, QString::number(lines()).size());
    setMarginWidth(kLineNumberMargin, m_lineNumbers ? QString(digits + 1, u'9') : QString());
}

void ScriptEditor::paste() {
    const QMimeData* source = QApplication::clipboard()->mimeData();
    if (source && source->hasText() && !canInsertFromMimeData(source)) {
        platform::MsgBox(QStringLiteral("Lo copiado daría una línea de más de 1 MiB, y con líneas "
                                        "tan largas el editor no puede trabajar. No se ha pegado."),
                         platform::Buttons::Ok, platform::Icon::Information);
        return;
    }
    const EditStep step(*this);
    QsciScintilla::paste();
}

void ScriptEditor::undo() {
    HoldEdited();
    QsciScintilla::undo();
    ReleaseEdited();
}

void ScriptEditor::redo() {
    HoldEdited();
    QsciScintilla::redo();
    ReleaseEdited();
}

void ScriptEditor::keyPressEvent(QKeyEvent* event) {
    HoldEdited();
    if (event->matches(QKeySequence::Paste))
        paste();
    else
        QsciScintilla::keyPressEvent(event);
    ReleaseEdited();
}

// By key: at the caret.
void ScriptEditor::contextMenuEvent(QContextMenuEvent* event) {
    const auto caret = static_cast<long>(Caret());
    const QPoint below(static_cast<int>(SendScintilla(SCI_POINTXFROMPOSITION, 0UL, caret)),
                       static_cast<int>(SendScintilla(SCI_POINTYFROMPOSITION, 0UL, caret)) +
                           textHeight(static_cast<int>(LineOf(caret))));
    Q_EMIT MenuWanted(event->reason() == QContextMenuEvent::Keyboard
                          ? viewport()->mapToGlobal(below)
                          : event->globalPos());
}

bool ScriptEditor::canInsertFromMimeData(const QMimeData* source) const {
    if (!QsciScintilla::canInsertFromMimeData(source))
        return false;
    const auto line = SendScintilla(SCI_LINEFROMPOSITION, SendScintilla(SCI_GETCURRENTPOS));
    const qsizetype room = kLongestLine - SendScintilla(SCI_LINELENGTH, line);
    return LongestLine(source->text().toUtf8()) <= room;
}

void ScriptEditor::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls())
        event->ignore(); // goes on to the main window, which opens files
    else
        QsciScintilla::dragEnterEvent(event);
}

void ScriptEditor::dragMoveEvent(QDragMoveEvent* event) {
    if (event->mimeData()->hasUrls())
        event->ignore();
    else
        QsciScintilla::dragMoveEvent(event);
}

QByteArray ScriptEditor::fromMimeData(const QMimeData* source, bool& rectangular) const {
    return QsciScintilla::fromMimeData(source, rectangular).replace('\0', QByteArrayView());
}

} // namespace documents
