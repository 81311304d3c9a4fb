// SPDX-License-Identifier: GPL-3.0-or-later
#include "Ratio.h"

#include <cstdio>
#include <map>
#include <string>

namespace bench {
namespace {

class Reporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const std::string& name = run.run_name.function_name;
            if (run.aggregate_name == "median" || run.repetitions <= 1)
                m_times[name] = run.GetAdjustedRealTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }

    void PrintRatios() const {
        std::puts("");
        for (const auto& [name, time] : m_times) {
            if (name.rfind("ours/", 0) != 0)
                continue;
            const auto theirs = m_times.find("theirs/" + name.substr(5));
            if (theirs != m_times.end())
                std::printf("ratio %-30s %.2f\n", name.substr(5).c_str(), time / theirs->second);
        }
    }

private:
    std::map<std::string, double> m_times;
};

} // namespace

int RunAndCompare(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    Reporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatios();
    return 0;
}

} // namespace bench
