// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/Calls.h"

#include "documents/editor/lua/CallTables.h"

#include <algorithm>
#include <iterator>

namespace documents {
namespace {

constexpr std::array kLibraries = {
    Library{"screen", ValueKind::Image, "", "La pantalla"},
    Library{"Image", ValueKind::Image, "imagen", "Imágenes"},
    Library{"Color", ValueKind::Color, "color", "Colores"},
    Library{"Font", ValueKind::Font, "fuente", "Fuentes"},
    Library{"Controls", ValueKind::Controls, "mando", "Controles"},
    Library{"Sound", ValueKind::Sound, "sonido", "Sonidos"},
    Library{"Voice", ValueKind::Voice, "voz", "Sonidos que suenan"},
    Library{"SoundSystem", ValueKind::Nothing, "", "Todos los sonidos"},
    Library{"Music", ValueKind::Nothing, "", "Música"},
    Library{"System", ValueKind::Nothing, "", "La consola"},
    Library{"Wlan", ValueKind::Nothing, "", "Red inalámbrica"},
    Library{"Socket", ValueKind::Socket, "socket", "Conexiones"},
    Library{"", ValueKind::Nothing, "", "Funciones básicas"},
    Library{"string", ValueKind::Text, "texto", "Textos"},
    Library{"table", ValueKind::Nothing, "", "Tablas"},
    Library{"math", ValueKind::Nothing, "", "Números"},
    Library{"io", ValueKind::Nothing, "", "Leer y escribir archivos"},
    Library{"FILE*", ValueKind::File, "archivo", "Archivos abiertos"},
    Library{"os", ValueKind::Nothing, "", "Fecha, hora y nombres de archivos"},
    Library{"coroutine", ValueKind::Nothing, "", "Corrutinas"},
    Library{"package", ValueKind::Nothing, "", "Módulos"},
    Library{"debug", ValueKind::Nothing, "", "Búsqueda de errores"},
};

bool IsMethod(const Call& call) {
    return call.form == CallForm::Method || call.form == CallForm::OnText;
}

// The text comes before the colon then, not between the parentheses.
bool GivesFirst(const Call& call, bool asMethod) {
    return asMethod && call.form == CallForm::OnText;
}

const Library& LibraryOf(const Call& call) {
    const Library* found = FindLibrary(call.library);
    return found ? *found : kLibraries.back(); // each row's is there
}

std::string Start(const Call& call, bool asMethod) {
    const bool method = call.form == CallForm::Method || GivesFirst(call, asMethod);
    const std::string_view owner = method ? LibraryOf(call).object : call.library;
    const std::string_view link = owner.empty() ? "" : method ? ":" : ".";
    return std::string(owner).append(link).append(call.name);
}

template<class Wanted>
std::vector<const Call*> Those(Wanted wanted) {
    std::vector<const Call*> found;
    std::copy_if(AllCalls().begin(), AllCalls().end(), std::back_inserter(found), wanted);
    return found;
}

template<class Wanted>
const Call* First(Wanted wanted) {
    const auto found = std::find_if(AllCalls().begin(), AllCalls().end(), wanted);
    return found == AllCalls().end() ? nullptr : *found;
}

// Whether a value of the kind has the call as a method.
bool Has(ValueKind kind, const Call& call) {
    return IsMethod(call) && (kind == ValueKind::Any || LibraryOf(call).kind == kind);
}

} // namespace

std::span<const Parameter> Call::Parameters() const {
    const auto end = std::find_if(given.begin(), given.end(), [](const Parameter& parameter) {
        return parameter.name.empty();
    });
    return {given.begin(), end};
}

std::span<const Library> Libraries() {
    return kLibraries;
}

const std::vector<const Call*>& AllCalls() {
    static const std::vector<const Call*> all = [] {
        std::vector<const Call*> calls;
        for (const auto rows : {PictureCalls(), SoundCalls(), MachineCalls(), NetworkCalls(),
                                BasicCalls(), TextCalls(), TableCalls(), MathCalls(), FileCalls()})
            for (const Call& call : rows)
                calls.push_back(&call);
        std::stable_sort(calls.begin(), calls.end(), [](const Call* a, const Call* b) {
            return FindLibrary(a->library) < FindLibrary(b->library);
        });
        return calls;
    }();
    return all;
}

const Library* FindLibrary(std::string_view name) {
    const auto found = std::find_if(kLibraries.begin(), kLibraries.end(),
                                    [&](const Library& library) { return library.name == name; });
    return found == kLibraries.end() ? nullptr : &*found;
}

const Call* FindCall(std::string_view library, std::string_view name) {
    return First([&](const Call* call) { return call->library == library && call->name == name; });
}

const Call* FindMethod(ValueKind kind, std::string_view name) {
    return First([&](const Call* call) { return call->name == name && Has(kind, *call); });
}

std::vector<const Call*> CallsOf(std::string_view library) {
    return Those([&](const Call* call) {
        return call->library == library && call->form != CallForm::Method;
    });
}

std::vector<const Call*> MethodsOf(ValueKind kind) {
    return Those([&](const Call* call) { return Has(kind, *call); });
}

std::string_view NameOf(ValueKind kind) {
    constexpr std::array<std::string_view, 16> kNames = {
        "",        "",       "número", "texto", "true o false", "tabla",  "función", "corrutina",
        "archivo", "imagen", "fuente", "color", "mando",        "sonido", "voz",     "socket",
    };
    return kNames.at(static_cast<size_t>(kind));
}

Signature SignatureOf(const Call& call, bool asMethod) {
    Signature signature{Start(call, asMethod), {}};
    if (call.form == CallForm::Value)
        return signature;
    std::string& text = signature.text;
    text += '(';
    for (const Parameter& parameter :
         call.Parameters().subspan(GivesFirst(call, asMethod) ? 1 : 0)) {
        text.append(signature.parameters.empty() ? "" : ", ").append(parameter.optional ? "[" : "");
        const size_t from = text.size();
        text += parameter.name;
        signature.parameters.push_back({from, text.size()});
        text.append(parameter.optional ? "]" : "");
    }
    text += ')';
    return signature;
}

} // namespace documents
