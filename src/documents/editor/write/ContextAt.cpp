// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/write/ContextAt.h"

#include "documents/editor/engine/ScriptEditor.h"

#include <algorithm>
#include <string_view>

namespace documents {
namespace {

constexpr qsizetype kRead = 64 << 10;
constexpr qsizetype kLongestName = 256;

std::string_view Chars(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<size_t>(bytes.size())};
}

// The start of the first line that is near enough, or of the piece if there's none.
qsizetype StartOfPiece(const ScriptEditor& editor, qsizetype place) {
    if (place <= kRead)
        return 0;
    const qsizetype start = editor.LineStart(editor.LineOf(place - kRead) + 1);
    return start > 0 && start < place ? start : place - kRead;
}

} // namespace

CallContext ContextAt(const ScriptEditor& editor, qsizetype place) {
    const qsizetype start = StartOfPiece(editor, place);
    CallContext context = ContextAtEnd(Chars(editor.Range(start, place)));
    context.open += static_cast<size_t>(start);
    return context;
}

CallContext ContextOfName(const ScriptEditor& editor, qsizetype place) {
    const qsizetype most = std::min(place + kLongestName, editor.Length());
    const auto rest = static_cast<qsizetype>(NameAtStart(Chars(editor.Range(place, most))));
    return ContextAt(editor, place + rest);
}

} // namespace documents
