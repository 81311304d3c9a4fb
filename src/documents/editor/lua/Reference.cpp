// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/Reference.h"

#include "documents/editor/lua/Calls.h"

#include <string_view>

namespace documents {
namespace {

std::string Code(std::string_view text) {
    return std::string("`").append(text) + '`';
}

std::string Gives(const Call& call) {
    const std::string_view kind = NameOf(call.result);
    return kind.empty() ? "" : std::string(" → ").append(kind);
}

std::string TableRow(const Call& call) {
    return "| " + Code(SignatureOf(call).text) + Gives(call) + " | " + std::string(call.sentence) +
           " " + Code(call.example) + " |\n";
}

std::string Heading(const Library& library) {
    const bool written = !library.name.empty() && library.name.find('*') == std::string_view::npos;
    const std::string name = written ? " (" + Code(library.name) + ")" : "";
    return "### " + std::string(library.title) + name + "\n\n";
}

std::string Taken(const Parameter& parameter) {
    const std::string_view kind = NameOf(parameter.kind);
    const std::string name = Code(parameter.name);
    const std::string what = kind.empty() ? name : name + ": " + std::string(kind);
    return "- " + what + (parameter.optional ? ", se puede omitir" : "") + "\n";
}

} // namespace

std::string ReferenceChapter() {
    std::string text;
    for (const Library& library : Libraries()) {
        if (!text.empty())
            text += "\n";
        text += Heading(library);
        text += "| Llamada | Qué hace y un ejemplo |\n|---|---|\n";
        for (const Call* call : AllCalls())
            if (call->library == library.name)
                text += TableRow(*call);
    }
    return text;
}

std::string ReferenceEntry(const Call& call) {
    std::string text = "### " + Code(SignatureOf(call).text) + "\n\n" + std::string(call.sentence);
    if (const std::string_view kind = NameOf(call.result); !kind.empty())
        text.append(" Da: ").append(kind) += '.';
    text.append("\n\n    ").append(call.example) += "\n\n";
    for (const Parameter& parameter : call.Parameters())
        text += Taken(parameter);
    return text;
}

} // namespace documents
