// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/api/Image.h"

#include "player/Color.h"
#include "player/LuaHost.h"
#include "player/Memory.h"
#include "player/PictureFile.h"
#include "player/Player.h"
#include "player/ScriptError.h"
#include "player/Userdata.h"
#include "player/api/Api.h"

#include <algorithm>
#include <string>
#include <utility>

namespace player {
namespace {

constexpr Pixel kClear = 0;
constexpr size_t kLongestText = size_t{1} << 20; // far beyond what is seen

void PushPicture(lua_State* L, Picture picture, Share share) {
    picture.share = std::move(share);
    Type<ImageValue>::Push(L, {std::make_shared<Picture>(std::move(picture))});
}

Share ReservePixels(lua_State* L, int width, int height) {
    return Reserve(L, static_cast<size_t>(width) * static_cast<size_t>(height) * sizeof(Pixel));
}

Rect RectAt(lua_State* L, int index) {
    return {Integer(L, index), Integer(L, index + 1), Integer(L, index + 2), Integer(L, index + 3)};
}

int CreateEmpty(lua_State* L, Player&) {
    const int width = Integer(L, 1);
    const int height = Integer(L, 2);
    if (std::min(width, height) < 1 || std::max(width, height) > kMostSide)
        throw ScriptError("una imagen mide de 1 x 1 a 4096 x 4096 puntos");
    Share share = ReservePixels(L, width, height);
    PushPicture(L, Picture(width, height), std::move(share));
    return 1;
}

int LoadImage(lua_State* L, Player& player) {
    const std::string name = Text(L, 1);
    const std::string bytes = player.folder.Read(name, player.memory.Free());
    try {
        Picture picture = ReadPicture(bytes);
        Share share = ReservePixels(L, picture.width, picture.height);
        PushPicture(L, std::move(picture), std::move(share));
    } catch (const ScriptError& error) {
        throw ScriptError(name + ": " + error.what());
    }
    return 1;
}

int Save(lua_State* L, Player& player) {
    const std::string name = Text(L, 2);
    player.folder.Write(name, WritePicture(CheckPicture(L, 1), name));
    return 0;
}

// Without a colour a picture becomes transparent; the screen, which can't, black.
int Clear(lua_State* L, Player&) {
    CheckPicture(L, 1).Clear(CheckColor(L, 2, kClear));
    return 0;
}

int FillRect(lua_State* L, Player&) {
    CheckPicture(L, 1).Fill(RectAt(L, 2), CheckColor(L, 6, kBlack));
    return 0;
}

int DrawLine(lua_State* L, Player&) {
    const Rect ends = RectAt(L, 2);
    CheckPicture(L, 1).Line(ends.x, ends.y, ends.width, ends.height, CheckColor(L, 6, kBlack));
    return 0;
}

// Image:blit(x, y, source, [sourcex, sourcey, width, height], [alpha = true])
int Blit(lua_State* L, Player&) {
    Picture& target = CheckPicture(L, 1);
    const Picture& source = CheckPicture(L, 4);
    const bool whole = !Given(L, 5) || lua_isboolean(L, 5);
    const Rect part = whole ? Rect{0, 0, source.width, source.height} : RectAt(L, 5);
    const int alpha = lua_isboolean(L, 5) ? 5 : 9;
    target.Blit(Integer(L, 2), Integer(L, 3), source, part, Boolean(L, alpha, true));
    return 0;
}

// Image:pixel(x, y, [color]); a place outside is transparent, and takes no colour.
int PixelAt(lua_State* L, Player&) {
    Picture& picture = CheckPicture(L, 1);
    const int x = Integer(L, 2);
    const int y = Integer(L, 3);
    const bool inside = picture.Contains(x, y);
    if (!Given(L, 4)) {
        Type<Color>::Push(L, {inside ? picture.At(x, y) : kClear});
        return 1;
    }
    const Pixel color = CheckColor(L, 4, kBlack);
    if (inside)
        picture.Set(x, y, color);
    return 0;
}

int Print(lua_State* L, Player& player) {
    Picture& picture = CheckPicture(L, 1);
    const std::string text = Text(L, 4).substr(0, kLongestText);
    player.cells.Draw(picture, Integer(L, 2), Integer(L, 3), text, CheckColor(L, 5, kBlack));
    return 0;
}

int Width(lua_State* L, Player&) {
    lua_pushinteger(L, CheckPicture(L, 1).width);
    return 1;
}

int Height(lua_State* L, Player&) {
    lua_pushinteger(L, CheckPicture(L, 1).height);
    return 1;
}

constexpr luaL_Reg kFunctions[] = {
    {"createEmpty", Call<&CreateEmpty>},
    {"load", Call<&LoadImage>},
    {"save", Call<&Save>},
    {"clear", Call<&Clear>},
    {"fillRect", Call<&FillRect>},
    {"drawLine", Call<&DrawLine>},
    {"blit", Call<&Blit>},
    {"pixel", Call<&PixelAt>},
    {"print", Call<&Print>},
    {"width", Call<&Width>},
    {"height", Call<&Height>},
    {},
};

} // namespace

Picture& CheckPicture(lua_State* L, int index) {
    return *Type<ImageValue>::Check(L, index).picture;
}

Pixel CheckColor(lua_State* L, int index, Pixel otherwise) {
    return Given(L, index) ? Type<Color>::Check(L, index).pixel : otherwise;
}

void OpenImage(lua_State* L, Player&) {
    PushTable(L, kFunctions);
    Type<ImageValue>::Register(L);
    lua_setglobal(L, "Image");
}

} // namespace player
