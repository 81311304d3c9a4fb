// SPDX-License-Identifier: GPL-3.0-or-later
#include "Script.h"
#include "player/Picture.h"
#include "player/PictureFile.h"
#include "player/Stage.h"

#include <sys/wait.h>
#include <thread>

namespace player {
namespace {

// The built program, without a window.
class ProgramTest : public ScriptTest {
protected:
    int Shell(const std::string& script, const std::string& command) {
        Put(folder / "temp.lua", script);
        const int status = std::system(("cd " + folder.string() + " && " + command).c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    int Start(const std::string& script, const std::string& options) {
        return Shell(script, LUAPLAYER " " + options + " temp.lua >salida 2>errores");
    }
    // Asks the program to end while the script is busy; one that doesn't is killed at last.
    int EndOnceItRuns(const std::string& script) {
        return Shell("print('ya'); " + script,
                     "rm -f salida && { timeout --preserve-status -k 60 60 " LUAPLAYER
                     " --frames 1 temp.lua >salida & until [ -s salida ] || ! kill -0 $!; "
                     "do sleep 0.02; done; kill $!; wait $!; }");
    }
    Picture Screenshot() { return ReadPicture(Get(folder / "foto.png")); }
};

TEST_F(ProgramTest, TheScreenshotShowsWhatTheCallsDraw) {
    constexpr Pixel kBlue = 0xFF000040, kRed = 0xFFFF0000;
    const std::string script = R"(screen:clear(Color.new(0, 0, 64))
        screen:fillRect(470, 262, 10, 10, Color.new(255, 0, 0))
        screen.waitVblankStart(2) screen.flip() screen:clear() -- isn't shown any more)";
    ASSERT_EQ(Start(script, "--screenshot foto.png"), 0) << Get(folder / "errores");
    EXPECT_EQ(Screenshot().At(469, 262), kBlue);
    EXPECT_EQ(Screenshot().At(470, 262), kRed);
}

TEST_F(ProgramTest, AnErrorIsToldWithTheDocumentsNameAndLine) {
    const std::string memory = "año nuevo.lua:2: memoria agotada (el límite es de 16 MB)";
    const std::pair<std::string, std::string> errors[] = {
        {"local x\n\nx.y = 1", "año nuevo.lua:3: attempt to index local 'x'"},
        {"x = = 1", "año nuevo.lua:1: "},
        {"\nscreen:print(1, 'a', 'b')", "año nuevo.lua:2: el argumento 2 de 'print'"},
        {"\33Lua", "año nuevo.lua: es un programa compilado"},
        {"local t = {}\nwhile true do t[#t + 1] = ('x'):rep(1e6) .. #t end", memory},
        {"local t = {}\nwhile true do t[#t + 1] = Image.createEmpty(512, 512) end", memory},
        {"local t = {}\nwhile true do t[#t + 1] = Font.createMonoSpaced() end", memory},
        {"require('debug').sethook()", "attempt to call field 'sethook'"},
        {"getmetatable(io.stdout).__gc = print", "attempt to index"},
        {"io.stdout.__index.__gc = print", "attempt to index"},
        {"error({})", "(el error no es un texto)"},
    };
    constexpr Pixel kBandOfThePanel = 0xFFB02020;
    setenv("QUILLMARK_SCRIPT_NAME", "año nuevo.lua", 1);
    for (const auto& [script, error] : errors) {
        EXPECT_EQ(Start(script, "--memory 16 --screenshot foto.png"), 1) << script;
        const std::string said = Get(folder / "errores");
        EXPECT_NE(said.find(error), std::string::npos) << script << "\n" << said;
        EXPECT_EQ(Screenshot().At(kWidth - 10, 5), kBandOfThePanel) << script;
    }
    unsetenv("QUILLMARK_SCRIPT_NAME");
    EXPECT_EQ(Start("for i = 1, 1000 do Image.createEmpty(512, 512) end", "--memory 16 --frames 1"),
              0); // what isn't used any more is freed
}

TEST_F(ProgramTest, AScriptEndsWhateverItIsAt) {
    for (const char* script :
         {"while true do pcall(function() while true do end end) end",
          "while true do pcall(coroutine.wrap(function() while true do end end)) end",
          "(('a'):rep(50000)):find(('a-'):rep(30) .. 'b')"})
        EXPECT_EQ(EndOnceItRuns(script), 0) << script;
    const char* const inside = "coroutine.resume(coroutine.create(function() os.exit(3) end)) "
                               "io.open('tarde', 'w')";
    EXPECT_EQ(Start(inside, "--frames 1"), 3);
    EXPECT_FALSE(std::filesystem::exists(folder / "tarde"));
    const char* const endless =
        "n = 0 while true do n = n + 1 print(n) screen.waitVblankStart() screen.flip() end";
    EXPECT_EQ(Start(endless, "--frames 20"), 0);
    EXPECT_TRUE(Get(folder / "salida").ends_with("\n20\n"));
}

TEST_F(ProgramTest, AWrongCommandLineIsRefused) {
    for (const char* options : {"--nada", "--frames 0", "--frames x", "--memory 99999", "otro.lua",
                                "--memory", "--frames 1 --screenshot no/hay.png"})
        EXPECT_EQ(Start("", options), 2) << options;
    EXPECT_EQ(Start("", "--help"), 0);
}

TEST(StageTest, AScriptWaitsForFramesUntilItIsStopped) {
    using std::chrono::nanoseconds;
    for (const auto& [since, until] :
         {std::pair(0, 16'666'667), {16'666'665, 16'666'667}, {1'000'000'001, 1'016'666'667}})
        EXPECT_EQ(Stage::EndOfFrames(nanoseconds(since), 1).count(), until);
    EXPECT_EQ(Stage::EndOfFrames(nanoseconds(16'666'667), 2).count(), 50'000'001);
    Stage stage;
    const std::jthread script([&] {
        stage.WaitFrames(3600);
        stage.Finish();
    });
    EXPECT_FALSE(stage.WaitFinished(std::chrono::milliseconds(50)));
    stage.Stop();
    EXPECT_TRUE(stage.WaitFinished(std::chrono::minutes(1)));
    EXPECT_FALSE(stage.WaitUntil({}));
}

} // namespace
} // namespace player
