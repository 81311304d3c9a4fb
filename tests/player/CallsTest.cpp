// SPDX-License-Identifier: GPL-3.0-or-later
#include "Script.h"
#include "player/Stage.h"

#include <SDL.h>

namespace player {
namespace {

// A picture is told by rows of letters, one for each of its points.
constexpr const char* kDrawingHelpers = R"lua(local C = Color.new
local ink = {["."] = C(0, 0, 0, 0), k = C(0, 0, 0), w = C(255, 255, 255), r = C(255, 0, 0),
    h = C(255, 0, 0, 128), p = C(255, 126, 126), m = C(170, 0, 85, 192), b = C(0, 0, 255, 128)}
local function new(...)
    local rows, image = {...}, Image.createEmpty(#(...), select("#", ...))
    for y, row in ipairs(rows) do
        for x = 1, #row do image:pixel(x - 1, y - 1, ink[row:sub(x, x)]) end
    end return image
end
local function same(a, b, level)
    equal(a:width() .. "x" .. a:height(), b:width() .. "x" .. b:height())
    for i = 0, a:width() * a:height() - 1 do
        local x, y = i % a:width(), math.floor(i / a:width())
        if a:pixel(x, y) ~= b:pixel(x, y) then error(x .. ", " .. y .. " differs", level or 2) end
    end
end
local function is(image, ...) same(image, new(...), 3) end
local mono, sans = Font.createMonoSpaced(), Font.createProportional()
local function size(font, text)
    local s = font:getTextSize(text) return s.width .. "x" .. s.height, s.width, s.height
end )lua";

class CallsTest : public ScriptTest {
protected:
    CallsTest() { helpers += kDrawingHelpers; }
};

TEST_F(CallsTest, PicturesAreDrawnPointByPoint) {
    Passes(R"lua(equal(C(300, -5, 0.9), C(255, 0, 0, 255)) assert(C(1, 2, 3) ~= C(1, 2, 3, 254))
local a = Image.createEmpty(3.9, 2) is(a, "...", "...")
a:clear(ink.r) is(a, "rrr", "rrr") a:clear() is(a, "...", "...")
a:pixel(2.9, "1", ink.w) a:pixel(-0.5, 0, ink.w) a:pixel(3, 0, ink.w) a:pixel(0, 2, ink.w)
is(a, "...", "..w") equal(a:pixel(3, 1), ink["."]) equal(a:pixel(0/0, 0/0), ink["."]))lua");
    Passes(R"lua(
local function filled(...) local f = new("...", "...", "...") f:fillRect(...) return f end
is(filled(0, 1, 2, 1, ink.r), "...", "rr.", "...") is(filled(-1, -1, 3, 3), "kk.", "kk.", "...")
is(filled(2, 1, 9, 9), "...", "..k", "..k") is(filled(1, 1, -1, 2, ink.r), "...", "...", "...")
local function seg(...) local l = new(".....", ".....", ".....") l:drawLine(...) return l end
is(seg(0, 0, 4, 2), "k....", ".kk..", "...kk") is(seg(4, 2, 0, 0), "k....", ".kk..", "...kk")
is(seg(-2, 1, 9, 1), ".....", "kkkkk", ".....") is(seg(3, -5, 3, 9), "...k.", "...k.", "...k.")
is(seg(1, 0, 2, 3), ".k...", ".k...", "..k..") is(seg(0, 1, 0, 1, ink.h), ".....", "h....", ".....")
is(seg(0, 2, 4, 0, ink.r), "...rr", ".rr..", "r...."))lua");
}

TEST_F(CallsTest, PicturesAreLaidOverEachOther) {
    Passes(R"lua(local s, own = new("rkw", "wrk"), new("rkw.")
local function with(...) local t = new("...", "...", "...") t:blit(...) return t end
is(with(1, 1, s), "...", ".rk", ".wr") is(with(-1, -1, s), "rk.", "...", "...")
is(with(2, 2, s), "...", "...", "..r") is(with(0, 0, s, 1, 0, 2, 2), "kw.", "rk.", "...")
is(with(0, 0, s, -1, 0, 3, 1), ".rk", "...", "...")
is(with(0, 0, s, 2, 1, 5, 5), "k..", "...", "...") is(with(3, 0, s), "...", "...", "...")
own:blit(1, 0, own, 0, 0, 3, 1) is(own, "rrkw") own:blit(0, 0, own, 1, 0, 3, 1) is(own, "rkww")
for _, far in ipairs{1e300, -1e300, 0/0, 2 ^ 31, -2 ^ 31, -1, 1048576} do
    screen:blit(far, far, s, far, far, far, far) s:blit(1, 1, own, far, 2, 5, far)
    s:fillRect(far, far, far, far) s:drawLine(far, -far, -far, far) s:print(far, far, "x")
end)lua");
    Passes(R"lua(local glass, grey = new("h."), new("k")
local function over(below, ...) local o = new(below) o:blit(0, 0, glass, ...) return o end
is(over("ww"), "pw") is(over("ww", true), "pw") is(over("ww", false), "h.")
is(over("ww", 0, 0, 2, 1, false), "h.") is(over("b."), "m.") is(over(".."), "h.")
grey:fillRect(0, 0, 1, 1, C(255, 255, 255, 127)) equal(grey:pixel(0, 0), C(126, 126, 126))
equal(screen:width(), 480) equal(screen:height(), 272) equal(screen:pixel(479, 271), ink.k)
screen:clear(C(1, 2, 3, 0)) equal(screen:pixel(0, 0), C(1, 2, 3))
screen:pixel(1, 0, ink.h) equal(screen:pixel(1, 0), ink.r)
screen:clear(ink.w) screen:blit(0, 0, glass)
equal(screen:pixel(0, 0), ink.p) equal(screen:pixel(1, 0), ink.w) screen:blit(0, 0, glass, false)
equal(screen:pixel(0, 0), ink.r) equal(screen:pixel(1, 0), ink.k))lua");
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
    Passes(R"lua(new("rk.", "hbw"):save("a") is(Image.load("a"), "rk.", "hbw")
for name, start in pairs{["a.png"] = "\137P", ["a.jpg"] = "\255\216", ["a.JPEG"] = "\255\216"} do
    new("ww", "ww"):save(name) is(Image.load(name), "ww", "ww") equal(io.open(name):read(2), start)
end
local b = Image.load("4096") equal(b:width(), 4096) equal(b:pixel(4095, 0), C(1, 2, 3))
fails("4097: la imagen es demasiado grande", Image.load, "4097")
fails("vacia.png: la imagen está vacía", Image.load, "vacia.png")
fails("texto.png: no es una imagen PNG, JPEG, BMP o GIF", Image.load, "texto.png"))lua");
    Passes(R"lua(local png, jpeg = io.open("a.png"):read("*a"), io.open("a.jpg"):read("*a")
local function put(bytes) local f = io.open("x", "w") f:write(bytes) f:close() end
put(png:sub(1, 40)) fails("la imagen está dañada", Image.load, "x")
local frame = jpeg:find("\255\192") -- the header of a JPEG
for _, side in ipairs{{png, 17, "\1"}, {png, 19, "\16\1"}, {png, 21, "\1"}, {png, 23, "\16\1"},
        {jpeg, frame + 5, "\16\1"}, {jpeg, frame + 7, "\16\1"}} do
    local bytes, place, high = unpack(side)
    put(bytes:sub(1, place - 1) .. high .. bytes:sub(place + #high))
    fails("x: la imagen es demasiado grande", Image.load, "x")
end)lua");
}

TEST_F(CallsTest, TextsStandInTheirCellsAndLines) {
    Passes(R"lua(local function written(draw, ...)
    local image = Image.createEmpty(100, 60)
    for _, text in ipairs{...} do draw(image, unpack(text)) end return image
end
local function printed(...) return written(screen.print, ...) end
local function shown(...) return written(function(i, ...) i:fontPrint(sans, ...) end, ...) end
local function stands(image, x, y, width, height) -- as a block, and not beyond
    local function at(across, down) return image:pixel(x + across * width, y + down * height) end
    equal(at(0.5, 0.5), ink.r)
    for _, d in ipairs{-0.3, 1.3} do equal(at(d, 0.5), ink["."]) equal(at(0.5, d), ink["."]) end
end
same(printed{0, 0, "ab\ncd"}, printed({0, 0, "a"}, {8, 0, "b"}, {0, 12, "cd"}))
same(printed{3, 5, "\tb\r"}, printed{35, 5, "b"})
same(printed{0, 0, "\241\128"}, printed{0, 0, "ñ€"})
stands(printed{16, 24, "█", ink.r}, 16, 24, 8, 12)
equal(printed{-4, -4, "█", ink.r}:pixel(1, 2), ink.r)
same(printed{0, 0, "M"}, printed{0, 0, "M", ink.k}) same(shown{0, 0, "M"}, shown{0, 0, "M", ink.k})
sans:setPixelSizes(0, 20) local _, m, high = size(sans, "M")
same(shown{0, 0, "M\n\tg"}, shown({0, 0, "M"}, {select(2, size(sans, "\t")), high, "g"}))
same(shown{5, 5, "M\241\r"}, shown({5, 5, "M"}, {5 + m, 5, "ñ"}))
stands(shown{10, 20, "█", ink.r}, 10, 20, select(2, size(sans, "█")), high))lua");
}

TEST_F(CallsTest, FontsTakeTheSizeInPointsOrPixels) {
    std::filesystem::copy("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", folder / "sans.ttf");
    Passes(R"lua(equal(size(Font.load("sans.ttf"), "Mg"), size(sans, "Mg"))
equal(size(mono, "iii"), size(mono, "MMM")) assert(size(sans, "iii") ~= size(sans, "MMM"))
for _, font in ipairs{mono, sans} do
    local _, m, high = size(font, "M") equal(size(font, ""), "0x" .. high)
    equal(size(font, "\t\r"), 4 * select(2, size(font, " ")) .. "x" .. high)
    equal(size(font, "iM\nM"), select(2, size(font, "iM")) .. "x" .. 2 * high)
    equal(size(font, "i\nMM"), 2 * m .. "x" .. 2 * high)
end
sans:setPixelSizes(0, 20) local twenty = size(sans, "Mg")
for i, way in ipairs{{0, 20}, {20}, {20, 20, 72, 72}, {0, 10, 0, 144}, {0, 10, 144}, {0, 5, 1, 288},
        {10, 0, 144}, {10, 10, 144, 0}} do
    sans:setPixelSizes(40) sans:setCharSize(unpack(way))
    equal(i .. ": " .. size(sans, "Mg"), i .. ": " .. twenty)
end
sans:setPixelSizes(0, 200) -- too large only at 144 dots per inch
fails("la fuente no admite ese tamaño", sans.setCharSize, sans, 0, 200, 0, 144)
for _, set in ipairs{sans.setPixelSizes, sans.setCharSize} do
    set(sans, 0, 256) set(sans, 256, 1)
    for _, way in ipairs{{0, 257}, {257, 9}, {0, 0}, {-1, 9}, {9, -1}} do
        fails("la fuente no admite ese tamaño", set, sans, unpack(way))
    end
end)lua");
}

TEST_F(CallsTest, AShortPressOfEachButtonCountsOnce) {
    constexpr Buttons kMany = 0x4D2B, kHome = 0x1000;
    for (const Buttons held : {kMany, kHome})
        player.stage.Hold(held);
    EXPECT_EQ(Run(R"lua(local first, second, held = Controls.read(), Controls.read(), ""
for _, name in ipairs{"up", "down", "right", "left", "l", "r", "cross", "circle", "square",
        "triangle", "select", "start", "home", "hold", "note"} do
    held = held .. (first[name](first) and name .. " " or "")
    assert(second[name](second) == (name == "home"), name)
end error(held, 0))lua"),
              "up down left r square select start home note ");
}

TEST_F(CallsTest, AWrongArgumentIsToldByItsNumberAndName) {
    Put(folder / "texto", "esto no es");
    helpers += R"lua(i = Image.createEmpty(2, 2)
local function wants(code, number, what)
    local text = ("el argumento %d de '%s' debe ser %s"):format(number, code:match("(%a+)%("), what)
    local ok, why = pcall(assert(loadstring(code)))
    if ok or not why:find(text, 1, true) then error(tostring(why) .. " instead of " .. text, 2) end
end)lua";
    Passes(R"lua(for _, size in ipairs{"0, 5", "5, 0", "4097, 1", "1, 4097"} do
    fails("una imagen mide de 1 x 1 a 4096", loadstring("Image.createEmpty(" .. size .. ")"))
end
Image.createEmpty(4096, 1) Image.createEmpty(1, 4096)
wants("Image.createEmpty('x', 1)", 1, "un número")
wants("Image.load({})", 1, "un texto") wants("i:blit(0, 0, 5)", 3, "un objeto Image")
wants("i.blit(i, 0, 0, 5)", 4, "un objeto Image") wants("i:pixel(0, 0, 'a')", 3, "un objeto Color")
wants("Controls.up(i)", 1, "un objeto Controls")
wants("i:fontPrint(i, 0, 0, '')", 1, "un objeto Font")
wants("io.open('x', 'rw')", 2, '"r", "w", "a", "r+", "w+" o "a+"')
fails("el objeto de 'width' debe ser un objeto Image", function() ({width = i.width}):width() end)
fails("texto: no es una fuente", Font.load, "texto")
for _, name in ipairs{"io.popen", "os.execute", "package.loadlib"} do
    fails(name .. " no está disponible en el reproductor", loadstring(name .. "('ls', 'x')"))
end)lua");
    Passes(R"lua(wants("Wlan.useConnectionConfig(99)", 1, "el número de una")
wants("Socket.connect('x', 0)", 2, "un puerto de 1 a 65535")
wants("Socket:connect('x', 65536)", 2, "un puerto de 1 a 65535") Socket.connect(("x"):rep(255), 80)
for _, host in ipairs{"", "x\0y", ("x"):rep(256)} do
    fails("debe ser el nombre o la dirección de un equipo", Socket.connect, host, 80)
end
repeat s = Socket.createServerSocket(math.random(40000, 60000)) until s
fails("un socket de createServerSocket no envía; el que da accept, sí", s.send, s, "x")
local a, held = Socket.connect("127.0.0.1", 1), {}
fails("solo un socket de createServerSocket puede", a.accept, a)
local function connect() for n = 1, 65 do held[n] = Socket.connect("127.0.0.1", 1) end end
fails("hay demasiadas conexiones abiertas", connect) assert(#held > 59, #held)
Wlan.term() assert(Socket.connect("127.0.0.1", 1)))lua");
}

TEST_F(CallsTest, FilesAreThoseOfTheFolder) {
    helpers += R"lua(
local function put(name, mode, s) local f = assert(io.open(name, mode)) f:write(s) f:close() end
local function get(n) local f = assert(io.open(n, "rb")) return f:read("*a"), f:close() end)lua";
    Passes(R"lua(put("m", "w", "abc\n") put("m", "r+", "X") equal(get("m"), "Xbc\n")
put("m", "ab", "d") equal(get("m"), "Xbc\nd") put("m", "wb", "e\nf") equal(get("m"), "e\nf")
local f = io.open("m", "w+b") f:write("q") f:seek("set") equal(f:read("*a"), "q") f:close()
f = io.open("m", "a+") f:write("r") f:seek("set") equal(f:read("*a"), "qr") f:close()
f = io.open("m") assert(not f:write("x")) equal(f:read("*a"), "qr") f:close()
fails("'falta': no existe", io.open, "falta", "r+") equal(select(3, io.open("falta")), 2)
f = assert(io.tmpfile()) f:write("uno") f:seek("set") equal(f:read("*a"), "uno") f:close()
local one, two = os.tmpname(), os.tmpname() assert(one ~= two) equal(get(one), "")
assert(os.remove(one)) assert(os.remove(two)) assert(not io.open(one)))lua");
    Passes(R"lua(assert(System.createDirectory("d")) put("d/a", "w", "12345") put("d/B", "w", "")
fails("'d': ya existe", System.createDirectory, "d") fails("la carpeta no está", os.remove, "d")
local list, names = System.listDirectory("d"), {}
equal(#list, 2) equal(list[1].name, "B") equal(list[2].name, "a") equal(list[2].size, 5)
for _, e in ipairs(System.listDirectory()) do names[e.name] = e end
equal(names.d.directory, true) equal(names.m.directory, false)
equal(names.d.size, 0) equal(names.m.size, 2)
local start = System.currentDirectory() equal(System.currentDirectory("d"), start .. "/d")
assert(os.rename("a", "c")) assert(not io.open("a")) equal(get("..\\d\\c"), "12345")
fails("'falta': no existe", os.rename, "falta", "x") System.currentDirectory(start)
assert(os.remove("d/c")) assert(System.removeFile("d/B"))
assert(os.remove("d")) assert(not os.remove("d")))lua");
    Passes(R"lua(
io.output("o") io.write("uno\ndos") io.output():close() io.output(7):close() io.output(io.stdout)
io.input("o") equal(io.read(), "uno") equal(io.lines()(), "dos") io.input():close()
local last for line in io.lines("o") do last = line end equal(last, "dos") equal(get("7"), "")
fails("trozo:1: 'falta': no existe", loadstring("io.lines('falta')", "trozo")))lua");
}

TEST_F(CallsTest, ScriptsAreLoadedFromTheFolderAsText) {
    Put(folder / "mod/init.lua", "return 'init'");
    Put(folder / "otro/a%b.txt", "return 'otro'");
    Put(folder / "mala.lua", "\n= 1");
    Put(folder / "marca.lua", "\xEF\xBB\xBF#!/usr/bin/lua\nerror('aquí')");
    Passes(R"lua(equal(require("mod"), "init") equal(package.loaded.mod, "init")
equal(dofile("mod\\init.lua"), "init") package.path = "nada/?.lua;otro/?.txt"
equal(require("a%b"), "otro")
fails("no existe 'nada/falta/x.lua'\n\tno existe 'otro/falta/x.txt'", require, "falta.x")
package.path = "?.lua" equal(select(2, pcall(require, "mala")):find("^mala.lua:2: "), 1)
fails("mala.lua:2: ", loadfile, "mala.lua") fails("marca.lua:2: aquí", dofile, "marca.lua")
fails("trozo:1:", loadstring, "x = = 1", "trozo") fails("texto:1:", loadstring, "x = = 1")
fails("debe ser una función", load, "return 1")
fails("la función debe devolver textos", load, function() return {} end)
local pieces = {"return ", "4", "", "2"}
equal(load(function() return table.remove(pieces, 1) end)(), 4) equal(#pieces, 1)
pieces = {string.dump(function() end)} local f = io.open("n.lua", "wb") f:write(pieces[1]) f:close()
fails("es un programa compilado", loadfile, "n.lua") fails("es un programa compilado", require, "n")
fails("es un programa compilado", load, function() return table.remove(pieces) end))lua");
    Passes(R"lua(equal(os.execute(), 0) equal(os.setlocale(), "C") equal(os.setlocale("C"), "C")
equal(os.setlocale("es_ES"), nil) equal(os.getenv("PATH"), nil) equal(io.read("*a"), "")
equal(newproxy, nil) equal(#package.loaders, 2) equal(package.cpath, "") equal(debug.sethook, nil)
equal(("ab"):find("b"), 2) equal(("ab"):find(("b"):rep(9000), 1, true), nil)
for _, f in ipairs{string.find, string.gsub} do fails("largo", f, "a", ("a"):rep(8193)) end
fails("demasiados", unpack, {}, -2 ^ 31, 2 ^ 31 - 1) equal(select("#", unpack({}, 1, 5)), 5))lua");
}

TEST_F(CallsTest, WhatIsPrintedAndWhatFailsIsTold) {
    Passes(R"lua(
print(1, nil, "a") print() print(setmetatable({}, {__tostring = function() return "b\tc" end}))
local before, ok, why = tostring
tostring = function() return {} end ok, why = pcall(print, 1) tostring = before
equal(why, "'tostring' debe devolver un texto"))lua");
    EXPECT_EQ(player.stage.Lines(), (std::deque<std::string>{"1\tnil\ta", "", "b\tc"}));
    EXPECT_EQ(Run("error('sin lugar', 0)"), "sin lugar");
    EXPECT_EQ(Run("local function f() error('x') end\nf()"), "prueba.lua:1: x");
    EXPECT_TRUE(failure->traceback.starts_with("stack traceback:\n")) << failure->traceback;
    EXPECT_NE(failure->traceback.find("prueba.lua:2"), std::string::npos) << failure->traceback;
    Passes("for i = 1, 500 do print(i) end print(('x'):rep(999)) pcall(os.exit, 3) error('sigue')");
    const std::deque<std::string> lines = player.stage.Lines();
    EXPECT_EQ(lines.size(), 400U);
    EXPECT_EQ(lines.front(), "102");
    EXPECT_EQ(lines.back(), std::string(400, 'x'));
    EXPECT_EQ(player.exitCode, 3);
}

} // namespace
} // namespace player
