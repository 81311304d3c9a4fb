// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/rtf/RtfCodePages.h"

#include "platform/text/CodePage.h"

#include <algorithm>
#include <iterator>

namespace platform {
namespace {

constexpr int kSymbols = 42; // fonts of signs, without letters

constexpr struct {
    int charset;
    int codePage;
} kCharsets[] = {
    {0, 1252},   {2, kSymbols}, {77, 10000}, {128, 932},  {129, 949},  {134, 936},
    {136, 950},  {161, 1253},   {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256},
    {186, 1257}, {204, 1251},   {222, 874},  {238, 1250}, {254, 437},  {255, 850},
};

constexpr struct {
    int codePage;
    const char* name;
} kNames[] = {
    {437, "IBM437"},        {850, "IBM850"},        {866, "IBM866"},        {874, "windows-874"},
    {932, "Shift_JIS"},     {936, "GBK"},           {949, "windows-949"},   {950, "Big5"},
    {1250, "windows-1250"}, {1251, "windows-1251"}, {1253, "windows-1253"}, {1254, "windows-1254"},
    {1255, "windows-1255"}, {1256, "windows-1256"}, {1257, "windows-1257"}, {1258, "windows-1258"},
    {10000, "macintosh"},   {65001, "UTF-8"},
};

} // namespace

int CodePageOfCharset(int charset, int fallback) {
    const auto* entry = std::find_if(std::begin(kCharsets), std::end(kCharsets),
                                     [&](const auto& e) { return e.charset == charset; });
    return entry == std::end(kCharsets) ? fallback : entry->codePage;
}

QString RtfCodePages::Decode(QByteArrayView bytes, int codePage) {
    if (codePage == kSymbols) // only the bullet is known, which lists use
        return QString::fromLatin1(bytes).replace(u'\u00B7', u'\u2022');
    const auto* entry = std::find_if(std::begin(kNames), std::end(kNames),
                                     [&](const auto& e) { return e.codePage == codePage; });
    if (entry == std::end(kNames))
        return FromCodePage(bytes);
    QStringDecoder& decoder = m_decoders.try_emplace(codePage, entry->name).first->second;
    if (!decoder.isValid())
        return FromCodePage(bytes);
    decoder.resetState();
    return decoder.decode(bytes);
}

} // namespace platform
