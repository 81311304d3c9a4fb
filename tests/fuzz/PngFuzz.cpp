// SPDX-License-Identifier: GPL-3.0-or-later
// PNG files of any content, painted over a colour and over a box, with and without transparency.
#include "png/PngFile.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    const recipes::TemporaryFile file(std::string(reinterpret_cast<const char*>(data), size));
    recipes::MemoryBox box(20, 20);
    png::LoadPNG decoder; // what stays from one picture meets the next
    decoder.PicBox(&box);
    for (const int settings : {0, 1, 2, 3}) {
        decoder.SetAlpha(settings % 2 != 0);
        decoder.SetTrans(settings % 2 != 0);
        decoder.BackgroundPicture(settings > 1 ? &box : nullptr);
        decoder.OpenPNG(file.Name());
    }
    return 0;
}
