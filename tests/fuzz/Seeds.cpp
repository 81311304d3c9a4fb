// SPDX-License-Identifier: GPL-3.0-or-later
// Writes what the fuzz targets start from: seeds FOLDER makes in it a folder of small files for
// each target, named as the target is. The same files each time.
#include "png/DeflateStream.h"
#include "png/PngFile.h"

#include <filesystem>
#include <fstream>

namespace {

using namespace recipes;
using namespace std::string_literals;

using Seeds = std::vector<std::string>;

Seeds Pictures() {
    Seeds seeds;
    std::mt19937 random(1);
    const std::string texts = Chunk("gAMA", Long(45455)) + Chunk("tEXt", "K\0V"s) +
                              Chunk("tIME", "\x07\xD7\x03\x05\x0C\x2D\x08") +
                              Chunk("zTXt", "K\0\0"s + Deflated("text"));
    for (const auto& [type, depth] : kKinds) {
        const std::string sample = type == 3 ? "\1"s : "\0\1\0\2\0\3"s.substr(0, type % 4 ? 6 : 2);
        // The last two are larger than the box, and with fewer columns than passes.
        for (const Kind& kind : {Kind{type, depth, false, 11, 9}, Kind{type, depth, true, 11, 9},
                                 Kind{type, depth, false, 33, 21}, Kind{type, depth, true, 3, 5}})
            seeds.push_back(File(kind, texts + Colors(kind, random) + Chunk("bKGD", sample),
                                 Deflated(Rows(kind, 5, random))));
    }
    return seeds;
}

Seeds Streams() {
    Seeds seeds;
    std::mt19937 random(2);
    const auto add = [&](size_t room, const std::string& stream) { // the room is in the beginning
        seeds.push_back(std::string{char(room / 1024), char(room % 1024 / 4)} + stream);
    };
    for (const size_t size : {10, 600, 5000}) {
        for (const uint32_t letters : {2, 20, 256}) {
            const std::string text = Bytes(size, letters, random, 3);
            for (const int level : {0, 1, 4, 9})
                add(size + 1024, Deflated(text, level).substr(2));
        }
    }
    // One block of each sort, and a match in the third of what the others gave.
    Stream mixed;
    mixed.Fixed(false).Literals("a").Match(258, 1).End().Stored(false, std::string(40, 'b'));
    mixed.Fixed(true).Match(10, 36).End();
    add(2048, mixed.Take());
    return seeds;
}

const std::string kRichText =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss Uno;}"
    "{\\f1\\fcharset128 Dos{\\*\\falt Otra};}}{\\colortbl;\\red255;\\green128\\blue1;}"
    " a\r\nb\\par c\\\nd\\line e\\tab f\\page\\sect"
    "\\b n\\b0\\i c\\i0\\ul s\\ulnone\\strike t\\fs40\\cf1\\highlight2 g\\super 2\\plain x"
    "\\pard\\qc\\li720\\ri360\\fi-360\\sb120\\sa240\\sl480\\slmult1\\tqr\\tx2000 a\\tab b\\par"
    "\\'e1\\'80\\f1\\'93\\'fa\\f0\\u8364 ?\\u-10179 ?\\u-8704 ?{\\uc2\\u225 ab}\\uc0\\u233 b"
    "\\trowd\\cellx900\\cellx1800\\intbl a\\par b\\cell c\\cell\\row\\pard d"
    "{\\*\\otro x{y}}{\\info{\\title t}}{\\header h}{\\v o}{\\pict\\bin4 }}\\\\}{\\pntext 1.}"
    "{\\field{\\*\\fldinst HYPERLINK}{\\*\\fldrslt c}}{\\caps m{\\scaps v\\up6 a}\\dn6 b}}";

const Seeds kProfiles = {
    "[inicio]\r\nejecuciones=7\r\n[general]\r\nnuevo=si\r\n",
    "; uno\r\nsuelta=0\r\n[ General ]\r\n;nuevo=a\r\nNUEVO =  no  \r\nnuevo=dos\r\n",
    "[general]\nnuevo=\" con blancos \"\n[INICIO]\nEjecuciones=a=b;c",
    "\xEF\xBB\xBF[inicio]\n\n[general]\r\n[inicio]\rnuevo"};

// In several encodings, with marks and without.
const Seeds kTexts = {"print(1)\r\nend\rx\n a\361o \200", "a\303\261o! \360\237\230\200\r\n",
                      "\357\273\277a\303\261o", "\377\376a\0\361\0\75\330\0\336"s,
                      "\376\377\0a\0\361\330\75\336\0"s};

} // namespace

int main(int, char* arguments[]) {
    const std::pair<const char*, Seeds> targets[] = {
        {"png_fuzz", Pictures()},  {"inflate_fuzz", Streams()},
        {"rtf_fuzz", {kRichText}}, {"profile_fuzz", kProfiles},
        {"text_fuzz", kTexts},     {"version_fuzz", {"3.1, x\r\n", " \"2\""}}};
    for (const auto& [target, seeds] : targets) {
        const auto folder = std::filesystem::path(arguments[1]) / target;
        std::filesystem::create_directories(folder);
        for (size_t i = 0; i < seeds.size(); ++i) {
            std::ofstream file(folder / std::to_string(i), std::ios::binary);
            file.exceptions(std::ios::failbit | std::ios::badbit);
            file << seeds[i] << std::flush;
        }
    }
}
