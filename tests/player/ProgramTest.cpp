// SPDX-License-Identifier: GPL-3.0-or-later
#include "PictureFile.h"
#include "Script.h"

#include <sys/wait.h>

#include <thread>

namespace player {
namespace {

struct Ended {
    int code = 0;
    std::string errors;
};

// The built program, without a window.
class Program : public ScriptTest {
protected:
    Ended Start(const std::string& script, const std::string& options,
                const std::string& before = "") {
        Put(folder / "temp.lua", script);
        const std::string command = "cd " + folder.string() + " && " + before + " " LUAPLAYER " " +
                                    options + " temp.lua >salida 2>errores";
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Get(folder / "errores")};
    }
    // Asks the program to end while the script is busy; one that doesn't is killed at last.
    int EndOnceItRuns(const std::string& script) {
        Put(folder / "temp.lua", "print('ya'); " + script);
        const std::string command =
            "cd " + folder.string() +
            " && rm -f salida && { timeout --preserve-status -k 60 60 " LUAPLAYER
            " --screenshot foto.png temp.lua >salida & until [ -s salida ] || ! kill -0 $!; do "
            "sleep 0.02; done; "
            "kill $!; wait $!; }";
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    Picture Screenshot() { return ReadPicture(Get(folder / "foto.png")); }
};

constexpr const char* kDrawing = R"lua(
local im = Image.createEmpty(40, 30)
for _, far in ipairs{1e300, -1e300, 0/0, 2^31, -2^31, -1, 1048576} do
    screen:blit(far, far, im, far, far, far, far)
    im:fillRect(far, far, far, far)
    im:drawLine(far, -far, -far, far)
    im:blit(1, 1, im, far, 2, 5, far)
    im:print(far, far, "x")
    im:pixel(far, far, Color.new(1, 2, 3))
end
local rojo = Color.new(255, 0, 0)
screen:clear(Color.new(0, 0, 64))
screen:drawLine(-1e300, 150, 1e300, 150, rojo)
screen:fillRect(470, 262, 10, 10, rojo)
for boton, is in pairs(Controls) do assert(boton == "read" or not is(Controls.read())) end
screen.waitVblankStart(2)
screen.flip()
screen:clear(rojo) -- isn't shown any more
)lua";

TEST_F(Program, ShowsWhatTheCallsDraw) {
    const Ended ended = Start(kDrawing, "--screenshot foto.png");
    ASSERT_EQ(ended.code, 0) << ended.errors;
    Picture screen(kWidth, kHeight, true);
    screen.Clear(0xFF000040);
    screen.Fill({0, 150, kWidth, 1}, 0xFFFF0000);
    screen.Fill({470, 262, 10, 10}, 0xFFFF0000);
    EXPECT_TRUE(Screenshot().pixels == screen.pixels);
}

TEST_F(Program, TellsAnErrorWithTheDocumentsNameAndLine) {
    const std::string memory = "año nuevo.lua:2: memoria agotada (el límite es de 16 MB)";
    const struct {
        std::string script, error;
    } kErrors[] = {
        {"local x\n\nx.y = 1", "año nuevo.lua:3: attempt to index local 'x'"},
        {"x = = 1", "año nuevo.lua:1: "},
        {"\nscreen:print(1, 'a', 'b')",
         "año nuevo.lua:2: el argumento 2 de 'print' debe ser un número"},
        {"Image.createEmpty(4097, 1)", "año nuevo.lua:1: una imagen mide"},
        {"screen.blit(Color.new(0, 0, 0), 1, 1, screen)", "debe ser un objeto Image"},
        {std::string("\33Lua"), "año nuevo.lua: es un programa compilado"},
        {"local t = {}\nwhile true do t[#t + 1] = ('x'):rep(1e6) .. #t end", memory},
        {"local t = {}\nwhile true do t[#t + 1] = Image.createEmpty(512, 512) end", memory},
        {"local t = {}\nwhile true do t[#t + 1] = Font.createMonoSpaced() end", memory},
        {"require('debug').sethook()", "attempt to call field 'sethook'"},
        {"getmetatable(io.stdout).__gc = print", "attempt to index"},
        {"io.stdout.__index.__gc = print", "attempt to index"},
        {"('a'):find(('a?'):rep(1e5))", "el patrón es demasiado largo"},
        {"unpack({}, -2 ^ 31, 2 ^ 31 - 1)", "demasiados valores"},
        {"error({})", "(el error no es un texto)"},
    };
    for (const auto& [script, error] : kErrors) {
        const Ended ended = Start(script, "--memory 16 --screenshot foto.png",
                                  "QUILLMARK_SCRIPT_NAME='año nuevo.lua'");
        EXPECT_EQ(ended.code, 1) << script;
        EXPECT_NE(ended.errors.find(error), std::string::npos) << script << "\n" << ended.errors;
        EXPECT_EQ(Screenshot().At(470, 5), 0xFFB02020) << script; // the panel
    }
    EXPECT_EQ(
        Start("for i = 1, 1000 do Image.createEmpty(512, 512) end", "--memory 16 --frames 1").code,
        0); // what isn't used any more is freed
}

TEST_F(Program, EndsAScriptWhateverItIsAt) {
    for (const char* script :
         {"while true do end", "while true do pcall(function() while true do end end) end",
          "while true do pcall(coroutine.wrap(function() while true do end end)) end",
          "screen.waitVblankStart(100000)", "(('a'):rep(50000)):find(('a-'):rep(30) .. 'b')"})
        EXPECT_EQ(EndOnceItRuns(script), 0) << script;
    EXPECT_EQ(Start("coroutine.resume(coroutine.create(function() os.exit(3) end)) "
                    "io.open('tarde', 'w')",
                    "--frames 1")
                  .code,
              3);
    EXPECT_FALSE(std::filesystem::exists(folder / "tarde"));
    const Ended ended =
        Start("n = 0 while true do n = n + 1 print(n) screen.waitVblankStart() screen.flip() end",
              "--frames 20");
    EXPECT_EQ(ended.code, 0);
    EXPECT_TRUE(Get(folder / "salida").ends_with("\n20\n"));
}

TEST_F(Program, RefusesAWrongCommandLine) {
    for (const char* options :
         {"--nada", "--frames 0", "--frames x", "--memory 99999", "otro.lua", "--memory"})
        EXPECT_EQ(Start("", options).code, 2) << options;
    EXPECT_EQ(Start("", "--help").code, 0);
    EXPECT_EQ(Start("", "--frames 1 --screenshot no/hay.png").code, 2);
}

TEST(Stage, WaitsForFramesUntilItIsStopped) {
    using std::chrono::nanoseconds;
    const std::tuple<nanoseconds::rep, int, nanoseconds::rep> waits[] = {
        {0, 1, 16'666'667},
        {16'666'665, 1, 16'666'667},
        {16'666'667, 1, 33'333'334},
        {16'666'667, 2, 50'000'001},
        {1'000'000'001, 60, 2'000'000'001},
    };
    for (const auto& [since, frames, until] : waits)
        EXPECT_EQ(Stage::EndOfFrames(nanoseconds(since), frames).count(), until) << since;
    Stage stage;
    std::thread script([&] {
        stage.WaitFrames(3600);
        stage.Finish();
    });
    EXPECT_FALSE(stage.WaitFinished(std::chrono::milliseconds(50)));
    stage.Stop();
    EXPECT_TRUE(stage.WaitFinished(std::chrono::minutes(1)));
    script.join();
    EXPECT_FALSE(stage.WaitUntil({}));
}

} // namespace
} // namespace player
