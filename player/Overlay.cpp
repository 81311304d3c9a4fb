// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Overlay.h"

#include "player/Color.h"
#include "player/Encoding.h"
#include "player/Picture.h"

#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace player {
namespace {

constexpr int kMargin = 8;
constexpr Pixel kWhite = 0xFFFFFFFF;
constexpr Pixel kGrey = 0xFFC0C0C8;
constexpr Pixel kYellow = 0xFFFFE060;
constexpr Pixel kRed = 0xFFB02020;
constexpr Pixel kPanel = 0xF0202028;
constexpr Pixel kShade = 0xB0000000;

using Lines = std::vector<std::string>;

// Cuts a text into lines that fit. UTF-8 stays whole.
Lines Wrap(const std::string& text, size_t columns) {
    Lines lines(1);
    size_t used = 0;
    for (const char c : ToUtf8(text)) {
        const bool begins = (static_cast<unsigned char>(c) & 0xC0) != 0x80;
        if (c == '\n' || (begins && used == columns)) {
            lines.emplace_back();
            used = 0;
        }
        if (c == '\n')
            continue;
        lines.back() += c == '\t' ? ' ' : c;
        used += begins ? 1 : 0;
    }
    return lines;
}

struct Place {
    std::string name;
    int line = 0;
    std::string text;
};

// Takes apart "name:line: text".
std::optional<Place> FindPlace(const std::string& message) {
    for (size_t colon = message.find(':'); colon != std::string::npos;
         colon = message.find(':', colon + 1)) {
        Place place{message.substr(0, colon), 0, {}};
        const char* const end = message.data() + message.size();
        const auto [stop, error] = std::from_chars(message.data() + colon + 1, end, place.line);
        if (error != std::errc() || end - stop < 2 || std::string_view(stop, 2) != ": ")
            continue;
        place.text = stop + 2;
        return place;
    }
    return std::nullopt;
}

// Writes lines downwards while there is room.
class Writer {
public:
    Writer(Picture& picture, CellFont& font, int top, int bottom)
        : m_picture(picture), m_font(font), m_y(top), m_bottom(bottom) {}

    void Write(const std::string& text, Pixel color) {
        const auto columns = static_cast<size_t>((m_picture.width - 2 * kMargin) / CellFont::kCell);
        for (const std::string& line : Wrap(text, columns)) {
            if (m_y + CellFont::kLine > m_bottom)
                return;
            m_font.Draw(m_picture, kMargin, m_y, line, color);
            m_y += CellFont::kLine;
        }
    }
    void Skip() { m_y += CellFont::kLine / 2; }

private:
    Picture& m_picture;
    CellFont& m_font;
    int m_y;
    int m_bottom;
};

} // namespace

void DrawPanel(Picture& picture, CellFont& font, const Failure& failure) {
    constexpr int kBand = 18;
    picture.Fill({0, 0, picture.width, picture.height}, kPanel);
    picture.Fill({0, 0, picture.width, kBand}, kRed);
    picture.Fill({0, picture.height - kBand, picture.width, kBand}, kRed);
    font.Draw(picture, kMargin, 3, "Error en el script", kWhite);
    font.Draw(picture, kMargin, picture.height - kBand + 3, "Escape: cerrar", kWhite);

    Writer writer(picture, font, kBand + 6, picture.height - kBand);
    const auto place = FindPlace(failure.message);
    if (place) {
        writer.Write("Archivo: " + place->name, kYellow);
        writer.Write("Línea: " + std::to_string(place->line), kYellow);
        writer.Skip();
    }
    writer.Write(place ? place->text : failure.message, kWhite);
    writer.Skip();
    writer.Write(failure.traceback, kGrey);
}

void DrawConsole(Picture& picture, CellFont& font, const std::deque<std::string>& lines) {
    picture.Fill({0, 0, picture.width, picture.height}, kShade);
    const auto columns = static_cast<size_t>((picture.width - 2 * kMargin) / CellFont::kCell);
    int y = picture.height - kMargin;
    for (auto line = lines.rbegin(); line != lines.rend() && y > 0; ++line) {
        const Lines parts = Wrap(*line, columns);
        for (auto part = parts.rbegin(); part != parts.rend() && y > 0; ++part) {
            y -= CellFont::kLine;
            font.Draw(picture, kMargin, y, *part, kWhite);
        }
    }
}

} // namespace player
