// SPDX-License-Identifier: GPL-3.0-or-later
// What the editor does by itself while one writes: the check of a script against Lua's parser
// alone, and the list of what may be written, from its key to its window.
#include "Ratio.h"
#include "documents/editor/CodeMax.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/lua/ScriptCheck.h"

#include <QApplication>
#include <QTest>
#include <lua.hpp>
#include <string>

namespace {

constexpr std::string_view kFunction = "local function mover_%(x, y)\r\n"
                                       "  if x > 10 then -- a comment\r\n"
                                       "    screen:blit(x, y, imagen)\r\n"
                                       "  end\r\n"
                                       "end\r\n"
                                       "do local otro = \"texto\" .. 12 end\r\n";

std::string Script(size_t bytes) {
    std::string script;
    for (int number = 0; script.size() < bytes; ++number) {
        std::string one(kFunction);
        script += "do " + one.replace(one.find('%'), 1, std::to_string(number)) + "end\r\n";
    }
    return script;
}

void Parser(benchmark::State& state) {
    const std::string script = Script(static_cast<size_t>(state.range(0)) << 10);
    for (auto _ : state) {
        lua_State* lua = luaL_newstate();
        if (luaL_loadbuffer(lua, script.data(), script.size(), "=") != 0)
            state.SkipWithError("not read");
        lua_close(lua);
    }
}

void Check(benchmark::State& state) {
    const std::string script = Script(static_cast<size_t>(state.range(0)) << 10);
    for (auto _ : state) {
        if (documents::Check(script))
            state.SkipWithError("a fault");
    }
}

void List(benchmark::State& state) {
    documents::CodeMax control;
    control.resize(525, 640);
    control.Text(QString::fromStdString(Script(static_cast<size_t>(state.range(0)) << 10) + "mo"));
    control.show();
    control.activateWindow();
    auto* editor = control.findChild<documents::ScriptEditor*>();
    editor->GoTo(editor->Length());
    QTest::qWait(1000);
    for (auto _ : state) {
        QTest::keyClick(editor, Qt::Key_Space, Qt::ControlModifier);
        if (!editor->isListActive())
            state.SkipWithError("no list");
        state.PauseTiming();
        QTest::keyClick(editor, Qt::Key_Escape);
        state.ResumeTiming();
    }
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    bench::NineTimes(benchmark::RegisterBenchmark("theirs/check_KB", Parser)->Arg(300));
    bench::NineTimes(benchmark::RegisterBenchmark("ours/check_KB", Check)->Arg(300));
    bench::NineTimes(benchmark::RegisterBenchmark("list_KB", List)->Arg(100)->Arg(5000));
    return bench::RunAndCompare(argc, argv);
}
