// SPDX-License-Identifier: GPL-3.0-or-later
// What a message that nobody wants costs a watched window, by the number of messages that its owner
// wants in each phase. "alone" is the same message to a window that isn't watched.
#include "explorer/MensajesVentana.h"
#include "platform/forms/WindowMessages.h"

#include <QApplication>
#include <benchmark/benchmark.h>

namespace {

constexpr quint32 kUnwanted = 1024;

void Send(benchmark::State& state, platform::HWnd window) {
    for (auto _ : state)
        benchmark::DoNotOptimize(platform::SendMessage(window, kUnwanted));
}

void Alone(benchmark::State& state) {
    QWidget widget;
    Send(state, platform::HandleOf(&widget));
}

void Watched(benchmark::State& state) {
    QWidget widget;
    const platform::HWnd window = platform::HandleOf(&widget);
    explorer::MensajesVentana layer(QStringLiteral("MessageBench"));
    int calls = 0;
    layer.Propias().Poner(1, [&](explorer::Aviso&) { ++calls; });
    layer.ssc_Subclass(window);
    for (int i = 1; i <= state.range(0); ++i)
        layer.ssc_WatchMsg(window, static_cast<qint32>(kUnwanted) + i, explorer::MSG_BEFORE_AFTER);
    Send(state, window);
    if (calls != 0)
        state.SkipWithError("the owner was called");
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RegisterBenchmark("alone", Alone);
    benchmark::RegisterBenchmark("slots", Watched)->Arg(0)->Arg(1)->Arg(explorer::MSG_ENTRIES);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
