// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/rtf/RtfReader.h"

#include "platform/rtf/RtfParser.h"
#include "platform/rtf/RtfTokens.h"

#include <QTextCursor>
#include <QTextDocument>

namespace platform {
namespace {

bool StartsAsRtf(RtfTokens tokens) {
    if (tokens.Next().kind != RtfToken::Kind::Open)
        return false;
    const RtfToken token = tokens.Next();
    return token.kind == RtfToken::Kind::Word && token.text == QByteArrayView("rtf");
}

} // namespace

RtfResult ReadRtf(QByteArrayView bytes, QTextDocument& document) {
    if (!StartsAsRtf(RtfTokens(bytes)))
        return RtfResult::NotRtf;
    const bool undo = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false); // also forgets what there was
    document.clear();
    QTextCursor edit(&document);
    edit.beginEditBlock();
    const RtfResult result = RtfParser(bytes, document).Read();
    edit.endEditBlock();
    document.setUndoRedoEnabled(undo);
    document.setModified(false);
    return result;
}

} // namespace platform
