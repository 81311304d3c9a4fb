// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "png/Fields.h"
#include "png/draw/PictureBox.h"
#include "png/format/Bytes.h"
#include "png/format/ChunkReader.h"
#include "png/inflate/Inflate.h"

#include <cstdint>
#include <string>
#include <utility>

namespace png {

/// Reads a PNG file (PNG 1.2) and paints it into a picture box. Set the box and what else is
/// wanted, then call OpenPNG; the properties are valid once it has returned. All settings stay for
/// the next file. Only one picture may be decoded at a time in a process.
class LoadPNG {
public:
    /// Reads, decodes and paints; always answers 0. What went wrong is in ErrorNumber, and nothing
    /// is painted then. `filename` is a path of this system. Without a PicBox nothing is painted.
    /// Throws only what the box throws.
    int32_t OpenPNG(const std::string& filename);

    int32_t Width() const { return m_fields.Width; }
    int32_t Height() const { return m_fields.Height; }
    int32_t Bitdepht() const { return m_fields.Bitdepht; }
    int32_t ColorType() const { return m_fields.ColorType; }
    int32_t Compression() const { return m_fields.Compression; }
    int32_t Filter() const { return m_fields.Filter; }
    int32_t Interlacing() const { return m_fields.Interlacing; }
    /// 0 nothing went wrong so far, 1 no PNG file, 3 file too short, 4 no image data. A value stays
    /// until another failure replaces it.
    int32_t ErrorNumber() const { return m_fields.ErrorNumber; }
    bool HaveAlpha() const { return m_fields.HaveAlpha; }
    bool HaveTransparence() const { return m_fields.HaveTransparence; }
    /// Applies the transparency of a picture without an alpha channel.
    void SetTrans(bool value) { m_fields.SetTrans = value; }
    /// Blends a picture that has an alpha channel; else the channel plays no part.
    void SetAlpha(bool value) { m_fields.SetAlpha = value; }
    bool HasBKGDChunk() const { return m_fields.HasBKGDChunk; }
    /// red + 256 x green + 65536 x blue
    int32_t BkgdColor() const { return m_fields.BkgdColor; }
    /// All texts of the files read so far: keyword, NUL, value, NUL for each, in the bytes of the
    /// files, which stand for the system's code page.
    const std::string& Text() const { return m_fields.Text; }
    const std::string& zText() const { return m_fields.zText; }
    /// The last modification as "dd.mm.yyyy hh:mm:ss"; empty if no file held one.
    const std::string& ModiTime() const { return m_fields.ModiTime; }
    /// 0 if no file held one.
    double gama() const;
    /// The box whose pixels lie under a transparent picture; null: a colour lies there.
    void BackgroundPicture(PictureBox* vNewValue) { m_fields.BackgroundPicture = vNewValue; }
    /// The colour for want of a box, as in BkgdColor; 0 stands for the one of the file.
    void SetOwnBkgndColor(bool OwnBkgndOn, int32_t BackColor = 0);
    void PicBox(PictureBox* NewPicBox) { m_fields.PicBox = NewPicBox; }
    /// X and Y, in pixels: where the background is taken from and where the picture goes. With
    /// SetToBG the target keeps its size.
    void SetToBkgrnd(bool SetToBG, int32_t X = 0, int32_t Y = 0);

    /// Shows the one message of the decoder; without it the message is lost.
    void MessageBox(MessageHook hook) { m_inflater.MessageBox(std::move(hook)); }

private:
    bool ReadChunks(const std::string& filename);
    bool ReadChunk(ChunkReader& reader);
    bool ReadImageData(ChunkReader& reader);
    // These may take the data over.
    void ReadHeaderChunk(Bytes& data);
    void ReadPaletteChunk(Bytes& data) { m_fields.PaletteData = std::move(data); }
    void ReadBkgdChunk(Bytes& data);
    void ReadGamaChunk(Bytes& data);
    void ReadTextChunk(Bytes& data);
    void ReadZtxtChunk(Bytes& data);
    void ReadTimeChunk(Bytes& data);
    void ReadTrnsChunk(Bytes& data);
    int32_t ColorOfBkgd() const;

    Fields m_fields;
    Inflater m_inflater;
};

} // namespace png
