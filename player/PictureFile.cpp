// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PictureFile.h"

#include "player/Color.h"
#include "player/ScriptError.h"

#include <SDL.h>
#include <SDL_image.h>
#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

namespace player {
namespace {

constexpr size_t kMostPiece = size_t{kMostSide + 16} * kMostSide * sizeof(Pixel);
constexpr int kJpegQuality = 92;

struct FreeSurface {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using Surface = std::unique_ptr<SDL_Surface, FreeSurface>;

struct CloseStream {
    void operator()(SDL_RWops* stream) const { SDL_RWclose(stream); }
};
using Stream = std::unique_ptr<SDL_RWops, CloseStream>;

void* Allocate(size_t size) {
    return size > kMostPiece ? nullptr : std::malloc(size);
}

void* AllocateClear(size_t count, size_t size) {
    const size_t each = std::max(size, size_t{1});
    return count > kMostPiece / each ? nullptr : std::calloc(std::max(count, size_t{1}), each);
}

void* Reallocate(void* block, size_t size) {
    return size > kMostPiece ? nullptr : std::realloc(block, size);
}

// The big-endian number of two bytes; 0 behind the end.
unsigned Side(const std::string& bytes, size_t place) {
    if (place + 2 > bytes.size())
        return 0;
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(bytes[i]); };
    return byte(place) * 256U + byte(place + 1);
}

// JpegSide and PngSide give the larger side that the header tells, before anything is unpacked; 0
// if it isn't found. BMP and GIF are unpacked into one piece of memory, which LimitPieces limits.
unsigned JpegSide(const std::string& bytes) {
    for (size_t i = 2; i + 9 < bytes.size();) {
        if (bytes[i] != '\xFF') {
            ++i;
            continue;
        }
        const auto kind = static_cast<unsigned char>(bytes[i + 1]);
        const bool frame =
            kind >= 0xC0 && kind <= 0xCF && kind != 0xC4 && kind != 0xC8 && kind != 0xCC;
        if (frame)
            return std::max(Side(bytes, i + 5), Side(bytes, i + 7));
        const bool alone = kind == 0xFF || kind <= 1 || (kind >= 0xD0 && kind <= 0xD8);
        i += alone ? 1 : 2 + size_t{Side(bytes, i + 2)};
    }
    return 0;
}

unsigned PngSide(const std::string& bytes) {
    const bool huge = Side(bytes, 16) != 0 || Side(bytes, 20) != 0;
    return huge ? kMostSide + 1 : std::max(Side(bytes, 18), Side(bytes, 22));
}

Surface Unpack(const std::string& bytes) {
    const Stream stream(SDL_RWFromConstMem(bytes.data(), static_cast<int>(bytes.size())));
    if (!stream)
        throw ScriptError("la imagen está vacía");
    const bool png = IMG_isPNG(stream.get());
    const bool jpeg = IMG_isJPG(stream.get());
    if (!png && !jpeg && !IMG_isBMP(stream.get()) && !IMG_isGIF(stream.get()))
        throw ScriptError("no es una imagen PNG, JPEG, BMP o GIF");
    if ((png && PngSide(bytes) > kMostSide) || (jpeg && JpegSide(bytes) - 1 >= kMostSide))
        throw ScriptError("la imagen es demasiado grande");
    Surface raw(IMG_Load_RW(stream.get(), 0));
    Surface surface(raw ? SDL_ConvertSurfaceFormat(raw.get(), SDL_PIXELFORMAT_ARGB8888, 0)
                        : nullptr);
    if (!surface)
        throw ScriptError(std::string("la imagen está dañada: ") + SDL_GetError());
    if (surface->w > kMostSide || surface->h > kMostSide)
        throw ScriptError("la imagen es demasiado grande");
    return surface;
}

bool EndsWith(std::string name, std::string_view ending) {
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return name.ends_with(ending);
}

} // namespace

void LimitPieces() {
    SDL_SetMemoryFunctions(&Allocate, &AllocateClear, &Reallocate, &std::free);
}

Picture ReadPicture(const std::string& bytes) {
    const Surface surface = Unpack(bytes);
    Picture picture(surface->w, surface->h);
    for (int y = 0; y < picture.height; ++y) {
        const auto width = static_cast<size_t>(picture.width);
        std::memcpy(picture.pixels.data() + static_cast<size_t>(y) * width,
                    static_cast<const char*>(surface->pixels) + ptrdiff_t{y} * surface->pitch,
                    width * sizeof(Pixel));
    }
    return picture;
}

std::string WritePicture(const Picture& picture, const std::string& name) {
    auto* const pixels = const_cast<Pixel*>(picture.pixels.data());
    const Surface surface(SDL_CreateRGBSurfaceWithFormatFrom(
        pixels, picture.width, picture.height, 32, picture.width * 4, SDL_PIXELFORMAT_ARGB8888));
    const size_t raw = picture.pixels.size() * sizeof(Pixel);
    std::string bytes(raw + raw / 16 + 65536, '\0'); // more than a packer needs at worst
    const Stream stream(SDL_RWFromMem(bytes.data(), static_cast<int>(bytes.size())));
    const bool jpeg = EndsWith(name, ".jpg") || EndsWith(name, ".jpeg");
    const int error = !surface ? -1
                      : jpeg   ? IMG_SaveJPG_RW(surface.get(), stream.get(), 0, kJpegQuality)
                               : IMG_SavePNG_RW(surface.get(), stream.get(), 0);
    if (error != 0)
        throw ScriptError(std::string("no se puede escribir la imagen: ") + SDL_GetError());
    bytes.resize(static_cast<size_t>(SDL_RWtell(stream.get())));
    return bytes;
}

} // namespace player
