// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/ScriptParser.h"

#include <charconv>
#include <cstdlib>
#include <lua.hpp>
#include <memory>

namespace documents {
namespace {

constexpr std::size_t kMemoryLimit = 128 << 20;

// Room is left of the limit.
void* Allocate(void* room, void* block, std::size_t before, std::size_t after) {
    std::size_t& left = *static_cast<std::size_t*>(room);
    if (after == 0) {
        left += before;
        std::free(block);
        return nullptr;
    }
    if (after > before && after - before > left)
        return nullptr;
    void* const made = std::realloc(block, after);
    if (made)
        left += before - after;
    return made;
}

// Gives the source as one piece up to `fine`, and byte by byte from there, so that it is known how
// far the parser came.
struct Source {
    std::string_view text;
    std::size_t fine;
    std::size_t given = 0;
    bool ended = false;
};

const char* Read(lua_State*, void* data, std::size_t* size) {
    Source& source = *static_cast<Source*>(data);
    const std::size_t left = source.text.size() - source.given;
    *size = source.given < source.fine ? source.fine : left == 0 ? 0 : 1;
    const char* const piece = source.text.data() + source.given;
    source.given += *size;
    source.ended = *size == 0;
    return *size == 0 ? nullptr : piece;
}

// ":12: unexpected symbol near 'x'"
Complaint Split(std::string_view message) {
    constexpr std::string_view kNear = " near '";
    Complaint complaint;
    if (message.starts_with(':')) {
        const char* const end = message.data() + message.size();
        const auto [rest, error] = std::from_chars(message.data() + 1, end, complaint.line);
        message = {rest, static_cast<std::size_t>(end - rest)};
        message.remove_prefix(message.starts_with(": ") ? 2 : 0);
    }
    const std::size_t near = message.find(kNear);
    complaint.text = message.substr(0, near);
    if (near != std::string_view::npos && message.ends_with('\''))
        complaint.near =
            message.substr(near + kNear.size(), message.size() - near - kNear.size() - 1);
    return complaint;
}

std::optional<Complaint> Run(Source source) {
    std::size_t room = kMemoryLimit;
    const std::unique_ptr<lua_State, decltype(&lua_close)> lua(lua_newstate(&Allocate, &room),
                                                               &lua_close);
    const int status = lua ? lua_load(lua.get(), &Read, &source, "=") : LUA_ERRMEM;
    if (status == 0 || status == LUA_ERRMEM)
        return {};
    std::size_t size = 0;
    const char* const message = lua_tolstring(lua.get(), -1, &size);
    Complaint complaint = Split({message, size});
    // It has looked at the byte behind the token.
    complaint.end = source.given - (source.ended ? 0 : 1);
    return complaint;
}

bool IsLineEnd(char byte) {
    return byte == '\n' || byte == '\r';
}

// Behind the line end at a byte; CR LF and LF CR are one.
std::size_t AfterLineEnd(std::string_view text, std::size_t at) {
    const bool isPair = at + 1 < text.size() && IsLineEnd(text[at + 1]) && text[at + 1] != text[at];
    return at + (isPair ? 2 : 1);
}

// Where the line begins, which counts from 1.
std::size_t LineStart(std::string_view text, std::size_t line) {
    std::size_t at = 0;
    for (; at < text.size() && line > 1; --line) {
        at = text.find_first_of("\r\n", at);
        at = at == std::string_view::npos ? text.size() : AfterLineEnd(text, at);
    }
    return at;
}

} // namespace

std::size_t LineEnds(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = text.find_first_of("\r\n"); at < text.size();
         at = text.find_first_of("\r\n", AfterLineEnd(text, at)))
        ++count;
    return count;
}

std::optional<Complaint> Parse(std::string_view source) {
    std::optional<Complaint> complaint = Run({source, source.size()});
    if (complaint && complaint->near != "<eof>")
        complaint = Run({source, LineStart(source, complaint->line)});
    return complaint;
}

} // namespace documents
