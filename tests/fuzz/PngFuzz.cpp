// SPDX-License-Identifier: GPL-3.0-or-later
// PNG files of any content, painted over a box with all kinds of transparency on.
#include "png/PngFile.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    const recipes::TemporaryFile file(std::string(reinterpret_cast<const char*>(data), size));
    recipes::MemoryBox box(20, 20);
    png::LoadPNG decoder;
    decoder.PicBox(&box);
    decoder.SetAlpha(size % 2 == 0);
    decoder.SetTrans(size % 3 != 0);
    decoder.BackgroundPicture(size % 5 == 0 ? &box : nullptr);
    decoder.OpenPNG(file.Name());
    decoder.OpenPNG(file.Name()); // what stays from one file meets the next
    return 0;
}
