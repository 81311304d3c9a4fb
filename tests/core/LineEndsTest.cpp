// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/LineEnds.h"

#include <gtest/gtest.h>
#include <string>

TEST(LineEndsTest, TheOneThatTheStartUsesMostCountsAndCrLfInATie) {
    using enum core::LineEnd;
    constexpr size_t kSample = 1 << 16; // bytes, all that is looked at
    const std::pair<std::string, core::LineEnd> texts[] = {
        {"", CrLf},
        {"a\nb\r", Lf}, // of the two others, the more common one
        {"\n\r\r", Cr},
        {"a\r\nb\n", CrLf}, // as many, and none of CR LF is counted twice
        {"a\r\nb\r", CrLf},
        {std::string(kSample, 'x') + '\n', CrLf},
        {std::string(kSample - 1, 'x') + '\n' + "\r\r", Lf},
    };
    for (const auto& [text, end] : texts)
        EXPECT_EQ(core::MainLineEnd(text), end) << testing::PrintToString(text.substr(0, 9));
}
