// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace documents {

/// What a value of a script is. Any: not known.
enum class ValueKind {
    Any,
    Nothing,
    Number,
    Text,
    Boolean,
    Table,
    Function,
    Coroutine,
    File,
    Image,
    Font,
    Color,
    Controls,
    Sound,
    Voice,
    Socket,
};

/// How a call is written. Either: with a point or a colon. OnText: with a point, or as a method of
/// its first argument. Value: it isn't called.
enum class CallForm { Plain, Method, Either, OnText, Value };

struct Parameter {
    std::string_view name;
    ValueKind kind = ValueKind::Any;
    bool optional = false;
};

/// One thing that a script can call in the player. Texts are Spanish, in UTF-8.
struct Call {
    static constexpr size_t kMostParameters = 8;

    std::string_view library; ///< the table it stands in; empty for a global function
    std::string_view name;
    CallForm form = CallForm::Plain;
    ValueKind result = ValueKind::Nothing;
    std::array<Parameter, kMostParameters> given; ///< for Parameters()
    std::string_view sentence;
    std::string_view example;

    /// Without the object of a method, but with the text of an OnText.
    std::span<const Parameter> Parameters() const;
};

/// A table of calls, or the global functions, whose name is empty.
struct Library {
    std::string_view name;
    ValueKind kind = ValueKind::Nothing; ///< whose methods it has
    std::string_view object;             ///< what the reference calls such a value
    std::string_view title;
};

std::span<const Library> Libraries();
/// In the order of Libraries().
const std::vector<const Call*>& AllCalls();

/// Null for an unknown name.
const Library* FindLibrary(std::string_view name);
const Call* FindCall(std::string_view library, std::string_view name);
/// The first of any kind for ValueKind::Any.
const Call* FindMethod(ValueKind kind, std::string_view name);

/// What may stand after `library.`.
std::vector<const Call*> CallsOf(std::string_view library);
/// What may stand after `value:`; of ValueKind::Any all methods.
std::vector<const Call*> MethodsOf(ValueKind kind);

/// In plain words; empty for Nothing and Any.
std::string_view NameOf(ValueKind kind);

/// The call as a script writes it, what may be left out in brackets.
struct Signature {
    struct Range {
        size_t from = 0;
        size_t to = 0;
    };

    std::string text;
    std::vector<Range> parameters; ///< where each stands in the text, in bytes
};

/// `asMethod`: of an OnText, how it's written after a colon.
Signature SignatureOf(const Call& call, bool asMethod = false);

} // namespace documents
