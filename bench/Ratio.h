// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <benchmark/benchmark.h>

namespace bench {

/// Runs all benchmarks registered and prints, for each "ours/X", its time over that of "theirs/X".
int RunAndCompare(int argc, char** argv);

} // namespace bench
