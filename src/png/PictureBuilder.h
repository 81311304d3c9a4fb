// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/Fields.h"
#include "png/format/Bytes.h"
#include "png/inflate/Inflate.h"

#include <cstdint>

namespace png {

/// Makes one picture of the image data that a file held and paints it into the box of the fields,
/// as their settings say.
class PictureBuilder {
public:
    /// Both must outlive the builder. It takes the image data over and sets HaveAlpha, WorkDepth
    /// and, for transparent greys, their palette and table of alphas.
    PictureBuilder(Fields& fields, Inflater& inflater) : m_fields(fields), m_inflater(inflater) {}

    /// From the stream to the picture in the box. Damaged data and samples that no PNG file has
    /// paint nothing. Throws std::bad_alloc and what the box throws.
    void BuildPicture();

private:
    bool IsKeyed() const;
    bool HoldsRows() const;
    void Unpack(int64_t stored);
    void Reconstruct();
    void Convert();
    void ConvertGrey();
    void ConvertTrueColor();
    void ConvertIndexed();
    void ConvertAlpha();
    void ApplyTransparence();
    void MakeGreyKey();
    void TurnRgba();
    void Blend();
    void Paint();

    Fields& m_fields;
    Inflater& m_inflater;
    Bytes Data;
    int32_t RowBits = 0; ///< of a pixel as the rows of Data hold it now
    /// Of a pixel of the bitmap that they become. Samples that no PNG file has keep the file's
    /// depth and become no bitmap unless it happens to be that of one.
    int32_t OutBits = 0;
    bool TopDown = true;
};

} // namespace png
