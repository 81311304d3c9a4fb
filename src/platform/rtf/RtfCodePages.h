// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringDecoder>
#include <map>

namespace platform {

inline constexpr int kRtfWestern = 1252;

/// The code page that a font's \fcharset stands for; `fallback` if it stands for none.
int CodePageOfCharset(int charset, int fallback);

/// Turns bytes into text by the number of their code page. An unknown number counts as 1252.
class RtfCodePages {
public:
    QString Decode(QByteArrayView bytes, int codePage);

private:
    std::map<int, QStringDecoder> m_decoders; ///< of the pages used so far that are known
};

} // namespace platform
