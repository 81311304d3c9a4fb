// SPDX-License-Identifier: GPL-3.0-or-later
#include "PictureFile.h"
#include "Script.h"

#include <SDL_image.h>

#include <cstring>

namespace player {
namespace {

// A picture is told by rows of letters, one for each of its points.
constexpr const char* kInk = R"lua(local C = Color.new
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
local function is(image, ...) same(image, new(...)) return true end
)lua";

// The calls as scripts see them; a failed assert tells the script's line.
class CallsTest : public ScriptTest {
protected:
    void Passes(const std::string& script) { EXPECT_EQ(Run(script), ""); }
};

TEST_F(CallsTest, PicturesAreDrawnPointByPoint) {
    Passes(kInk + std::string(R"lua(
assert(C(300, -5, 0.9) == C(255, 0, 0, 255) and C(1, 2, 3) ~= C(1, 2, 3, 254))
local a = Image.createEmpty(3.9, 2) is(a, "...", "...")
a:clear(ink.r) is(a, "rrr", "rrr") a:clear() is(a, "...", "...")
a:pixel(2.9, "1", ink.w) a:pixel(-0.5, 0, ink.w) a:pixel(3, 0, ink.w) a:pixel(0, 2, ink.w)
is(a, "...", "..w") assert(a:pixel(3, 1) == ink["."] and a:pixel(0/0, 0/0) == ink["."])

local function filled(...) local f = new("...", "...", "...") f:fillRect(...) return f end
is(filled(0, 1, 2, 1, ink.r), "...", "rr.", "...")
is(filled(-1, -1, 3, 3, ink.w), "ww.", "ww.", "...")
is(filled(2, 1, 9, 9), "...", "..k", "..k") is(filled(1, 1, -1, 2, ink.r), "...", "...", "...")

local function line(...) local l = new(".....", ".....", ".....") l:drawLine(...) return l end
is(line(0, 0, 4, 2), "k....", ".kk..", "...kk") is(line(4, 2, 0, 0), "k....", ".kk..", "...kk")
is(line(0, 2, 4, 0, ink.r), "...rr", ".rr..", "r....")
is(line(-2, 1, 9, 1), ".....", "kkkkk", ".....")
is(line(3, -5, 3, 9, ink.w), "...w.", "...w.", "...w.")
is(line(1, 0, 2, 3, ink.r), ".r...", ".r...", "..r..")
is(line(0, 1, 0, 1, ink.h), ".....", "h....", ".....")

local s = new("rkw", "wrk")
local function with(...) local t = new("...", "...", "...") t:blit(...) return t end
is(with(1, 1, s), "...", ".rk", ".wr") is(with(-1, -1, s), "rk.", "...", "...")
is(with(2, 2, s), "...", "...", "..r") is(with(0, 0, s, 1, 0, 2, 2), "kw.", "rk.", "...")
is(with(0, 0, s, -1, 0, 3, 1), ".rk", "...", "...")
is(with(0, 0, s, 2, 1, 5, 5), "k..", "...", "...")
is(with(3, 0, s), "...", "...", "...") is(with(0, 0, s, 0, 0, 1, 1, false), "r..", "...", "...")
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
screen:clear() assert(screen:pixel(9, 9) == ink.k)

local free = System.getFreeMemory()
local big = Image.createEmpty(512, 512)
assert(free - System.getFreeMemory() > 1048000) big = nil collectgarbage()
assert(free - System.getFreeMemory() < 100000))lua"));
}

TEST_F(CallsTest, PicturesAreReadAndWritten) {
    const std::string png = WritePicture(Picture(8, 6), "a");
    const std::string jpeg = WritePicture(Picture(8, 6), "a.jpg");
    const std::size_t frame = jpeg.find("\xFF\xC0");
    const std::tuple<std::string, std::size_t, const char*> large[] = {
        {png, 18, "\x10\x01"}, {png, 22, "\x10\x01"},         {png, 17, "\x01"},
        {png, 21, "\x01"},     {jpeg, frame + 5, "\x10\x01"}, {jpeg, frame + 7, "\x10\x01"}};
    int number = 0;
    for (auto [bytes, place, side] : large)
        Put(folder / (std::to_string(++number) + ".x"),
            bytes.replace(place, std::strlen(side), side));
    Put(folder / "rota.png", png.substr(0, 40));
    Put(folder / "vacia.png", "");
    for (const auto& [name, width] : {std::pair("ancha.bmp", 4097), std::pair("bien.bmp", 4096)}) {
        SDL_Surface* const bitmap =
            SDL_CreateRGBSurfaceWithFormat(0, width, 1, 24, SDL_PIXELFORMAT_RGB24);
        SDL_FillRect(bitmap, nullptr, SDL_MapRGB(bitmap->format, 1, 2, 3));
        SDL_SaveBMP(bitmap, (folder / name).c_str());
        SDL_FreeSurface(bitmap);
    }
    Passes(kInk + std::string(R"lua(
local a = new("rk.", "hbw") a:save("a.png") is(Image.load("a.png"), "rk.", "hbw")
a:save("a") is(Image.load("a"), "rk.", "hbw")
for _, name in ipairs{"a.jpg", "a.JPEG"} do
    new("ww", "ww"):save(name) is(Image.load(name), "ww", "ww")
    assert(io.open(name):read(2) == "\255\216")
end
local b = Image.load("bien.bmp") assert(b:width() == 4096 and b:pixel(4095, 0) == C(1, 2, 3))
local function no(name, text)
    local ok, why = pcall(Image.load, name)
    assert(not ok and why:find(name .. ": " .. text, 1, true), why)
end
for i = 1, 6 do no(i .. ".x", "la imagen es demasiado grande") end
no("ancha.bmp", "la imagen es demasiado grande") no("vacia.png", "la imagen está vacía")
no("rota.png", "la imagen está dañada"))lua"));
}

TEST_F(CallsTest, TextsStandInTheirCellsAndLines) {
    std::filesystem::copy("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", folder / "sans.ttf");
    Passes(kInk + std::string(R"lua(
local mono, sans = Font.createMonoSpaced(), Font.createProportional()
local function printed(...)
    local image = Image.createEmpty(100, 60)
    for _, t in ipairs{...} do image:print(t[1], t[2], t[3], t[4] or ink.r) end
    return image
end
-- The place and size of what is drawn.
local function box(image)
    local left, top, right, bottom = 99, 99, 0, 0
    each(100, 60, function(x, y)
        if image:pixel(x, y) == ink["."] then return end
        left, top = math.min(left, x), math.min(top, y)
        right, bottom = math.max(right, x), math.max(bottom, y)
    end)
    return left, top, right, bottom
end
local function within(image, x, y, width, height)
    local left, top, right, bottom = box(image)
    assert(left >= x and top >= y and right < x + width and bottom < y + height and left < right, left)
end
same(printed{0, 0, "ab\ncd"}, printed({0, 0, "a"}, {8, 0, "b"}, {0, 12, "cd"}))
same(printed{3, 5, "\tb\r"}, printed{35, 5, "b"})
same(printed{0, 0, "\241\128"}, printed{0, 0, "ñ€"})
within(printed{16, 24, "x"}, 16, 24, 8, 12) within(printed{-4, -4, "M"}, 0, 0, 4, 8)
local black = Image.createEmpty(100, 60)
black:print(0, 0, "M") same(black, printed{0, 0, "M", ink.k})

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
    local ok, why = pcall(sans.setCharSize, sans, unpack(way))
    assert(not ok and why:find("la fuente no admite ese tamaño"), i)
    assert(i == 6 or not pcall(sans.setPixelSizes, sans, unpack(way)), i)
end
sans:setPixelSizes(0, 20)
local _, m, high = size(sans, "M")
local function shown(...)
    local image = Image.createEmpty(100, 60)
    for _, t in ipairs{...} do image:fontPrint(sans, t[1], t[2], t[3], ink.r) end
    return image
end
same(shown{0, 0, "M\n\tg"}, shown({0, 0, "M"}, {select(2, size(sans, "\t")), high, "g"}))
same(shown{5, 5, "M\241\r"}, shown({5, 5, "M"}, {5 + m, 5, "ñ"}))
within(shown{10, 20, "M"}, 10, 20, m, high)

local free = System.getFreeMemory()
local more = Font.createMonoSpaced() assert(free - System.getFreeMemory() >= 2 ^ 21)
sans = Font.createProportional()
assert(size(Font.load("sans.ttf"), "Mg") == size(sans, "Mg")))lua"));
}

TEST_F(CallsTest, AShortPressOfEachButtonCountsOnce) {
    prepare = [](Player& player) {
        player.stage.Hold(0x4D2B);
        player.stage.Hold(0x1000);
    };
    EXPECT_EQ(Run(R"lua(local first, second, held = Controls.read(), Controls.read(), ""
for _, name in ipairs{"up", "down", "right", "left", "l", "r", "cross", "circle", "square",
        "triangle", "select", "start", "home", "hold", "note"} do
    held = held .. (first[name](first) and name .. " " or "")
    assert(second[name](second) == (name == "home"))
end error(held, 0))lua"),
              "up down left r square select start home note ");
}

TEST_F(CallsTest, ArgumentsAreToldFromEachOther) {
    Put(folder / "texto.png", "esto no es");
    Passes(R"lua(
local server repeat server = Socket.createServerSocket(math.random(40000, 60000)) until server
s, i, v = server, Image.createEmpty(2, 2), false
local function says(code, text)
    local ok, why = pcall(assert(loadstring(code)))
    if ok or not tostring(why):find(text, 1, true) then error(code .. ": " .. tostring(why), 2) end
end
for _, size in ipairs{"0, 5", "5, 0", "4097, 1", "1, 4097"} do
    says("Image.createEmpty(" .. size .. ")", "una imagen mide de 1 x 1 a 4096 x 4096 puntos")
end
Image.createEmpty(4096, 1) Image.createEmpty(1, 4096)
local function wants(code, number, what)
    says(code, ("el argumento %d de '%s' debe ser %s"):format(number, code:match("(%a+)%("), what))
end
wants("Image.createEmpty('x', 1)", 1, "un número") wants("Image.load({})", 1, "un texto")
wants("i:blit(0, 0, 5)", 3, "un objeto Image") wants("i.blit(i, 0, 0, 5)", 4, "un objeto Image")
wants("i.width()", 1, "un objeto Image") wants("i:pixel(0, 0, 'rojo')", 3, "un objeto Color")
wants("i:fillRect(0, 0, 1)", 4, "un número") wants("i:fontPrint(i, 0, 0, '')", 1, "un objeto Font")
wants("Controls.up(i)", 1, "un objeto Controls") wants("Sound.load(nil)", 1, "un texto")
wants("Music.volume('x')", 1, "un número")
wants("Wlan.useConnectionConfig(99)", 1, "el número de una")
wants("Socket.connect('x', 0)", 2, "un puerto de 1 a 65535")
wants("Socket:connect('x', 65536)", 2, "un puerto de 1 a 65535")
Socket.connect(("x"):rep(255), 80)
wants("Socket.connect(('x'):rep(256), 80)", 1, "el nombre o la dirección de un equipo")
wants("io.open('x', 'rw')", 2, '"r", "w", "a", "r+", "w+" o "a+"')
says("local w = {width = i.width} w:width()", "el objeto de 'width' debe ser un objeto Image")
says("Image.load('nada.png')", "'nada.png': no existe")
says("Image.load('texto.png')", "texto.png: no es una imagen PNG, JPEG, BMP o GIF")
says("Font.load('texto.png')", "texto.png: no es una fuente")
says("s:send('x')", "un socket de createServerSocket no envía; el que da accept, sí")
says("Socket.connect('127.0.0.1', 1):accept()", "solo un socket de createServerSocket puede")
says("System.listDirectory('texto.png')", "'texto.png': no es una carpeta")
says("System.createDirectory('..')", "'..': queda fuera de la carpeta del script")
for _, name in ipairs{"io.popen", "os.execute", "package.loadlib"} do
    says(name .. "('ls', 'x')", name .. " no está disponible en el reproductor")
end
local held = {} -- until there are too many
local ok, why
for n = 1, 65 do ok, why = pcall(Socket.connect, "127.0.0.1", 1) held[n] = why end
assert(not ok and why:find("hay demasiadas conexiones abiertas") and type(held[60]) == "userdata")
Wlan.term() assert(Socket.connect("127.0.0.1", 1)))lua");
}

TEST_F(CallsTest, LuasOwnLibrariesStayWithinTheFolder) {
    Put(folder / "mod/init.lua", "return 'init'");
    Put(folder / "otro/a%b.txt", "return 'otro'");
    Put(folder / "mala.lua", "\n= 1");
    Put(folder / "marca.lua", "\xEF\xBB\xBF#!/usr/bin/lua\nerror('aquí')");
    Passes(R"lua(
local function no(text, act, ...) -- fails with the text, or answers nil and the text
    local ok, why, other = pcall(act, ...)
    why = ok and assert(why == nil) and other or why
    if not why:find(text, 1, true) then error(why, 2) end
end
local function put(name, mode, text) local f = assert(io.open(name, mode)) f:write(text) f:close() end
local function get(name) local f = assert(io.open(name, "rb")) return f:read("*a"), f:close() end
put("m", "w", "abc\n") put("m", "r+", "X") assert(get("m") == "Xbc\n")
put("m", "ab", "d") assert(get("m") == "Xbc\nd") put("m", "wb", "e\nf") assert(get("m") == "e\nf")
local f = io.open("m", "w+b") f:write("q") f:seek("set") assert(f:read("*a") == "q") f:close()
f = io.open("m", "a+") f:write("r") f:seek("set") assert(f:read("*a") == "qr") f:close()
f = io.open("m") assert(not f:write("x") and f:read("*a") == "qr") f:close()
for _, mode in ipairs{"r", "r+"} do
    no("'falta': no existe", io.open, "falta", mode) assert(select(3, io.open("falta", mode)) == 2)
end
f = assert(io.tmpfile()) f:write("uno") f:seek("set") assert(f:read("*a") == "uno") f:close()
local one, two = os.tmpname(), os.tmpname()
assert(one ~= two and get(one) == "" and os.remove(one) and os.remove(two) and not io.open(one))
assert(System.createDirectory("d")) put("d/a", "w", "12345") put("d/B", "w", "")
no("'d': ya existe", System.createDirectory, "d") no("'d': la carpeta no está vacía", os.remove, "d")
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
no("prueba.lua:36: 'falta': no existe", function() io.lines("falta") end)
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
no("demasiado largo", string.gsub, "a", ("a"):rep(8193), "")
assert(select("#", unpack({}, 1, 5)) == 5)
print(1, nil, "a") print() print(setmetatable({}, {__tostring = function() return "b\tc" end}))
tostring = function() return {} end no("'tostring' debe devolver un texto", print, 1))lua");
    EXPECT_EQ(lines, (std::deque<std::string>{"1\tnil\ta", "", "b\tc"}));
    EXPECT_EQ(Run("error('sin lugar', 0)"), "sin lugar");
    EXPECT_EQ(Run("pcall(os.exit, 3) error('sigue')"), "");
    EXPECT_EQ(exitCode, 3);
    EXPECT_EQ(Run("local function f() error('x') end\nf()"), "prueba.lua:1: x");
    EXPECT_TRUE(traceback.starts_with("stack traceback:\n")) << traceback;
    EXPECT_NE(traceback.find("prueba.lua:2"), std::string::npos);
    Passes("for i = 1, 500 do print(i) end print(('x'):rep(999))");
    EXPECT_EQ(lines.size(), 400U);
    EXPECT_EQ(lines.front(), "102");
    EXPECT_EQ(lines.back(), std::string(400, 'x'));
}

} // namespace
} // namespace player
