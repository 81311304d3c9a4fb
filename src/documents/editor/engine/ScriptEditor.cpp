// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/engine/ScriptEditor.h"

#include "core/LineEnds.h"
#include "documents/editor/engine/CodeMaxConstants.h"
#include "documents/editor/engine/EditStep.h"
#include "documents/editor/engine/Layers.h"
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
#include <utility>

namespace documents {
namespace {

constexpr int kLeftMarginPixels = 6;
constexpr int kTabColumns = 4;
// Above these sizes, in bytes, colours and bracket matching are too slow.
constexpr qsizetype kLargeText = 8 << 20;
constexpr qsizetype kLongLine = 1 << 16;
constexpr unsigned long kKeptWidths = 1 << 14;

// Styles of the Lua lexer, SCLEX_LUA.
enum LuaStyle {
    kCommentBlock = 1,
    kCommentLine = 2,
    kNumber = 4,
    kKeyword = 5,
    kString = 6,
    kCharacter = 7,
    kLiteralString = 8,
    kOperator = 10,
    kUnclosedString = 12,
    kScopeKeyword = 13,
    kTwin = 14, // unused by the lexer; looks like style 0
};

constexpr const char* kKeywords = "and break elseif false in local nil not or return true";
constexpr const char* kScopeKeywords = "do else end for function if repeat then until while";

enum class Part { Paper, Ink, LeftMargin, NumberInk, NumberPaper, Marker };

// What each item colours, and its default as 0x00BBGGRR. `index` is a style or a marker number.
struct ColorRow {
    ColorItem item;
    Part part;
    int index;
    int standard;
};

constexpr std::ptrdiff_t kResettingRows = 2; // they reset all other styles, so they come first
constexpr std::array kColorRows = {
    ColorRow{kWindowItem, Part::Paper, 0, 0xFFFFFF},
    ColorRow{kTextItem, Part::Ink, QsciScintilla::STYLE_DEFAULT, 0x000000},
    ColorRow{kNumberItem, Part::Ink, kNumber, 0x000000},
    ColorRow{kKeywordItem, Part::Ink, kKeyword, 0xFF0000},
    ColorRow{kScopeKeywordItem, Part::Ink, kScopeKeyword, 0xFF0000},
    ColorRow{kOperatorItem, Part::Ink, kOperator, 0x0000FF},
    ColorRow{kCommentItem, Part::Ink, kCommentBlock, 0x008000},
    ColorRow{kCommentItem, Part::Ink, kCommentLine, 0x008000},
    ColorRow{kStringItem, Part::Ink, kString, 0x000000},
    ColorRow{kStringItem, Part::Ink, kCharacter, 0x000000},
    ColorRow{kStringItem, Part::Ink, kLiteralString, 0x000000},
    ColorRow{kStringItem, Part::Ink, kUnclosedString, 0x000000},
    ColorRow{kLeftMarginItem, Part::LeftMargin, 0, 0xE0E0E0},
    ColorRow{kLineNumberTextItem, Part::NumberInk, 0, 0x000000},
    ColorRow{kLineNumberBackgroundItem, Part::NumberPaper, 0, 0xE0E0E0},
    ColorRow{kBookmarkItem, Part::Marker, kBookmarkMarker, 0xFFFF00},
    ColorRow{kHighlightedLineItem, Part::Marker, kHighlightMarker, 0x00FFFF},
};

int RedFirst(int bgr) {
    return (bgr & 0xFF) << 16 | (bgr & 0xFF00) | (bgr >> 16 & 0xFF);
}

QsciScintilla::EolMode EolModeOf(const QByteArray& text) {
    switch (core::MainLineEnd({text.data(), static_cast<size_t>(text.size())})) {
    case core::LineEnd::Lf:
        return QsciScintilla::EolUnix;
    case core::LineEnd::Cr:
        return QsciScintilla::EolMac;
    default:
        return QsciScintilla::EolWindows;
    }
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
    m_colors.fill(-1);
    setUtf8(true);
    setEolMode(EolWindows);
    setTabWidth(kTabColumns);
    setIndentationWidth(kTabColumns);
    setIndentationsUseTabs(false);
    setMarginWidth(kLeftMargin, 0);
    SendScintilla(SCI_SETMARGINTYPEN, kLeftMargin, SC_MARGIN_COLOUR);
    SendScintilla(SCI_SETSCROLLWIDTH, 1);
    SendScintilla(SCI_SETSCROLLWIDTHTRACKING, 1);
    SendScintilla(SCI_SETLAYOUTCACHE, SC_CACHE_PAGE);
    SendScintilla(SCI_MARKERDEFINE, kHighlightMarker, SC_MARK_BACKGROUND);
    connect(this, &QsciScintilla::linesChanged, this, &ScriptEditor::FitLineNumbers);
    connect(this, &QsciScintilla::textChanged, this, &ScriptEditor::TellEdited);
    WatchInsertions();
    ReleaseMenuKeys();
    ApplyColors();
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
    if (m_steps++ == 0)
        SendScintilla(SCI_BEGINUNDOACTION);
}

void ScriptEditor::EndStep() {
    if (--m_steps > 0)
        return;
    SendScintilla(SCI_ENDUNDOACTION);
    if (std::exchange(m_edited, false))
        Q_EMIT Edited();
}

void ScriptEditor::TellEdited() {
    if (m_steps > 0)
        m_edited = true;
    else
        Q_EMIT Edited();
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
    setEolMode(EolModeOf(utf8));
}

void ScriptEditor::ReplaceAll(const QByteArray& utf8) {
    ChooseHelpers(utf8);
    const EditStep step(*this);
    const qsizetype same = CommonHead(View(), utf8);
    Replace(same, Length(), QByteArrayView(utf8).sliced(same));
    SendScintilla(SCI_GOTOPOS, static_cast<unsigned long>(utf8.size()));
}

void ScriptEditor::SetStyle(unsigned int message, int style, long value) {
    SendScintilla(message, static_cast<unsigned long>(style), value);
}

void ScriptEditor::SetItemColor(int item, int color) {
    m_colors.at(static_cast<size_t>(item)) = color;
    ApplyColors();
}

void ScriptEditor::ApplyColors() {
    const auto paint = [this](const ColorRow& row) {
        const int chosen = m_colors[row.item];
        const int bgr = chosen < 0 ? row.standard : chosen;
        const QColor color(static_cast<QRgb>(RedFirst(bgr)));
        switch (row.part) {
        case Part::Paper:
            SetStyle(SCI_STYLESETBACK, STYLE_DEFAULT, bgr);
            break;
        case Part::Ink:
            SetStyle(SCI_STYLESETFORE, row.index, bgr);
            break;
        case Part::LeftMargin:
            SetStyle(SCI_SETMARGINBACKN, kLeftMargin, bgr);
            break;
        case Part::NumberInk:
            setMarginsForegroundColor(color);
            break;
        case Part::NumberPaper:
            setMarginsBackgroundColor(color);
            break;
        case Part::Marker:
            SetStyle(SCI_MARKERSETBACK, row.index, bgr);
            break;
        }
    };
    const auto others = kColorRows.begin() + kResettingRows;
    std::for_each(kColorRows.begin(), others, paint);
    SendScintilla(SCI_STYLECLEARALL);
    std::for_each(others, kColorRows.end(), paint);
}

void ScriptEditor::SetFontName(const QString& name) {
    QFont font(name);
    font.setStyleHint(QFont::Monospace);
    if (!QFontInfo(font).fixedPitch())
        font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    SendScintilla(SCI_STYLESETFONT, static_cast<unsigned long>(STYLE_DEFAULT),
                  font.family().toUtf8().constData());
    ApplyColors();
    FitLineNumbers();
}

void ScriptEditor::SetFontPoints(int points) {
    SetStyle(SCI_STYLESETSIZE, STYLE_DEFAULT, points);
    ApplyColors();
    FitLineNumbers();
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
    SendScintilla(SCI_SETKEYWORDS, 0UL, kKeywords);
    SendScintilla(SCI_SETKEYWORDS, 1UL, kScopeKeywords);
    SendScintilla(SCI_CLEARDOCUMENTSTYLE);
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
    if (source && source->hasText() && !canInsertFromMimeData(source))
        platform::MsgBox(QStringLiteral("Lo copiado daría una línea de más de 1 MiB, y con líneas "
                                        "tan largas el editor no puede trabajar. No se ha pegado."),
                         platform::Buttons::Ok, platform::Icon::Information);
    else
        QsciScintilla::paste();
}

void ScriptEditor::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste))
        paste();
    else
        QsciScintilla::keyPressEvent(event);
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
