// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/rtf/RtfCodePages.h"
#include "platform/rtf/RtfFlow.h"
#include "platform/rtf/RtfReader.h"
#include "platform/rtf/RtfTokens.h"

#include <QTextOption>
#include <algorithm>
#include <map>
#include <string_view>
#include <unordered_map>

namespace platform {

/// Reads an RTF file into a document, whose content it appends to.
class RtfParser {
public:
    RtfParser(QByteArrayView bytes, QTextDocument& document)
        : m_tokens(bytes), m_flow(document, m_formats) {}

    RtfResult Read();

private:
    using Number = std::optional<int>;

    static constexpr int kLongest = 31680; ///< twips, 22 inches

    /// Where the text of a group goes.
    enum class Place { Body, Label, FontTable, ColorTable, Nowhere };

    /// What a group hands on to the groups in it and forgets at its end.
    struct Group {
        Place place = Place::Body;
        int fallbackLength = 1; ///< characters behind each \u
        bool inTable = false;
        RtfCharacters characters = {};
        RtfParagraph paragraph = {};
    };

    struct FontEntry {
        int number = -1;
        int codePage = kRtfWestern;
        QString name = {};
    };

    /// What a control word or symbol does; `fixed` comes from the table of words.
    struct Order {
        void (RtfParser::*run)(int fixed, Number number) = nullptr;
        int fixed = 0;
    };
    using OrderTable = std::unordered_map<std::string_view, Order>;
    static OrderTable MakeOrders();
    static void AddFileWords(OrderTable& orders);
    static void AddLookWords(OrderTable& orders);
    static void AddParagraphWords(OrderTable& orders);
    static void AddCharacterWords(OrderTable& orders);

    std::optional<RtfResult> Step();
    void Open();
    void Close();
    void Control(const RtfToken& token, bool afterStar);
    void Bytes(QByteArrayView bytes);
    void FlushBytes();
    void Text(const QString& text);
    void FontTableText(const QString& text);
    void ColorTableText(const QString& text);
    void CommitFont();
    void CommitLabel();
    int CodePage() const;

    Group& Top() { return m_groups.back(); }
    RtfCharacters& Look() { return Top().characters; }
    RtfParagraph& Paragraph() { return Top().paragraph; }

    // What control words do.
    void Enter(int place, Number) { Top().place = static_cast<Place>(place); }
    void DocumentPage(int fixed, Number number) { m_codePage = fixed ? fixed : number.value_or(0); }
    void DefaultFont(int, Number number) { Look().font = m_defaultFont = number.value_or(0); }
    void DefaultTab(int, Number number) {
        m_defaultTab = std::clamp(number.value_or(0), 1, kLongest);
    }
    void Font(int, Number number);
    void FontPage(int fromCharset, Number number);
    void FontSize(int, Number number);
    void ColorPart(int shift, Number number);
    void Underline(int style, Number number) { Look().underline = number == 0 ? 0 : style; }
    void Raise(int alignment, Number number) { Look().vertical = number == 0 ? 0 : alignment; }
    void Capitals(int kind, Number number) { Look().capitals = number == 0 ? 0 : kind; }
    void Plain(int, Number) { Look() = {.font = m_defaultFont}; }
    void Align(int alignment, Number) { Paragraph().alignment = alignment; }
    void LineSpacing(int, Number number);
    void TabKind(int type, Number) { m_tabType = type; }
    void Tab(int, Number number);
    void ParagraphPlain(int, Number);
    void Character(int code, Number) { Text(QString(QChar(code))); }
    void Unicode(int, Number number);
    void FallbackLength(int, Number number) {
        Top().fallbackLength = std::max(0, number.value_or(1));
    }
    void EndParagraph(int, Number);
    void BreakPage(int, Number);
    void SectionBreaks(int pages, Number) { m_sectionStartsPage = pages != 0; }
    void EndSection(int, Number);
    void InTable(int, Number number) { Top().inTable = number != 0; }
    void NewRow(int, Number) { m_cellEdges.clear(); }
    void CellEdge(int, Number number);
    void EndCell(int, Number);
    void EndRow(int, Number);

    template<bool RtfCharacters::*flag>
    void Flag(int, Number number) {
        Look().*flag = number != 0;
    }
    template<int RtfCharacters::*index>
    void Color(int, Number number) {
        Look().*index = std::max(0, number.value_or(0));
    }
    template<bool RtfParagraph::*flag>
    void ParagraphFlag(int, Number number) {
        Paragraph().*flag = number.value_or(1) != 0;
    }
    template<int RtfParagraph::*length>
    void Length(int least, Number number) {
        Paragraph().*length = std::clamp(number.value_or(0), least, kLongest);
    }

    RtfTokens m_tokens;
    RtfFormats m_formats;
    RtfFlow m_flow;
    RtfCodePages m_codePages;
    std::vector<Group> m_groups;
    int m_codePage = kRtfWestern;
    int m_defaultFont = -1;
    int m_defaultTab = 720;         ///< twips between tabs where a paragraph has none of its own
    std::map<int, int> m_fontPages; ///< code pages by the font's number
    FontEntry m_font;               ///< being read
    std::optional<QRgb> m_color;    ///< being read
    QString m_label;                ///< of a list's paragraph, being read
    QByteArray m_bytes;             ///< in the code page of the font, not yet text
    int m_toSkip = 0;               ///< characters that stand for the last \u
    bool m_afterStar = false;
    int m_tabType = QTextOption::LeftTab;
    bool m_sectionStartsPage = true;
    std::vector<int> m_cellEdges; ///< twips
};

} // namespace platform
