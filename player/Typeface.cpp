// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Typeface.h"

#include "player/Color.h"
#include "player/Encoding.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <fontconfig/fontconfig.h>
#include <fstream>
#include <ft2build.h>
#include <ios>
#include <iterator>
#include <utility>
#include FT_FREETYPE_H

namespace player {
namespace {

constexpr int kTallest = 256;
constexpr size_t kKeptBytes = size_t{1} << 20;
constexpr int kTab = 4;
constexpr int kBaseline = 9; // of a cell
constexpr std::array kCellPixels = {13, 11};

int Round(FT_Pos fixed) {
    return static_cast<int>((fixed + 32) >> 6);
}

std::string SystemFile(const char* family) {
    FcConfig* const config = FcInitLoadConfigAndFonts();
    FcPattern* const wanted = FcPatternCreate();
    FcPatternAddString(wanted, FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
    FcPatternAddBool(wanted, FC_SCALABLE, FcTrue);
    FcConfigSubstitute(config, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult found = FcResultNoMatch;
    FcPattern* const match = FcFontMatch(config, wanted, &found);
    FcChar8* file = nullptr;
    std::string path;
    if (match && FcPatternGetString(match, FC_FILE, 0, &file) == FcResultMatch)
        path = reinterpret_cast<const char*>(file);
    if (match)
        FcPatternDestroy(match);
    FcPatternDestroy(wanted);
    FcConfigDestroy(config);
    return path;
}

std::unique_ptr<Typeface> OpenFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return file ? Typeface::Open({std::istreambuf_iterator<char>(file), {}}) : nullptr;
}

void CopyRow(const FT_Bitmap& bitmap, int row, uint8_t* target) {
    const unsigned char* const from = bitmap.buffer + ptrdiff_t{row} * bitmap.pitch;
    for (unsigned i = 0; i < bitmap.width; ++i) {
        const bool bits = bitmap.pixel_mode == FT_PIXEL_MODE_MONO;
        target[i] = bits ? (from[i / 8] >> (7 - i % 8) & 1) * 255 : from[i];
    }
}

} // namespace

void Typeface::Close::operator()(FT_FaceRec_* face) const {
    FT_Done_Face(face);
}

void Typeface::Close::operator()(FT_LibraryRec_* library) const {
    FT_Done_FreeType(library);
}

std::unique_ptr<Typeface> Typeface::Open(std::string bytes) {
    auto face = std::make_unique<Typeface>();
    face->m_bytes = std::move(bytes);
    FT_Library library = nullptr;
    if (FT_Init_FreeType(&library) != 0)
        return nullptr;
    face->m_library.reset(library);
    FT_Face made = nullptr;
    if (FT_New_Memory_Face(library, reinterpret_cast<const FT_Byte*>(face->m_bytes.data()),
                           static_cast<FT_Long>(face->m_bytes.size()), 0, &made) != 0)
        return nullptr;
    face->m_face.reset(made);
    return face->SetPixels(0, 16) ? std::move(face) : nullptr;
}

std::unique_ptr<Typeface> Typeface::OpenSystem(bool monospaced) {
    const std::string folder = "/usr/share/fonts/truetype/dejavu/";
    auto face = OpenFile(folder + (monospaced ? "DejaVuSansMono.ttf" : "DejaVuSans.ttf"));
    return face ? std::move(face) : OpenFile(SystemFile(monospaced ? "monospace" : "sans-serif"));
}

bool Typeface::Sized(int error) {
    m_glyphs.clear();
    m_kept = 0;
    return error == 0;
}

bool Typeface::SetPixels(int width, int height) {
    if (width < 0 || height < 0 || width > kTallest || height > kTallest || width + height == 0)
        return false;
    return Sized(FT_Set_Pixel_Sizes(m_face.get(), static_cast<FT_UInt>(width),
                                    static_cast<FT_UInt>(height)));
}

bool Typeface::SetPoints(double width, double height, int dpiX, int dpiY) {
    const auto pixels = [](double points, int dpi) { return points * (dpi > 0 ? dpi : 72) / 72; };
    const auto fits = [](double size) { return size >= 0 && size <= kTallest; };
    const double wide = pixels(width, dpiX > 0 ? dpiX : dpiY);
    const double high = pixels(height, dpiY > 0 ? dpiY : dpiX);
    if (!fits(wide) || !fits(high) || wide + high <= 0)
        return false;
    return Sized(
        FT_Set_Char_Size(m_face.get(), std::lround(wide * 64), std::lround(high * 64), 0, 0));
}

int Typeface::Ascent() const {
    return Round(m_face->size->metrics.ascender);
}

int Typeface::LineHeight() const {
    return std::max(1, Round(m_face->size->metrics.height));
}

Typeface::Glyph Typeface::Render(char32_t c) {
    if (FT_Load_Char(m_face.get(), c, FT_LOAD_RENDER) != 0)
        return {};
    const FT_GlyphSlot slot = m_face->glyph;
    const FT_Bitmap& bitmap = slot->bitmap;
    Glyph glyph{slot->bitmap_left, slot->bitmap_top, 0, 0, Round(slot->advance.x), {}};
    if (bitmap.pixel_mode != FT_PIXEL_MODE_GRAY && bitmap.pixel_mode != FT_PIXEL_MODE_MONO)
        return glyph;
    glyph.width = static_cast<int>(bitmap.width);
    glyph.height = static_cast<int>(bitmap.rows);
    glyph.coverage.resize(size_t{bitmap.width} * bitmap.rows);
    for (int row = 0; row < glyph.height; ++row)
        CopyRow(bitmap, row, glyph.coverage.data() + ptrdiff_t{row} * glyph.width);
    return glyph;
}

const Typeface::Glyph& Typeface::Find(char32_t c) {
    if (const auto found = m_glyphs.find(c); found != m_glyphs.end())
        return found->second;
    if (m_kept > kKeptBytes)
        Sized(0);
    Glyph glyph = Render(c);
    m_kept += sizeof glyph + glyph.coverage.size();
    return m_glyphs.emplace(c, std::move(glyph)).first->second;
}

TextSize Typeface::Measure(std::u32string_view text) {
    TextSize size{0, LineHeight()};
    int width = 0;
    for (const char32_t c : text) {
        if (c == '\n') {
            size.height += LineHeight();
            width = 0;
        } else if (c != '\r') {
            width += c == '\t' ? kTab * Find(' ').advance : Find(c).advance;
        }
        size.width = std::max(size.width, width);
    }
    return size;
}

void Typeface::Draw(Picture& picture, int x, int y, std::u32string_view text, Pixel color,
                    int cell) {
    int pen = x;
    for (const char32_t c : text) {
        if (c == '\n') {
            pen = x;
            y += cell ? CellFont::kLine : LineHeight();
        } else if (c == '\t') {
            pen += kTab * (cell ? cell : Find(' ').advance);
        } else if (c != '\r' && pen < picture.width) {
            const Glyph& glyph = Find(c);
            picture.Stamp(pen + glyph.left, y - glyph.top,
                          {glyph.width, glyph.height, glyph.coverage}, color);
            pen += cell ? cell : glyph.advance;
        }
    }
}

CellFont::CellFont() : m_face(Typeface::OpenSystem(true)) {
    if (m_face && !m_face->SetPixels(kCellPixels[0], kCellPixels[1]))
        m_face.reset();
}

void CellFont::Draw(Picture& picture, int x, int y, std::string_view text, Pixel color) {
    const std::u32string characters = Decode(text);
    if (m_face)
        return m_face->Draw(picture, x, y + kBaseline, characters, color, kCell);
    for (size_t i = 0; i < characters.size() && x < picture.width; ++i, x += kCell) {
        if (characters[i] > ' ')
            picture.Fill({x + 1, y + 1, kCell - 2, kCell}, color);
    }
}

} // namespace player
