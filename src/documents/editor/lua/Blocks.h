// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace documents {

/// Bytes of a script.
struct Span {
    std::size_t begin = 0;
    std::size_t end = 0;

    bool operator==(const Span&) const = default;
};

/// Two words or brackets of a script that belong together.
struct BlockMatch {
    Span here;
    Span other;
};

/// What opens and closes the blocks and brackets of a script. If an end lacks, the others still
/// find each other, from the inside out.
class Blocks {
public:
    explicit Blocks(std::string_view text);

    /// The word or bracket that begins at the position, holds it or ends at it, with its other
    /// side: of an opener the closer and the other way round; of then, else, elseif, and do of a
    /// loop, the opener.
    std::optional<BlockMatch> At(std::size_t position) const;

private:
    // By what closes them; the blocks come first.
    enum Family { kEnd, kUntil, kRound, kSquare, kCurly, kFamilies };
    struct Part {
        Span span;
        std::size_t other = 0;
    };
    struct Open {
        std::size_t part = 0;
        Family family = kEnd;
        std::string_view word;
        bool awaitsDo = false;
    };

    void Take(std::string_view word, Span span);
    void LeaveBrackets();
    void Start(Family family, std::string_view word);
    void Finish(Family family);
    void Continue(std::string_view word);
    Open Pop();

    std::vector<Part> m_parts; // by position
    std::vector<Open> m_open;
    std::array<std::size_t, kFamilies> m_counts{}; // of the open ones
};

} // namespace documents
