// SPDX-License-Identifier: GPL-3.0-or-later
// Stands in for libFuzzer where the compiler has none: TARGET FOLDER gives the target each file of
// the folder, whole, cut short and with a byte changed, at a few dozen places.
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
        const auto run = [](const std::string& part) {
            LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char*>(part.data()),
                                   part.size());
        };
        run(bytes);
        for (size_t at = 0; at < bytes.size(); at += bytes.size() / 32 + 1) {
            run(bytes.substr(0, at));
            run(bytes.substr(0, at) + char(bytes[at] ^ 1 << at % 8) + bytes.substr(at + 1));
        }
        ++files;
    }
    return files == 0 ? 1 : 0;
}
