// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <benchmark/benchmark.h>

namespace bench {

/// Has the benchmark run nine times, so that a median can be told, in milliseconds.
inline benchmark::internal::Benchmark* NineTimes(benchmark::internal::Benchmark* benchmark) {
    return benchmark->Unit(::benchmark::kMillisecond)->Repetitions(9)->ReportAggregatesOnly();
}

/// Runs all benchmarks registered and prints, for each "ours/X", its time over that of "theirs/X".
int RunAndCompare(int argc, char** argv);

} // namespace bench
