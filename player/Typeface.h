// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/Color.h"
#include "player/Picture.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct FT_FaceRec_;
struct FT_LibraryRec_;

namespace player {

struct TextSize {
    int width = 0, height = 0;
};

/// A font of FreeType's at a size. One thread at a time may use it; two fonts share nothing.
class Typeface {
public:
    /// Null if the bytes are no font.
    static std::unique_ptr<Typeface> Open(std::string bytes);
    /// One that the system has, as fontconfig finds it; null if it has none.
    static std::unique_ptr<Typeface> OpenSystem(bool monospaced);

    /// False if the font doesn't have the size. A width of 0 is that of the height.
    bool SetPixels(int width, int height);
    bool SetPoints(double width, double height, int dpiX, int dpiY);

    int Ascent() const;
    int LineHeight() const;
    TextSize Measure(std::u32string_view text);
    /// The baseline of the first line is at y. With a cell, each character takes that width.
    void Draw(Picture& picture, int x, int y, std::u32string_view text, Pixel color, int cell = 0);

private:
    struct Glyph {
        int left = 0, top = 0, width = 0, height = 0, advance = 0;
        std::vector<uint8_t> coverage;
    };
    struct Close {
        void operator()(FT_FaceRec_* face) const;
        void operator()(FT_LibraryRec_* library) const;
    };

    const Glyph& Find(char32_t c);
    Glyph Render(char32_t c);
    bool Sized(int error);

    std::string m_bytes; // must outlive the face
    std::unique_ptr<FT_LibraryRec_, Close> m_library;
    std::unique_ptr<FT_FaceRec_, Close> m_face;
    std::unordered_map<char32_t, Glyph> m_glyphs;
    size_t m_kept = 0;
};

/// The player's own characters, in cells of eight points: those of Image:print, the error panel and
/// the console. Without a font of the system they are boxes.
class CellFont {
public:
    static constexpr int kCell = 8;
    static constexpr int kLine = 12;

    CellFont();
    void Draw(Picture& picture, int x, int y, std::string_view text, Pixel color);

private:
    std::unique_ptr<Typeface> m_face;
};

} // namespace player
