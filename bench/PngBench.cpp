// SPDX-License-Identifier: GPL-3.0-or-later
// Inflate against zlib and libdeflate, and OpenPNG against libpng and libspng, from a file to the
// filled bitmap. Each is measured twice: against what its users get by default (checksums verified,
// 8-bit RGBA), and against the same work (no checksum, the bitmap's own format), as ours verifies
// nothing and keeps palettes and greys. Then the most memory that OpenPNG takes. All run by turns;
// medians count.
#include "PngSet.h"
#include "png/LoadPNG.h"
#include "png/inflate/Inflate.h"
#include "png/rows/Deinterlace.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <libdeflate.h>
#include <malloc.h>
#include <memory>
#include <numeric>
#include <png.h>
#include <spng.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>
#include <zlib.h>

namespace {

using Buffer = std::unique_ptr<uint8_t, decltype(&std::free)>;

// What is timed, and what has to happen before each time but isn't.
struct Work {
    std::function<void()> run;
    std::function<void()> prepare = [] {};
};

constexpr int kRounds = 9;
constexpr double kRoundSeconds = 0.02;

Buffer Unset(size_t size) {
    return {static_cast<uint8_t*>(std::malloc(size)), &std::free};
}

double Seconds(const Work& work, int times) {
    std::chrono::duration<double> total{};
    for (int i = 0; i < times; ++i) {
        work.prepare();
        const auto start = std::chrono::steady_clock::now();
        work.run();
        total += std::chrono::steady_clock::now() - start;
    }
    return total.count() / times;
}

// The median time of each.
std::vector<double> ByTurns(const std::vector<Work>& works) {
    std::vector<int> times;
    times.reserve(works.size());
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

void Check(bool done, const char* who) {
    if (!done) {
        std::printf("%s failed\n", who);
        std::exit(1);
    }
}

// The whole stream in one call; `windowBits` says whether it is a zlib stream or a raw one.
bool ByZlib(std::span<const uint8_t> packed, int windowBits, uint8_t* out, size_t size) {
    z_stream stream{};
    inflateInit2(&stream, windowBits);
    stream.next_in = const_cast<Bytef*>(packed.data());
    stream.avail_in = uInt(packed.size());
    stream.next_out = out;
    stream.avail_out = uInt(size);
    const bool whole = inflate(&stream, Z_FINISH) == Z_STREAM_END;
    inflateEnd(&stream);
    return whole;
}

std::vector<Work> InflateWorks(std::span<const uint8_t> packed, size_t size, png::Bytes& bytes) {
    const std::span<const uint8_t> raw = packed.subspan(2);
    const auto ours = [=, &bytes] {
        png::Inflater inflater;
        auto expected = int32_t(size);
        int32_t result = 0;
        inflater.Inflate(bytes, expected, false, result);
        Check(result == 0 && bytes.size() == size, "Inflate");
    };
    const auto zlib = [=] {
        const Buffer out = Unset(size);
        Check(ByZlib(packed, 15, out.get(), size), "zlib");
    };
    const auto rawZlib = [=] {
        const Buffer out = Unset(size);
        Check(ByZlib(raw, -15, out.get(), size), "zlib");
    };
    const auto libdeflate = [=] {
        const Buffer out = Unset(size);
        auto* self = libdeflate_alloc_decompressor();
        Check(libdeflate_deflate_decompress(self, raw.data(), raw.size(), out.get(), size,
                                            nullptr) == LIBDEFLATE_SUCCESS,
              "libdeflate");
        libdeflate_free_decompressor(self);
    };
    return {{ours, [=, &bytes] { bytes = png::Bytes(raw); }}, {zlib}, {rawZlib}, {libdeflate}};
}

enum class Effort { Default, SameAsOurs };

void ByLibpng(const std::string& name, Effort effort) {
    std::FILE* file = std::fopen(name.c_str(), "rb");
    png_structp reader = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(reader);
    png_init_io(reader, file);
    if (effort == Effort::SameAsOurs) {
        png_set_crc_action(reader, PNG_CRC_QUIET_USE, PNG_CRC_QUIET_USE);
        png_set_option(reader, PNG_IGNORE_ADLER32, PNG_OPTION_ON);
        png_set_bgr(reader);
    }
    png_read_info(reader, info);
    png_set_strip_16(reader);
    if (effort == Effort::Default) {
        png_set_expand(reader);
        png_set_gray_to_rgb(reader);
        png_set_add_alpha(reader, 255, PNG_FILLER_AFTER);
    }
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
    spng_ctx* context = spng_ctx_new(SPNG_CTX_IGNORE_ADLER32);
    spng_set_png_file(context, file);
    spng_set_crc_action(context, SPNG_CRC_USE, SPNG_CRC_USE);
    spng_ihdr header{};
    spng_get_ihdr(context, &header);
    const int format = header.bit_depth == 16 ? SPNG_FMT_RGB8 : SPNG_FMT_RAW;
    size_t size = 0;
    spng_decoded_image_size(context, format, &size);
    const Buffer pixels = Unset(size);
    Check(spng_decode_image(context, pixels.get(), size, format, 0) == 0, "libspng");
    spng_ctx_free(context);
    std::fclose(file);
}

// What a fresh process prints: the KiB by which OpenPNG raises the most memory that it has used.
int PrintPeak(const char* path) {
    rusage before{};
    rusage after{};
    getrusage(RUSAGE_SELF, &before);
    png::LoadPNG picture;
    picture.OpenPNG(path);
    Check(picture.ErrorNumber() == 0, "OpenPNG");
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

// What the image data of the file inflates to.
size_t StreamBytes(const png::LoadPNG& picture) {
    png::Header header;
    header.Width = picture.Width();
    header.Height = picture.Height();
    header.Bitdepht = picture.Bitdepht();
    header.ColorType = picture.ColorType();
    header.Interlacing = picture.Interlacing();
    return size_t(header.Interlacing == 1 ? png::InterlacedBytes(header)
                                          : header.Height * header.LineBytes());
}

// Bytes of the rows of the bitmap that OpenPNG makes.
double BitmapBytes(const png::LoadPNG& picture) {
    const int channels = picture.ColorType() == 2 ? 3 : picture.HaveAlpha() ? 4 : 1;
    const int bits = channels * std::min(8, picture.Bitdepht());
    return double(png::RowStride(size_t(picture.Width()), size_t(bits))) * picture.Height();
}

// Prints the ratios of all pictures to ours, and remembers them for the mean and the least.
class Ratios {
public:
    void Print(const std::vector<double>& times) {
        m_logs.resize(times.size() - 1);
        for (size_t i = 1; i < times.size(); ++i) {
            std::printf(" %8.2f", times[i] / times[0]);
            m_logs[i - 1].push_back(std::log(times[i] / times[0]));
        }
    }
    void PrintMeans() const {
        for (const auto& logs : m_logs)
            std::printf(" %8.2f", std::exp(std::accumulate(logs.begin(), logs.end(), 0.0) /
                                           double(logs.size())));
    }
    void PrintLeast() const {
        for (const auto& logs : m_logs)
            std::printf(" %8.2f", std::exp(*std::min_element(logs.begin(), logs.end())));
    }

private:
    std::vector<std::vector<double>> m_logs;
};

} // namespace

int main(int argc, char** argv) {
    if (argc == 2)
        return PrintPeak(argv[1]);
    // Memory stays with the process, as else the system's clearing of pages would hide the work.
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    constexpr const char* kLabel = "%-33s";
    Ratios inflate;
    Ratios open;
    std::printf(kLabel, "times as fast as");
    std::printf("%8s %8s %8s %8s %8s %8s %8s %8s %8s\n", "Inflate", "zlib", "zlib", "libdefl.",
                "OpenPNG", "libpng", "libpng", "libspng", "peak");
    std::printf(kLabel, "");
    std::printf("%8s %8s %8s %8s %8s %8s %8s %8s %8s\n", "MB/s", "checked", "raw", "raw", "ms",
                "RGBA", "same", "same", "- file");
    for (const auto& [name, bytes] : bench::MakePngSet()) {
        const std::string data = ImageData(bytes);
        const int file = memfd_create("picture", 0);
        Check(write(file, bytes.data(), bytes.size()) == ssize_t(bytes.size()), "memfd");
        const std::string path = "/proc/self/fd/" + std::to_string(file);
        png::LoadPNG picture;
        const Work ours = {[&] { picture.OpenPNG(path); }};
        const std::vector<double> opening = ByTurns({ours,
                                                     {[&] { ByLibpng(path, Effort::Default); }},
                                                     {[&] { ByLibpng(path, Effort::SameAsOurs); }},
                                                     {[&] { ByLibspng(path); }}});
        Check(picture.ErrorNumber() == 0, "OpenPNG");
        const size_t size = StreamBytes(picture);
        png::Bytes buffer;
        const std::vector<double> inflating = ByTurns(InflateWorks(
            {reinterpret_cast<const uint8_t*>(data.data()), data.size()}, size, buffer));
        const double peak = PeakBytes(argv[0], file) - double(bytes.size());
        close(file);
        std::printf(kLabel, name.c_str());
        std::printf("%8.0f", double(size) / inflating[0] / 1e6);
        inflate.Print(inflating);
        std::printf(" %8.2f", opening[0] * 1e3);
        open.Print(opening);
        std::printf(" %8.2f\n", peak / BitmapBytes(picture));
    }
    std::printf(kLabel, "geometric mean");
    std::printf("%8s", "");
    inflate.PrintMeans();
    std::printf(" %8s", "");
    open.PrintMeans();
    std::puts("");
    std::printf(kLabel, "least");
    std::printf("%8s", "");
    inflate.PrintLeast();
    std::printf(" %8s", "");
    open.PrintLeast();
    std::puts("");
}
