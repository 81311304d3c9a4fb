// SPDX-License-Identifier: GPL-3.0-or-later
// Stands in for libFuzzer where the compiler has none: TARGET FOLDER gives the target each file of
// the folder, whole and cut at every eighth of its length.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size);

int main(int, char* arguments[]) {
    size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(arguments[1])) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        for (size_t eighths = 0; eighths <= 8; ++eighths) {
            const std::string part = bytes.substr(0, bytes.size() * eighths / 8);
            LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char*>(part.data()),
                                   part.size());
        }
        ++files;
    }
    return files == 0 ? 1 : 0;
}
