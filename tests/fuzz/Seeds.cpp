// SPDX-License-Identifier: GPL-3.0-or-later
// Writes what the fuzz targets start from: seeds FOLDER makes in it a folder of small files for
// each target, named as the target is. The same files each time.
#include "png/DeflateStream.h"
#include "png/PngFile.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>

namespace {

using namespace recipes;
using namespace std::string_literals;

using Seeds = std::vector<std::string>;

// The PNG target takes its settings from a file's size, which bytes behind the end change: those
// of each remainder by 30 are blended over the box, blended over a colour, and plain.
constexpr size_t kSettings[] = {10, 2, 3};
constexpr size_t kDivisor = 30;

std::string Sized(std::string file, size_t remainder) {
    while (file.size() % kDivisor != remainder)
        file += '\0';
    return file;
}

std::string Picture(const Kind& kind, std::mt19937& random) {
    std::string file = kSignature + Ihdr(kind) + Chunk("gAMA", Long(45455)) +
                       Chunk("tIME", "\x07\xD7\x03\x05\x0C\x2D\x08");
    if (kind.type == 3)
        file += Palette(kind.depth, random);
    if (kind.type < 4)
        file += Trns(kind, random);
    const std::string background = "\0\1\0\2\0\3"s;
    file += Chunk("bKGD", kind.type == 3 ? "\1"s : background.substr(0, kind.type % 4 ? 6 : 2));
    file += Chunk("tEXt", "K\0V"s) + Chunk("zTXt", "K\0\0"s + Deflated("text"));
    const std::string rows = Rows(kind, 5, random);
    const std::string stream = Deflated(rows, int(random() % 10));
    return file + Chunk("IDAT", stream.substr(0, 9)) + Chunk("IDAT", stream.substr(9)) + kEnd;
}

Seeds Pictures() {
    Seeds seeds;
    std::mt19937 random(1);
    for (const auto& [type, depth] : kKinds) {
        for (const bool laced : {false, true}) {
            for (const size_t remainder : kSettings)
                seeds.push_back(Sized(Picture({type, depth, laced, 11, 9}, random), remainder));
        }
        // Larger than the box, and with fewer columns than passes.
        seeds.push_back(Sized(Picture({type, depth, false, 33, 21}, random), kSettings[0]));
        seeds.push_back(Sized(Picture({type, depth, true, 3, 5}, random), kSettings[1]));
    }
    return seeds;
}

// The first two bytes of the target's input are the room that the output has.
std::string WithRoom(size_t room, const std::string& stream) {
    return std::string{char(room / 1024), char(room % 1024 / 4)} + stream;
}

Seeds Streams() {
    Seeds seeds;
    std::mt19937 random(2);
    for (const size_t size : {10, 600, 5000}) {
        for (const uint32_t letters : {2, 20, 256}) {
            std::string text(size, '\0');
            for (size_t i = 0; i < size; ++i)
                text[i] = char(i > 40 && random() % 5 != 0 ? text[i - 1 - random() % 40]
                                                           : random() % letters);
            for (const auto& [level, strategy] : {std::pair(0, Z_DEFAULT_STRATEGY),
                                                  {1, Z_DEFAULT_STRATEGY},
                                                  {9, Z_DEFAULT_STRATEGY},
                                                  {6, Z_FIXED},
                                                  {6, Z_HUFFMAN_ONLY},
                                                  {6, Z_RLE}})
                seeds.push_back(WithRoom(size + 1024, Deflated(text, level, strategy).substr(2)));
        }
    }
    // One block of each sort, and a match in the third of what the others gave.
    Stream mixed;
    mixed.Fixed(false).Literals("a").Match(258, 1).End().Stored(false, std::string(40, 'b'));
    mixed.Fixed(true).Match(10, 36).End();
    seeds.push_back(WithRoom(2048, mixed.Take()));
    return seeds;
}

Seeds RichTexts() {
    const std::string head = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss Uno;}"
                             "{\\f1\\fcharset128 Dos{\\*\\falt Otra};}}"
                             "{\\colortbl;\\red255;\\green128\\blue1;}";
    const std::string bodies[] = {
        " a\r\nb\\par c\\\nd\\line e\\tab f\\page\\sect",
        "\\b n\\b0\\i c\\i0\\ul s\\ulnone\\strike t\\fs40\\cf1\\highlight2 g\\super 2\\plain x",
        "\\pard\\qc\\li720\\ri360\\fi-360\\sb120\\sa240\\sl480\\slmult1\\tqr\\tx2000 a\\tab b\\par",
        "\\'e1\\'80\\f1\\'93\\'fa\\f0\\u8364 ?\\u-10179 ?\\u-8704 ?{\\uc2\\u225 ab}\\uc0\\u233 b",
        "\\trowd\\cellx900\\cellx1800\\intbl a\\par b\\cell c\\cell\\row\\pard d",
        "{\\*\\otro x{y}}{\\info{\\title t}}{\\header h}{\\v o}{\\pict\\bin4 }}\\\\}{\\pntext 1.}",
        "{\\field{\\*\\fldinst HYPERLINK}{\\*\\fldrslt c}}{\\caps m{\\scaps v\\up6 a}\\dn6 b}",
    };
    Seeds seeds;
    for (const std::string& body : bodies) {
        std::string file = head + body + '}';
        seeds.push_back(file);
        file.resize((file.size() + 15) / 16 * 16, ' '); // is laid out
        seeds.push_back(file);
    }
    return seeds;
}

Seeds Profiles() {
    return {"[inicio]\r\nejecuciones=7\r\n[general]\r\nnuevo=si\r\n",
            "; uno\r\nsuelta=0\r\n[ General ]\r\n;nuevo=a\r\nNUEVO =  no  \r\nnuevo=dos\r\n",
            "[general]\nnuevo=\" con blancos \"\n[INICIO]\nEjecuciones=a=b;c",
            "\xEF\xBB\xBF[inicio]\n\n[general]\r\n[inicio]\rnuevo"};
}

Seeds Texts() {
    return {"",
            "print(1)\r\nend\rx\n",
            "a\xF1o \x80",
            "-- \xC2\xA1"
            "a\xC3\xB1o! \xE2\x82\xAC \xF0\x9F\x98\x80\r\n",
            "\xEF\xBB\xBF"
            "a\xC3\xB1o",
            "\xEF\xBB\xBF\xF1",
            "\xFF\xFE"
            "a\0\xF1\0\x3D\xD8\x00\xDE"s,
            "\xFE\xFF"
            "\0a\0\xF1\xD8\x3D\xDE\x00"s,
            "\xFF\xFE\x3D\xD8"s,
            "a\0b"s};
}

Seeds Versions() {
    return {"\"3.0.0\"", "3.1, x\r\n", " \t\"4.0\r\n", "\xEF\xBB\xBF\"2\"", std::string(300, '9')};
}

struct Target {
    const char* name;
    std::function<Seeds()> seeds;
};
const Target kTargets[] = {{"png_fuzz", Pictures},  {"inflate_fuzz", Streams},
                           {"rtf_fuzz", RichTexts}, {"profile_fuzz", Profiles},
                           {"text_fuzz", Texts},    {"version_fuzz", Versions}};

void Write(const std::filesystem::path& folder, const Seeds& seeds) {
    std::filesystem::create_directories(folder);
    for (size_t i = 0; i < seeds.size(); ++i) {
        std::ofstream file;
        file.exceptions(std::ios::failbit | std::ios::badbit);
        file.open(folder / std::to_string(i), std::ios::binary);
        file << seeds[i];
        file.close();
    }
}

} // namespace

int main(int count, char* arguments[]) {
    if (count != 2) {
        std::fputs("usage: seeds FOLDER\n", stderr);
        return 2;
    }
    try {
        for (const Target& target : kTargets)
            Write(std::filesystem::path(arguments[1]) / target.name, target.seeds());
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "seeds: %s\n", failure.what());
        return 1;
    }
    return 0;
}
