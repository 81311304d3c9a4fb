// SPDX-License-Identifier: GPL-3.0-or-later
#include "PictureFile.h"
#include "Script.h"

#include <chrono>
#include <sys/wait.h>

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
    Picture Screenshot() { return ReadPicture(Get(folder / "foto.png")); }
};

constexpr const char* kDrawing = R"lua(
local rojo, verde = Color.new(255, 0, 0), Color.new(0, 300, -5)
local blanco = Color.new(255, 255, 255)
local im = Image.createEmpty(40, 30)
assert(im:width() == 40 and im:height() == 30)
assert(im:pixel(0, 0) == Color.new(0, 0, 0, 0) and im:pixel(-1, 99) == im:pixel(0, 0))
im:clear(verde)
im:fillRect(5, 5, 10, 10, rojo)
im:drawLine(0, 29, 39, 29)
im:pixel(39, 0, blanco)
im:save("im.png")
im:save("im.JPG")
assert(Image.load("im.JPG"):width() == 40)
screen:clear(Color.new(0, 0, 64))
screen:blit(10, 10, Image.load("im.png"))
screen:blit(60, 10, im, 5, 5, 20, 5)
screen:blit(-35, 100, im)
screen:blit(475, 265, im)
local medio = Image.createEmpty(8, 8)
medio:clear(Color.new(255, 255, 255, 128))
screen:blit(100, 10, medio)
screen:blit(110, 10, medio, false)
screen:blit(120, 10, screen, 60, 10, 8, 8, false)
screen:fillRect(130, 10, 8, 8, Color.new(255, 0, 0, 128))
screen:drawLine(200, 250, 210, 200, verde)
screen:drawLine(-1e300, 150, 1e300, 150, blanco)
for _, far in ipairs{1e300, -1e300, 0/0, 2^31, -2^31, -1, 1048576} do
    screen:blit(far, far, im, far, far, far, far)
    im:fillRect(far, far, far, far, rojo)
    im:drawLine(far, -far, -far, far, rojo)
    im:blit(1, 1, im, far, 2, 5, far)
    im:print(far, far, "x")
    im:pixel(far, far, rojo)
end
screen:print(8, 60, "¡Ñu", blanco)
local fuente = Font.createProportional()
fuente:setPixelSizes(0, 20)
local bajo = fuente:getTextSize("Mmm")
fuente:setCharSize(0, 20, 144, 144)
local alto = fuente:getTextSize("Mmm")
assert(alto.width > 1.8 * bajo.width and alto.height > 1.8 * bajo.height)
screen:fontPrint(fuente, 300, 40, "\219", blanco)
screen:fontPrint(Font.createMonoSpaced(), 8, 200, "Mono", blanco)
local mando = Controls.read()
for _, boton in ipairs{"up", "down", "right", "left", "l", "r", "cross", "circle", "square",
        "triangle", "select", "start", "home", "hold", "note"} do
    assert(mando[boton](mando) == false, boton)
end
screen.waitVblankStart(2)
screen.flip()
screen:clear(rojo) -- isn't shown any more
)lua";

bool Marked(const Picture& picture, const Rect& part) {
    for (int y = part.y; y < part.y + part.height; ++y)
        for (int x = part.x; x < part.x + part.width; ++x)
            if (picture.At(x, y) != 0xFF000040)
                return true;
    return false;
}

TEST_F(Program, DrawsWhatTheCallsSay) {
    const Ended ended = Start(kDrawing, "--screenshot foto.png");
    ASSERT_EQ(ended.code, 0) << ended.errors;
    const Picture screen = Screenshot();
    ASSERT_EQ(screen.width, 480);
    ASSERT_EQ(screen.height, 272);
    struct {
        int x, y;
        Pixel color;
    } const kExpected[] = {
        {0, 0, 0xFF000040},     {10, 10, 0xFF00FF00},   {15, 15, 0xFFFF0000},
        {49, 10, 0xFFFFFFFF},   {49, 39, 0xFF000000},   {60, 10, 0xFFFF0000},
        {70, 10, 0xFF00FF00},   {60, 15, 0xFF000040},   {79, 14, 0xFF00FF00},
        {80, 14, 0xFF000040},   {4, 100, 0xFFFFFFFF},   {5, 100, 0xFF000040},
        {479, 271, 0xFF00FF00}, {479, 264, 0xFF000040}, {110, 10, 0xFFFFFFFF},
        {120, 10, 0xFFFF0000},  {200, 250, 0xFF00FF00}, {205, 225, 0xFF00FF00},
        {210, 200, 0xFF00FF00}, {0, 150, 0xFFFFFFFF},   {479, 150, 0xFFFFFFFF},
    };
    for (const auto& [x, y, color] : kExpected)
        EXPECT_EQ(screen.At(x, y), color) << x << ", " << y;
    EXPECT_NEAR(screen.At(100, 10) & 255, 0x40 + 95, 2); // blue, half covered
    EXPECT_NEAR(screen.At(130, 10) >> 16 & 255, 128, 2);
    EXPECT_TRUE(Marked(screen, {24, 58, 8, 12}));   // the third of the characters, in its cell
    EXPECT_FALSE(Marked(screen, {32, 58, 60, 12})); // three, not their six bytes
    EXPECT_TRUE(Marked(screen, {300, 40, 30, 40}));
    EXPECT_TRUE(Marked(screen, {8, 200, 40, 16}));
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
          "screen.waitVblankStart(100000)", "(('a'):rep(50000)):find(('a-'):rep(30) .. 'b')"}) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(Start(script, "--screenshot foto.png", "timeout --preserve-status 1").code, 0)
            << script;
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4)) << script;
    }
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

TEST(Stage, KeepsTheFramesPaceAndAShortPress) {
    Stage stage;
    stage.WaitFrames(1);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 12; ++i)
        stage.WaitFrames(i % 2 + 1);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    EXPECT_NEAR(took.count(), 18 / 60.0, 0.05);
    stage.Hold(4);
    stage.Hold(0);
    EXPECT_EQ(stage.TakeButtons(), 4U);
    EXPECT_EQ(stage.TakeButtons(), 0U);
}

} // namespace
} // namespace player
