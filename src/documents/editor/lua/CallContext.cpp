// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/CallContext.h"

#include "documents/editor/lua/Expressions.h"
#include "documents/editor/lua/Tokens.h"

#include <algorithm>
#include <cctype>

namespace documents {
namespace {

bool IsNameByte(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return value < 0x80 && (std::isalnum(value) != 0 || byte == '_');
}

void ReadWord(const Expressions& script, std::size_t size, CallContext& context) {
    std::size_t end = script.Size();
    if (end > 0 && script.At(end - 1).end == size && NameAtEnd(script.Text(end - 1)) > 0) {
        if (script.At(end - 1).kind == TokenKind::Number || script.At(end - 1).IsString())
            return;
        context.word = script.Text(--end);
        context.named = script.IsName(end) ? script.Named(end) : nullptr;
    }
    context.link = script.LinkBefore(end);
    if (context.link == '\0')
        return;
    const Expressions::Meaning receiver = script.EndingAt(end - 1);
    context.library = receiver.library;
    context.kind = receiver.kind;
}

void ReadCall(const Expressions& script, CallContext& context) {
    const auto enclosing = script.Enclosing();
    if (!enclosing)
        return;
    const std::size_t name = enclosing->open - 1;
    context.call = script.Named(name);
    context.callIsMethod = script.LinkBefore(name) == ':';
    context.open = script.At(name).begin;
    context.parameter = enclosing->commas;
}

} // namespace

std::size_t NameAtEnd(std::string_view text) {
    const auto start = std::find_if_not(text.rbegin(), text.rend(), IsNameByte);
    return static_cast<std::size_t>(start - text.rbegin());
}

std::size_t NameAtStart(std::string_view text) {
    const auto end = std::find_if_not(text.begin(), text.end(), IsNameByte);
    return static_cast<std::size_t>(end - text.begin());
}

CallContext ContextAtEnd(std::string_view before) {
    CallContext context;
    const Expressions script(before);
    context.isCode = !script.EndsInText();
    if (context.isCode)
        ReadWord(script, before.size(), context);
    ReadCall(script, context);
    return context;
}

} // namespace documents
