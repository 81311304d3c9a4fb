// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/rtf/RtfCodePages.h"
#include "platform/rtf/RtfFlow.h"
#include "platform/rtf/RtfFormats.h"
#include "platform/rtf/RtfLook.h"
#include "platform/rtf/RtfReader.h"
#include "platform/rtf/RtfTables.h"
#include "platform/rtf/RtfTokens.h"
#include "platform/rtf/RtfWords.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QTextOption>
#include <optional>
#include <vector>

class QTextDocument;

namespace platform {

/// Reads an RTF file into a document, whose content it appends to.
class RtfParser {
public:
    RtfParser(QByteArrayView bytes, QTextDocument& document)
        : m_tokens(bytes), m_tables(m_formats), m_flow(document, m_formats) {}

    RtfResult Read();

private:
    /// What a group hands on to the groups in it and forgets at its end.
    struct Group {
        RtfPlace place = RtfPlace::Body;
        int fallbackLength = 1; ///< characters behind each \u
        bool inTable = false;
        RtfCharacters characters = {};
        RtfParagraph paragraph = {};
    };

    std::optional<RtfResult> Step();
    void Open();
    void Close();
    void Control(const RtfToken& token, bool afterStar);
    void Run(RtfFileAction action, int parameter, RtfNumber number);
    void Run(RtfGroupAction action, int parameter, RtfNumber number);
    void Run(RtfCharacterAction action, int parameter, RtfNumber number);
    void Run(RtfParagraphAction action, int parameter, RtfNumber number);
    void Run(RtfTextAction action, int parameter, RtfNumber number);

    void Bytes(QByteArrayView bytes);
    void FlushBytes();
    void Text(const QString& text);
    void CommitLabel();
    int CodePage() const;

    void Font(int number);
    void Tab(int twips);
    void Unicode(int value);
    void EndParagraph();
    void EndSection();
    void CellEdge(int twips);
    void EndRow();

    Group& Top() { return m_groups.back(); }
    RtfCharacters& Look() { return Top().characters; }
    RtfParagraph& Paragraph() { return Top().paragraph; }
    bool InBody() const { return m_groups.back().place == RtfPlace::Body; }

    RtfTokens m_tokens;
    RtfFormats m_formats;
    RtfTables m_tables;
    RtfFlow m_flow;
    RtfCodePages m_codePages;
    std::vector<Group> m_groups;
    int m_codePage = kRtfWestern;
    int m_defaultFont = -1;
    int m_defaultTab = 720; ///< twips between tabs where a paragraph has none of its own
    QString m_label;        ///< of a list's paragraph, being read
    QByteArray m_bytes;     ///< in the code page of the font, not yet text
    int m_toSkip = 0;       ///< characters that stand for the last \u
    bool m_afterStar = false;
    int m_tabType = QTextOption::LeftTab;
    bool m_sectionStartsPage = true;
    std::vector<int> m_cellEdges; ///< twips
};

} // namespace platform
