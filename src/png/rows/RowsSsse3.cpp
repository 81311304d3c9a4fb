// SPDX-License-Identifier: GPL-3.0-or-later
#include "png/rows/RowsSsse3.h"

// The pixels go through registers of 64 bits, which the 32-bit kind of these machines lacks.
#if defined(__SSSE3__) && defined(__x86_64__)
#include <cstring>
#include <tmmintrin.h>

namespace png {
namespace {

// How much is read for a pixel of that many bytes.
template<size_t bytes>
constexpr size_t kWidth = bytes <= 4 ? 4 : 8;

// A pixel in the low end of a register. Behind a short one stands what follows it in memory, which
// does no harm: every byte of a register is for itself.
template<size_t bytes, size_t width = kWidth<bytes>>
__m128i Load(const uint8_t* from) {
    uint64_t pixel = 0;
    std::memcpy(&pixel, from, width);
    return _mm_cvtsi64_si128(static_cast<long long>(pixel));
}

template<size_t bytes>
void Store(uint8_t* to, __m128i value) {
    const auto pixel = static_cast<uint64_t>(_mm_cvtsi128_si64(value));
    constexpr size_t kFirst = bytes == 3 ? 2 : bytes == 6 ? 4 : bytes;
    std::memcpy(to, &pixel, kFirst);
    if constexpr (kFirst < bytes) {
        const uint64_t rest = pixel >> (8 * kFirst);
        std::memcpy(to + kFirst, &rest, bytes - kFirst);
    }
}

// Goes from pixel to pixel, all samples of one at once: `undo` makes the pixel of the stored one
// and the one above.
template<size_t bytes, class Undo>
void EachPixel(Row row, const uint8_t* above, Undo undo) {
    uint8_t* at = row.data();
    const uint8_t* const end = at + row.size();
    const uint8_t* const wide = end - (row.size() < kWidth<bytes> ? row.size() : kWidth<bytes> - 1);
    for (; at < wide; at += bytes, above += bytes)
        Store<bytes>(at, undo(Load<bytes>(at), Load<bytes>(above)));
    for (; at < end; at += bytes, above += bytes)
        Store<bytes>(at, undo(Load<bytes, bytes>(at), Load<bytes, bytes>(above)));
}

template<size_t bytes>
void Sub(Row row) {
    __m128i left = _mm_setzero_si128();
    EachPixel<bytes>(row, row.data(), [&](__m128i stored, __m128i) {
        left = _mm_add_epi8(left, stored);
        return left;
    });
}

template<size_t bytes>
void Average(Row row, PreviousRow previous) {
    const __m128i ones = _mm_set1_epi8(1);
    __m128i left = _mm_setzero_si128();
    EachPixel<bytes>(row, previous.data(), [&](__m128i stored, __m128i up) {
        // The instruction rounds up; the last bit of the sum says where that was one too many.
        const __m128i odd = _mm_and_si128(_mm_xor_si128(left, up), ones);
        left = _mm_add_epi8(stored, _mm_sub_epi8(_mm_avg_epu8(left, up), odd));
        return left;
    });
}

__m128i Choose(__m128i mask, __m128i yes, __m128i no) {
    return _mm_or_si128(_mm_and_si128(mask, yes), _mm_andnot_si128(mask, no));
}

template<size_t bytes>
void Paeth(Row row, PreviousRow previous) {
    const __m128i zero = _mm_setzero_si128();
    __m128i left = zero; // samples of 16 bits, as is upperLeft
    __m128i upperLeft = zero;
    EachPixel<bytes>(row, previous.data(), [&](__m128i stored, __m128i above) {
        const __m128i up = _mm_unpacklo_epi8(above, zero);
        const __m128i byLeft = _mm_sub_epi16(up, upperLeft);
        const __m128i byUp = _mm_sub_epi16(left, upperLeft);
        const __m128i toLeft = _mm_abs_epi16(byLeft);
        const __m128i toUp = _mm_abs_epi16(byUp);
        const __m128i toUpperLeft = _mm_abs_epi16(_mm_add_epi16(byLeft, byUp));
        const __m128i least = _mm_min_epi16(toUpperLeft, _mm_min_epi16(toLeft, toUp));
        const __m128i nearest = Choose(_mm_cmpeq_epi16(least, toLeft), left,
                                       Choose(_mm_cmpeq_epi16(least, toUp), up, upperLeft));
        const __m128i pixel = _mm_add_epi8(stored, _mm_packus_epi16(nearest, nearest));
        left = _mm_unpacklo_epi8(pixel, zero);
        upperLeft = up;
        return pixel;
    });
}

template<size_t bytes>
bool Unfilter(FilterType type, Row row, PreviousRow previous) {
    switch (type) {
    case FilterType::Sub:
        Sub<bytes>(row);
        return true;
    case FilterType::Average:
        Average<bytes>(row, previous);
        return true;
    case FilterType::Paeth:
        Paeth<bytes>(row, previous);
        return true;
    default:
        return false;
    }
}

} // namespace

bool UnfilterRowSsse3(FilterType type, Row row, PreviousRow previous, size_t distance) {
    if (row.size() % distance != 0)
        return false;
    switch (distance) {
    case 1:
        return Unfilter<1>(type, row, previous);
    case 2:
        return Unfilter<2>(type, row, previous);
    case 3:
        return Unfilter<3>(type, row, previous);
    case 4:
        return Unfilter<4>(type, row, previous);
    case 6:
        return Unfilter<6>(type, row, previous);
    case 8:
        return Unfilter<8>(type, row, previous);
    default:
        return false;
    }
}

namespace {

constexpr size_t kFive = 15; // bytes of the pixels that a register has room for
constexpr size_t kGroup = 4 * kFive;

// Five pixels of a register; its last byte stays.
void SwapGroups(uint8_t* pixel, size_t groups) {
    const __m128i order = _mm_setr_epi8(2, 1, 0, 5, 4, 3, 8, 7, 6, 11, 10, 9, 14, 13, 12, 15);
    for (; groups > 0; --groups, pixel += kGroup) {
        __m128i four[4];
        // All are read before one is written: a reading that meets a writing half way waits for it.
        for (size_t i = 0; i < 4; ++i)
            four[i] = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixel + i * kFive));
        for (size_t i = 0; i < 4; ++i)
            _mm_storeu_si128(reinterpret_cast<__m128i*>(pixel + i * kFive),
                             _mm_shuffle_epi8(four[i], order));
    }
}

} // namespace

size_t SwapRedBlue24Ssse3(std::span<uint8_t> pixels) {
    if (pixels.empty())
        return 0;
    // A byte behind the last one is written, too.
    const size_t groups = (pixels.size() - 1) / kGroup;
    SwapGroups(pixels.data(), groups);
    return groups * kGroup;
}

} // namespace png

#else

bool png::UnfilterRowSsse3(FilterType, Row, PreviousRow, size_t) {
    return false;
}

size_t png::SwapRedBlue24Ssse3(std::span<uint8_t>) {
    return 0;
}

#endif
