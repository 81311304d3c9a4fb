// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/Offers.h"

#include "documents/editor/lua/Calls.h"
#include "documents/editor/lua/Tokens.h"

#include <algorithm>
#include <set>

namespace documents {
namespace {

using Words = std::set<std::string_view>;

constexpr std::size_t kMostOffers = 200;

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool Begins(std::string_view word, std::string_view start) {
    return word.size() >= start.size() &&
           std::equal(start.begin(), start.end(), word.begin(),
                      [](char a, char b) { return Lower(a) == Lower(b); });
}

void AddNames(const std::vector<const Call*>& calls, Words& words) {
    for (const Call* call : calls)
        words.insert(call->name);
}

// A library's functions after a point, a value's methods after a colon, else what is global.
Words CallsAt(const CallContext& context) {
    Words words;
    if (context.link == ':')
        AddNames(MethodsOf(context.kind), words);
    if (context.link == '\0')
        for (const Library& library : Libraries())
            if (NameAtStart(library.name) == library.name.size() && !library.name.empty())
                words.insert(library.name);
    if (context.link == '\0' || !context.library.empty())
        for (const Call* call : CallsOf(context.library))
            if (context.link != ':' || call->form == CallForm::Either)
                words.insert(call->name);
    return words;
}

// Those that begin so.
Words NamesOf(std::string_view script, std::size_t own, std::string_view start) {
    Words words;
    Tokens tokens(script);
    while (const auto token = tokens.Next())
        if (token->kind == TokenKind::Name && token->begin != own &&
            Begins(token->In(script), start))
            words.insert(token->In(script));
    return words;
}

} // namespace

std::vector<std::string> OffersAt(const CallContext& context, std::string_view script,
                                  std::size_t place) {
    std::vector<std::string> offers;
    Words seen;
    const auto add = [&](const Words& words) {
        for (const std::string_view word : words)
            if (Begins(word, context.word) && offers.size() < kMostOffers &&
                seen.insert(word).second)
                offers.emplace_back(word);
    };
    add(CallsAt(context));
    if (context.link == '\0')
        add({Keywords().begin(), Keywords().end()});
    if (context.kind == ValueKind::Any || context.kind == ValueKind::Table)
        add(NamesOf(script, place - context.word.size(), context.word));
    return offers;
}

} // namespace documents
