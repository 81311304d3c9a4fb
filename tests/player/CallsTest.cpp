// SPDX-License-Identifier: GPL-3.0-or-later
#include "Script.h"
#include "player/Stage.h"

#include <SDL.h>

namespace player {
namespace {

// A picture is told by rows of letters, one for each of its points.
constexpr const char* kTold = R"lua(local C = Color.new
local ink = {["."] = C(0, 0, 0, 0), k = C(0, 0, 0), w = C(255, 255, 255), r = C(255, 0, 0),
    h = C(255, 0, 0, 128), p = C(255, 126, 126), m = C(170, 0, 85, 192), b = C(0, 0, 255, 128)}
local function each(width, height, act)
    for y = 0, height - 1 do for x = 0, width - 1 do act(x, y) end end
end
local function new(...)
    local rows, image = {...}, Image.createEmpty(#(...), select("#", ...))
    each(#rows[1], #rows, function(x, y) image:pixel(x, y, ink[rows[y + 1]:sub(x + 1, x + 1)]) end)
    return image
end
local function same(a, b)
    assert(a:width() == b:width() and a:height() == b:height())
    each(a:width(), a:height(), function(x, y)
        if a:pixel(x, y) ~= b:pixel(x, y) then error(x .. ", " .. y .. " difiere", 4) end
    end)
end
local function is(image, ...) same(image, new(...)) end
local function no(text, act, ...) -- fails with the text, or answers nil and the text
    local ok, why, other = pcall(act, ...)
    why = ok and assert(why == nil) and other or why
    if not why:find(text, 1, true) then error(why, 2) end
end
)lua";

class CallsTest : public ScriptTest {
protected:
    void Passes(const std::string& script) { ScriptTest::Passes(kTold + script); }
};

TEST_F(CallsTest, PicturesAreDrawnPointByPoint) {
    Passes(R"lua(
assert(C(300, -5, 0.9) == C(255, 0, 0, 255) and C(1, 2, 3) ~= C(1, 2, 3, 254))
local a = Image.createEmpty(3.9, 2) is(a, "...", "...")
a:clear(ink.r) is(a, "rrr", "rrr") a:clear() is(a, "...", "...")
a:pixel(2.9, "1", ink.w) a:pixel(-0.5, 0, ink.w) a:pixel(3, 0, ink.w) a:pixel(0, 2, ink.w)
is(a, "...", "..w") assert(a:pixel(3, 1) == ink["."] and a:pixel(0/0, 0/0) == ink["."])
local function filled(...) local f = new("...", "...", "...") f:fillRect(...) return f end
is(filled(0, 1, 2, 1, ink.r), "...", "rr.", "...") is(filled(-1, -1, 3, 3), "kk.", "kk.", "...")
is(filled(2, 1, 9, 9), "...", "..k", "..k") is(filled(1, 1, -1, 2, ink.r), "...", "...", "...")
local function line(...) local l = new(".....", ".....", ".....") l:drawLine(...) return l end
is(line(0, 0, 4, 2), "k....", ".kk..", "...kk") is(line(4, 2, 0, 0), "k....", ".kk..", "...kk")
is(line(0, 2, 4, 0, ink.r), "...rr", ".rr..", "r....")
is(line(-2, 1, 9, 1), ".....", "kkkkk", ".....") is(line(3, -5, 3, 9), "...k.", "...k.", "...k.")
is(line(1, 0, 2, 3), ".k...", ".k...", "..k..")
is(line(0, 1, 0, 1, ink.h), ".....", "h....", ".....")
local s = new("rkw", "wrk")
local function with(...) local t = new("...", "...", "...") t:blit(...) return t end
is(with(1, 1, s), "...", ".rk", ".wr") is(with(-1, -1, s), "rk.", "...", "...")
is(with(2, 2, s), "...", "...", "..r") is(with(0, 0, s, 1, 0, 2, 2), "kw.", "rk.", "...")
is(with(0, 0, s, -1, 0, 3, 1), ".rk", "...", "...")
is(with(0, 0, s, 2, 1, 5, 5), "k..", "...", "...") is(with(3, 0, s), "...", "...", "...")
local self = new("rkw.") self:blit(1, 0, self, 0, 0, 3, 1) is(self, "rrkw")
self:blit(0, 0, self, 1, 0, 3, 1) is(self, "rkww")
local glass = new("h.")
local function over(below, ...) local o = new(below) o:blit(0, 0, glass, ...) return o end
is(over("ww"), "pw") is(over("ww", true), "pw") is(over("ww", false), "h.")
is(over("ww", 0, 0, 2, 1, false), "h.") is(over("b."), "m.") is(over(".."), "h.")
local grey = new("k") grey:fillRect(0, 0, 1, 1, C(255, 255, 255, 127))
assert(grey:pixel(0, 0) == C(126, 126, 126))
assert(screen:width() == 480 and screen:height() == 272 and screen:pixel(479, 271) == ink.k)
screen:clear(C(1, 2, 3, 0)) assert(screen:pixel(0, 0) == C(1, 2, 3))
screen:pixel(1, 0, ink.h) assert(screen:pixel(1, 0) == ink.r)
screen:clear(ink.w) screen:blit(0, 0, glass)
assert(screen:pixel(0, 0) == ink.p and screen:pixel(1, 0) == ink.w)
screen:blit(0, 0, glass, false) assert(screen:pixel(0, 0) == ink.r and screen:pixel(1, 0) == ink.k)
for _, far in ipairs{1e300, -1e300, 0/0, 2 ^ 31, -2 ^ 31, -1, 1048576} do
    screen:blit(far, far, s, far, far, far, far) a:blit(1, 1, s, far, 2, 5, far)
    a:fillRect(far, far, far, far) a:drawLine(far, -far, -far, far) a:print(far, far, "x")
end)lua");
}

TEST_F(CallsTest, PicturesAreReadAndWritten) {
    for (const int width : {4096, 4097}) {
        SDL_Surface* const bitmap = SDL_CreateRGBSurface(0, width, 1, 24, 0, 0, 0, 0);
        SDL_FillRect(bitmap, nullptr, SDL_MapRGB(bitmap->format, 1, 2, 3));
        SDL_SaveBMP(bitmap, (folder / std::to_string(width)).c_str());
        SDL_FreeSurface(bitmap);
    }
    Put(folder / "vacia.png", "");
    Put(folder / "texto.png", "esto no es");
    Passes(R"lua(
new("rk.", "hbw"):save("a") is(Image.load("a"), "rk.", "hbw")
for name, start in pairs{["a.png"] = "\137P", ["a.jpg"] = "\255\216", ["a.JPEG"] = "\255\216"} do
    new("ww", "ww"):save(name) is(Image.load(name), "ww", "ww")
    assert(io.open(name):read(2) == start)
end
local b = Image.load("4096") assert(b:width() == 4096 and b:pixel(4095, 0) == C(1, 2, 3))
no("4097: la imagen es demasiado grande", Image.load, "4097")
no("vacia.png: la imagen está vacía", Image.load, "vacia.png")
no("texto.png: no es una imagen PNG, JPEG, BMP o GIF", Image.load, "texto.png")
local png, jpeg = io.open("a.png"):read("*a"), io.open("a.jpg"):read("*a")
local function put(bytes) local f = io.open("x", "w") f:write(bytes) f:close() end
put(png:sub(1, 40)) no("la imagen está dañada", Image.load, "x")
local frame = jpeg:find("\255\192")
for _, side in ipairs{{png, 17, "\1"}, {png, 19, "\16\1"}, {png, 21, "\1"}, {png, 23, "\16\1"},
        {jpeg, frame + 5, "\16\1"}, {jpeg, frame + 7, "\16\1"}} do
    local bytes, place, high = unpack(side)
    put(bytes:sub(1, place - 1) .. high .. bytes:sub(place + #high))
    no("x: la imagen es demasiado grande", Image.load, "x")
end)lua");
}

TEST_F(CallsTest, TextsStandInTheirCellsAndLines) {
    std::filesystem::copy("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", folder / "sans.ttf");
    Passes(R"lua(
local mono, sans = Font.createMonoSpaced(), Font.createProportional()
local function written(draw, ...)
    local image = Image.createEmpty(100, 60)
    for _, text in ipairs{...} do draw(image, unpack(text)) end
    return image
end
local function printed(...) return written(screen.print, ...) end
local function shown(...) return written(function(i, ...) i:fontPrint(sans, ...) end, ...) end
-- A block stands there, and not beyond.
local function stands(image, x, y, width, height)
    local function at(across, down) return image:pixel(x + across * width, y + down * height) end
    assert(at(0.5, 0.5) == ink.r)
    for _, d in ipairs{-0.3, 1.3} do assert(at(d, 0.5) == ink["."] and at(0.5, d) == ink["."]) end
end
same(printed{0, 0, "ab\ncd"}, printed({0, 0, "a"}, {8, 0, "b"}, {0, 12, "cd"}))
same(printed{3, 5, "\tb\r"}, printed{35, 5, "b"})
same(printed{0, 0, "\241\128"}, printed{0, 0, "ñ€"})
stands(printed{16, 24, "█", ink.r}, 16, 24, 8, 12)
assert(printed{-4, -4, "█", ink.r}:pixel(1, 2) == ink.r)
same(printed{0, 0, "M"}, printed{0, 0, "M", ink.k}) same(shown{0, 0, "M"}, shown{0, 0, "M", ink.k})

local function size(font, text)
    local s = font:getTextSize(text)
    return s.width .. "x" .. s.height, s.width, s.height
end
assert(size(mono, "iii") == size(mono, "MMM") and size(sans, "iii") ~= size(sans, "MMM"))
for _, font in ipairs{mono, sans} do
    local _, m, high = size(font, "M")
    local _, blank = size(font, " ")
    assert(size(font, "") == "0x" .. high and size(font, "\t\r") == 4 * blank .. "x" .. high)
    assert(size(font, "iM\nM") == select(2, size(font, "iM")) .. "x" .. 2 * high)
    assert(size(font, "i\nMM") == 2 * m .. "x" .. 2 * high)
end
sans:setPixelSizes(0, 20)
local twenty = size(sans, "Mg")
for i, way in ipairs{{0, 20}, {20}, {20, 20, 72, 72}, {0, 10, 0, 144}, {0, 10, 144}, {0, 5, 1, 288},
        {10, 0, 144}, {10, 10, 144, 0}} do
    sans:setPixelSizes(40) sans:setCharSize(unpack(way)) assert(size(sans, "Mg") == twenty, i)
end
for _, of in ipairs{sans.setPixelSizes, sans.setCharSize} do of(sans, 0, 256) of(sans, 256, 1) end
for i, way in ipairs{{0, 257}, {257, 9}, {0, 0}, {-1, 9}, {9, -1}, {0, 200, 0, 144}} do
    no("la fuente no admite ese tamaño", sans.setCharSize, sans, unpack(way))
    assert(i == 6 or not pcall(sans.setPixelSizes, sans, unpack(way)), i)
end
sans:setPixelSizes(0, 20)
local _, m, high = size(sans, "M")
same(shown{0, 0, "M\n\tg"}, shown({0, 0, "M"}, {select(2, size(sans, "\t")), high, "g"}))
same(shown{5, 5, "M\241\r"}, shown({5, 5, "M"}, {5 + m, 5, "ñ"}))
stands(shown{10, 20, "█", ink.r}, 10, 20, select(2, size(sans, "█")), high)
assert(size(Font.load("sans.ttf"), "Mg") == size(Font.createProportional(), "Mg")))lua");
}

TEST_F(CallsTest, AShortPressOfEachButtonCountsOnce) {
    for (const Buttons held : {0x4D2BU, 0x1000U})
        player.stage.Hold(held);
    EXPECT_EQ(Run(R"lua(local first, second, held = Controls.read(), Controls.read(), ""
for _, name in ipairs{"up", "down", "right", "left", "l", "r", "cross", "circle", "square",
        "triangle", "select", "start", "home", "hold", "note"} do
    held = held .. (first[name](first) and name .. " " or "")
    assert(second[name](second) == (name == "home"))
end error(held, 0))lua"),
              "up down left r square select start home note ");
}

TEST_F(CallsTest, ArgumentsAreToldFromEachOther) {
    Put(folder / "texto", "esto no es");
    Passes(R"lua(
i = Image.createEmpty(2, 2)
repeat s = Socket.createServerSocket(math.random(40000, 60000)) until s
local function says(code, text) no(text, assert(loadstring(code))) end
for _, size in ipairs{"0, 5", "5, 0", "4097, 1", "1, 4097"} do
    says("Image.createEmpty(" .. size .. ")", "una imagen mide de 1 x 1 a 4096 x 4096 puntos")
end
Image.createEmpty(4096, 1) Image.createEmpty(1, 4096)
local function wants(code, number, what)
    says(code, ("el argumento %d de '%s' debe ser %s"):format(number, code:match("(%a+)%("), what))
end
wants("Image.createEmpty('x', 1)", 1, "un número") wants("Image.load({})", 1, "un texto")
wants("i:blit(0, 0, 5)", 3, "un objeto Image") wants("i.blit(i, 0, 0, 5)", 4, "un objeto Image")
wants("i:pixel(0, 0, 'a')", 3, "un objeto Color") wants("Controls.up(i)", 1, "un objeto Controls")
wants("i:fontPrint(i, 0, 0, '')", 1, "un objeto Font")
wants("Wlan.useConnectionConfig(99)", 1, "el número de una")
wants("Socket.connect('x', 0)", 2, "un puerto de 1 a 65535")
wants("Socket:connect('x', 65536)", 2, "un puerto de 1 a 65535")
Socket.connect(("x"):rep(255), 80)
for _, host in ipairs{"''", "'x\\0y'", "('x'):rep(256)"} do
    says("Socket.connect(" .. host .. ", 80)", "debe ser el nombre o la dirección de un equipo")
end
wants("io.open('x', 'rw')", 2, '"r", "w", "a", "r+", "w+" o "a+"')
says("local w = {width = i.width} w:width()", "el objeto de 'width' debe ser un objeto Image")
says("Font.load('texto')", "texto: no es una fuente")
says("s:send('x')", "un socket de createServerSocket no envía; el que da accept, sí")
says("Socket.connect('127.0.0.1', 1):accept()", "solo un socket de createServerSocket puede")
for _, name in ipairs{"io.popen", "os.execute", "package.loadlib"} do
    says(name .. "('ls', 'x')", name .. " no está disponible en el reproductor")
end
held = {}
says("for n = 1, 65 do held[n] = Socket.connect('127.0.0.1', 1) end",
    "hay demasiadas conexiones abiertas") assert(#held > 59)
Wlan.term() assert(Socket.connect("127.0.0.1", 1)))lua");
}

TEST_F(CallsTest, LuasOwnLibrariesStayWithinTheFolder) {
    Put(folder / "mod/init.lua", "return 'init'");
    Put(folder / "otro/a%b.txt", "return 'otro'");
    Put(folder / "mala.lua", "\n= 1");
    Put(folder / "marca.lua", "\xEF\xBB\xBF#!/usr/bin/lua\nerror('aquí')");
    Passes(R"lua(
local function put(name, mode, s) local f = assert(io.open(name, mode)) f:write(s) f:close() end
local function get(name) local f = assert(io.open(name, "rb")) return f:read("*a"), f:close() end
put("m", "w", "abc\n") put("m", "r+", "X") assert(get("m") == "Xbc\n")
put("m", "ab", "d") assert(get("m") == "Xbc\nd") put("m", "wb", "e\nf") assert(get("m") == "e\nf")
local f = io.open("m", "w+b") f:write("q") f:seek("set") assert(f:read("*a") == "q") f:close()
f = io.open("m", "a+") f:write("r") f:seek("set") assert(f:read("*a") == "qr") f:close()
f = io.open("m") assert(not f:write("x") and f:read("*a") == "qr") f:close()
no("'falta': no existe", io.open, "falta", "r+") assert(select(3, io.open("falta")) == 2)
f = assert(io.tmpfile()) f:write("uno") f:seek("set") assert(f:read("*a") == "uno") f:close()
local one, two = os.tmpname(), os.tmpname()
assert(one ~= two and get(one) == "" and os.remove(one) and os.remove(two) and not io.open(one))
assert(System.createDirectory("d")) put("d/a", "w", "12345") put("d/B", "w", "")
no("'d': ya existe", System.createDirectory, "d") no("'d': la carpeta no está", os.remove, "d")
local list, names = System.listDirectory("d"), {}
assert(#list == 2 and list[1].name == "B" and list[2].name == "a" and list[2].size == 5)
for _, e in ipairs(System.listDirectory()) do names[e.name] = e end
assert(names.d.directory and names.d.size == 0 and not names.m.directory and names.m.size == 2)
local start = System.currentDirectory() assert(System.currentDirectory("d") == start .. "/d")
assert(os.rename("a", "c") and not io.open("a") and get("..\\d\\c") == "12345")
no("'falta': no existe", os.rename, "falta", "x") System.currentDirectory(start)
assert(os.remove("d/c") and System.removeFile("d/B") and os.remove("d") and not os.remove("d"))
assert(os.execute() == 0 and os.setlocale() == "C" and os.setlocale("C") == "C")
assert(os.setlocale("es_ES") == nil and os.getenv("PATH") == nil and io.read("*a") == "")

io.output("o") io.write("uno\ndos") io.output():close() io.output(7):close() io.output(io.stdout)
io.input("o") assert(io.read() == "uno" and io.lines()() == "dos") io.input():close()
for line in io.lines("o") do f = line end assert(f == "dos" and get("7") == "")
no("trozo:1: 'falta': no existe", loadstring("io.lines('falta')", "trozo"))
assert(require("mod") == "init" and package.loaded.mod == "init" and dofile("mod\\init.lua"))
package.path = "nada/?.lua;otro/?.txt" assert(require("a%b") == "otro")
no("no existe 'nada/falta/x.lua'\n\tno existe 'otro/falta/x.txt'", require, "falta.x")
package.path = "?.lua" assert(select(2, pcall(require, "mala")):find("^mala.lua:2: "))
no("mala.lua:2: ", loadfile, "mala.lua")
no("marca.lua:2: aquí", dofile, "marca.lua") no("trozo:1:", loadstring, "x = = 1", "trozo")
no("texto:1:", loadstring, "x = = 1") no("debe ser una función", load, "return 1")
no("la función debe devolver textos", load, function() return {} end)
local pieces = {"return ", "4", "", "2"}
assert(load(function() return table.remove(pieces, 1) end)() == 4 and #pieces == 1)
pieces = {string.dump(function() end)} put("n.lua", "wb", pieces[1])
no("es un programa compilado", loadfile, "n.lua") no("es un programa compilado", require, "n")
no("es un programa compilado", load, function() return table.remove(pieces) end)
assert(not newproxy and not package.loaders[3] and package.cpath == "" and not debug.sethook)
assert(("ab"):find(("b"):rep(9000), 1, true) == nil and ("ab"):find("b") == 2)
for _, f in ipairs{string.find, string.gsub} do no("demasiado largo", f, "a", ("a"):rep(8193)) end
no("demasiados", unpack, {}, -2 ^ 31, 2 ^ 31 - 1) assert(select("#", unpack({}, 1, 5)) == 5)
print(1, nil, "a") print() print(setmetatable({}, {__tostring = function() return "b\tc" end}))
tostring = function() return {} end no("'tostring' debe devolver un texto", print, 1))lua");
    EXPECT_EQ(player.stage.Lines(), (std::deque<std::string>{"1\tnil\ta", "", "b\tc"}));
    EXPECT_EQ(Run("error('sin lugar', 0)"), "sin lugar");
    EXPECT_EQ(Run("local function f() error('x') end\nf()"), "prueba.lua:1: x");
    EXPECT_TRUE(failure->traceback.starts_with("stack traceback:\n")) << failure->traceback;
    EXPECT_NE(failure->traceback.find("prueba.lua:2"), std::string::npos);
    Passes("for i = 1, 500 do print(i) end print(('x'):rep(999)) pcall(os.exit, 3) error('sigue')");
    const std::deque<std::string> lines = player.stage.Lines();
    EXPECT_EQ(lines.size(), 400U);
    EXPECT_EQ(lines.front(), "102");
    EXPECT_EQ(lines.back(), std::string(400, 'x'));
    EXPECT_EQ(player.exitCode, 3);
}

} // namespace
} // namespace player
