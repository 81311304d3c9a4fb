// SPDX-License-Identifier: GPL-3.0-or-later
// Inflate against zlib and libdeflate, and OpenPNG against libpng and libspng, each from a file to
// its pixels; then the most memory that OpenPNG takes. All run by turns; medians count.
#include "PngSet.h"
#include "png/Inflate.h"
#include "png/LoadPNG.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <libdeflate.h>
#include <memory>
#include <png.h>
#include <spng.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>
#include <zlib.h>

namespace {

using Work = std::function<void()>;
using Buffer = std::unique_ptr<uint8_t, decltype(&std::free)>;

constexpr int kRounds = 9;
constexpr double kRoundSeconds = 0.02;

Buffer Unset(size_t size) {
    return {static_cast<uint8_t*>(std::malloc(size)), &std::free};
}

double Seconds(const Work& work, int times) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < times; ++i)
        work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() / times;
}

// The median time of each.
std::vector<double> ByTurns(const std::vector<Work>& works) {
    std::vector<int> times;
    for (const Work& work : works)
        times.push_back(std::max(1, int(kRoundSeconds / Seconds(work, 1))));
    std::vector<std::vector<double>> all(works.size());
    for (int round = 0; round < kRounds; ++round)
        for (size_t i = 0; i < works.size(); ++i)
            all[i].push_back(Seconds(works[i], times[i]));
    std::vector<double> medians;
    for (auto& measured : all) {
        std::nth_element(measured.begin(), measured.begin() + kRounds / 2, measured.end());
        medians.push_back(measured[kRounds / 2]);
    }
    return medians;
}

std::string ImageData(const std::string& file) {
    std::string data;
    for (size_t at = 8; at + 12 <= file.size();) {
        const auto length = size_t(png::SwapLong(reinterpret_cast<const uint8_t*>(&file[at])));
        if (file.compare(at + 4, 4, "IDAT") == 0)
            data += file.substr(at + 8, length);
        at += length + 12;
    }
    return data;
}

size_t InflatedSize(const std::string& data) {
    z_stream stream{};
    inflateInit(&stream);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.data()));
    stream.avail_in = uInt(data.size());
    std::vector<uint8_t> piece(1 << 16);
    do {
        stream.next_out = piece.data();
        stream.avail_out = uInt(piece.size());
    } while (inflate(&stream, Z_NO_FLUSH) == Z_OK);
    const size_t size = stream.total_out;
    inflateEnd(&stream);
    return size;
}

void Check(bool done, const char* who) {
    if (!done) {
        std::printf("%s failed\n", who);
        std::exit(1);
    }
}

std::vector<Work> InflateWorks(const std::string& data, size_t size) {
    const auto* packed = reinterpret_cast<const uint8_t*>(data.data());
    const auto ours = [=, length = data.size()] {
        png::Inflater inflater;
        png::Bytes bytes(std::span(packed + 2, length - 2));
        auto expected = int32_t(size);
        int32_t result = 0;
        inflater.Inflate(bytes, expected, false, result);
        Check(result == 0 && bytes.size() == size, "Inflate");
    };
    const auto zlib = [=, length = data.size()] {
        const Buffer out = Unset(size);
        uLongf written = size;
        Check(uncompress(out.get(), &written, packed, length) == Z_OK, "zlib");
    };
    const auto libdeflate = [=, length = data.size()] {
        const Buffer out = Unset(size);
        auto* self = libdeflate_alloc_decompressor();
        Check(libdeflate_zlib_decompress(self, packed, length, out.get(), size, nullptr) ==
                  LIBDEFLATE_SUCCESS,
              "libdeflate");
        libdeflate_free_decompressor(self);
    };
    return {ours, zlib, libdeflate};
}

void ByLibpng(const std::string& name) {
    std::FILE* file = std::fopen(name.c_str(), "rb");
    png_structp reader = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(reader);
    png_init_io(reader, file);
    png_read_info(reader, info);
    png_set_expand(reader);
    png_set_strip_16(reader);
    png_set_gray_to_rgb(reader);
    png_set_add_alpha(reader, 255, PNG_FILLER_AFTER);
    png_set_interlace_handling(reader);
    png_read_update_info(reader, info);
    const size_t stride = png_get_rowbytes(reader, info);
    const size_t height = png_get_image_height(reader, info);
    const Buffer pixels = Unset(stride * height);
    std::vector<png_bytep> rows;
    for (size_t y = 0; y < height; ++y)
        rows.push_back(pixels.get() + y * stride);
    png_read_image(reader, rows.data());
    png_read_end(reader, nullptr);
    png_destroy_read_struct(&reader, &info, nullptr);
    std::fclose(file);
}

void ByLibspng(const std::string& name) {
    std::FILE* file = std::fopen(name.c_str(), "rb");
    spng_ctx* context = spng_ctx_new(0);
    spng_set_png_file(context, file);
    size_t size = 0;
    spng_decoded_image_size(context, SPNG_FMT_RGBA8, &size);
    const Buffer pixels = Unset(size);
    Check(spng_decode_image(context, pixels.get(), size, SPNG_FMT_RGBA8, 0) == 0, "libspng");
    spng_ctx_free(context);
    std::fclose(file);
}

// What a fresh process prints: the KiB by which OpenPNG raises the most memory that it has used.
int PrintPeak(const char* path) {
    rusage before{};
    rusage after{};
    getrusage(RUSAGE_SELF, &before);
    png::LoadPNG().OpenPNG(path);
    getrusage(RUSAGE_SELF, &after);
    std::printf("%ld\n", after.ru_maxrss - before.ru_maxrss);
    return 0;
}

double PeakBytes(const char* program, int file) {
    const std::string command =
        std::string(program) + " /proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(file);
    std::FILE* child = popen(command.c_str(), "r");
    double kib = 0;
    Check(child != nullptr && std::fscanf(child, "%lf", &kib) == 1, "child");
    pclose(child);
    return kib * 1024;
}

// Bytes of the rows of the bitmap that OpenPNG makes.
double BitmapBytes(const png::LoadPNG& picture) {
    const int channels = picture.ColorType() == 2 ? 3 : picture.HaveAlpha() ? 4 : 1;
    const int bits = channels * std::min(8, picture.Bitdepht());
    return double(png::RowStride(size_t(picture.Width()), size_t(bits))) * picture.Height();
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 2)
        return PrintPeak(argv[1]);
    double inflate[2] = {};
    double open[2] = {};
    double leastInflate = 1e9;
    double leastOpen = 1e9;
    const std::vector<bench::PngFile> set = bench::MakePngSet();
    std::printf("%-34s %26s %26s %10s\n", "", "Inflate, as fast as", "OpenPNG, as fast as", "peak");
    std::printf("%-34s %8s %7s %9s %8s %7s %9s %10s\n", "times", "MB/s", "zlib", "libdefl.", "ms",
                "libpng", "libspng", "of pixels");
    for (const auto& [name, bytes] : set) {
        const std::string data = ImageData(bytes);
        const size_t size = InflatedSize(data);
        const std::vector<double> inflating = ByTurns(InflateWorks(data, size));
        const int file = memfd_create("picture", 0);
        Check(write(file, bytes.data(), bytes.size()) == ssize_t(bytes.size()), "memfd");
        const std::string path = "/proc/self/fd/" + std::to_string(file);
        png::LoadPNG picture;
        const Work ours = [&] { picture.OpenPNG(path); };
        const std::vector<double> opening =
            ByTurns({ours, [&] { ByLibpng(path); }, [&] { ByLibspng(path); }});
        const double peak = PeakBytes(argv[0], file) - double(bytes.size());
        std::printf("%-34s %8.0f %7.2f %9.2f %8.2f %7.2f %9.2f %10.2f\n", name.c_str(),
                    double(size) / inflating[0] / 1e6, inflating[1] / inflating[0],
                    inflating[2] / inflating[0], opening[0] * 1e3, opening[1] / opening[0],
                    opening[2] / opening[0], peak / BitmapBytes(picture));
        close(file);
        for (size_t other = 0; other < 2; ++other) {
            inflate[other] += std::log(inflating[other + 1] / inflating[0]) / double(set.size());
            open[other] += std::log(opening[other + 1] / opening[0]) / double(set.size());
        }
        leastInflate = std::min(leastInflate, inflating[1] / inflating[0]);
        leastOpen = std::min(leastOpen, opening[1] / opening[0]);
    }
    std::printf("%-34s %8s %7.2f %9.2f %8s %7.2f %9.2f\n", "geometric mean", "",
                std::exp(inflate[0]), std::exp(inflate[1]), "", std::exp(open[0]),
                std::exp(open[1]));
    std::printf("%-34s %8s %7.2f %9s %8s %7.2f\n", "least", "", leastInflate, "", "", leastOpen);
}
