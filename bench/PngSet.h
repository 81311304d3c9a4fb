// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace bench {

struct PngFile {
    std::string name;
    std::string bytes;
};

/// Pictures of the kinds that people have, drawn with a fixed seed and written with libpng.
std::vector<PngFile> MakePngSet();

} // namespace bench
