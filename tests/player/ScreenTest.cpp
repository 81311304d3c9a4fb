// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Screen.h"
#include "player/Color.h"
#include "player/Encoding.h"
#include "player/Overlay.h"

#include <gtest/gtest.h>
#include <thread>

namespace player {
namespace {

// A picture of the script's.
Picture Sky() {
    Picture picture(kWidth, kHeight, true);
    picture.Clear(0xFF4080C0);
    picture.Set(100, 50, kBlack);
    return picture;
}

SDL_Event Key(Uint32 type, SDL_Keycode key) {
    SDL_Event event{type};
    event.key.keysym.sym = key;
    return event;
}

// The player's window, without a display.
class ScreenTest : public ::testing::Test {
protected:
    ScreenTest() { stage.Show(sky.pixels); }
    static void SetUpTestSuite() { setenv("SDL_VIDEODRIVER", "dummy", 1); }

    static void Type(SDL_Keycode key) {
        for (SDL_Event event : {Key(SDL_KEYDOWN, key), Key(SDL_KEYUP, key)})
            SDL_PushEvent(&event);
    }
    // The window runs and is closed, again and again, until it shows the picture.
    bool Shows(const Picture& picture, int scale = 1) {
        for (int i = 0; i < 100 && !IsShown(picture, scale); ++i) {
            SDL_Event close{SDL_QUIT};
            const std::jthread user([&] { SDL_PushEvent(&close); });
            screen.Run();
        }
        return IsShown(picture, scale);
    }
    bool IsShown(const Picture& picture, int scale) {
        const SDL_Surface* const surface = SDL_GetWindowSurface(window);
        bool same = surface->w == kWidth * scale && surface->h == kHeight * scale;
        for (int i = 0; same && i < surface->w * surface->h; ++i) {
            const Pixel shown = static_cast<const Pixel*>(surface->pixels)[i] | kOpaque;
            same = shown == picture.At(i % surface->w / scale, i / surface->w / scale);
        }
        return same;
    }

    const Session session{false};
    Stage stage;
    Screen screen{std::get<Options>(ReadOptions({"año.lua"})), stage};
    SDL_Window* window = SDL_GetWindowFromID(1);
    CellFont font;
    const Picture sky = Sky();
};

TEST_F(ScreenTest, TheWindowShowsThePictureInFourSizesTheConsoleAndAFailure) {
    EXPECT_STREQ(SDL_GetWindowTitle(window), "año.lua - luaplayer");
    Type(SDLK_x);
    Type(SDLK_ESCAPE);
    screen.Run();
    EXPECT_TRUE(stage.Stopping());
    EXPECT_EQ(stage.TakeButtons(), 1U << 6); // cross, though its press is over
    for (const int scale : {1, 2, 3, 4}) {
        EXPECT_TRUE(Shows(sky, scale)) << scale;
        Type(SDLK_F2);
    }
    Type(SDLK_F1);
    for (const char* more : {"uno\n", "dos\n"}) {
        stage.Print(more);
        Picture console = Sky();
        DrawConsole(console, font, stage.Lines());
        EXPECT_TRUE(Shows(console)) << more;
    }
    Type(SDLK_F1);
    EXPECT_TRUE(Shows(sky));
    Type(SDLK_F1);
    Type(SDLK_ESCAPE);
    const Failure failure{"a.lua:1: x", ""};
    screen.ShowFailure(failure); // the panel stands over the console
    Type(SDLK_F1);
    Picture panel = Sky();
    DrawPanel(panel, font, failure);
    EXPECT_TRUE(Shows(panel));
    stage.Finish();
    screen.Run(); // doesn't wait for anybody
}

TEST_F(ScreenTest, KeysAndGamePadsHoldTheButtons) {
    SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
    SDL_Joystick* const stick = SDL_JoystickOpen(SDL_JoystickAttachVirtual(
        SDL_JOYSTICK_TYPE_GAMECONTROLLER, SDL_CONTROLLER_AXIS_MAX, SDL_CONTROLLER_BUTTON_MAX, 0));
    Pad pad;
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0)
        pad.Handle(event);
    SDL_Event left{SDL_WINDOWEVENT};
    left.window.event = SDL_WINDOWEVENT_FOCUS_LOST;
    constexpr Buttons kUp = 1, kDown = 2, kRight = 4, kLeft = 8, kStart = 1U << 11;
    for (unsigned i = 0;
         const SDL_Keycode key :
         {SDLK_UP, SDLK_DOWN, SDLK_RIGHT, SDLK_LEFT, SDLK_q, SDLK_w, SDLK_x, SDLK_s, SDLK_z, SDLK_a,
          SDLK_BACKSPACE, SDLK_KP_ENTER, SDLK_HOME, SDLK_h, SDLK_n}) {
        for (const Uint8 down : {1, 0}) {
            SDL_JoystickSetVirtualButton(stick, AllButtons()[i].pad, down);
            SDL_GameControllerUpdate();
            EXPECT_EQ(pad.Held(), down ? 1U << i : 0);
        }
        pad.Handle(Key(SDL_KEYDOWN, SDLK_RETURN));
        pad.Handle(Key(SDL_KEYDOWN, key));
        EXPECT_EQ(pad.Held(), kStart | 1U << i);
        pad.Handle(Key(SDL_KEYUP, key));
        EXPECT_EQ(pad.Held(), kStart & ~(1U << i));
        pad.Handle(left);
        ++i;
    }
    const std::tuple<int, Sint16, Buttons> pushes[] = {
        {SDL_CONTROLLER_AXIS_LEFTY, -20000, kUp},   {SDL_CONTROLLER_AXIS_LEFTY, 20000, kDown},
        {SDL_CONTROLLER_AXIS_LEFTX, 20000, kRight}, {SDL_CONTROLLER_AXIS_LEFTX, -20000, kLeft},
        {SDL_CONTROLLER_AXIS_LEFTX, 12000, 0},      {SDL_CONTROLLER_AXIS_RIGHTX, 20000, 0}};
    for (const auto& [axis, value, buttons] : pushes) {
        SDL_JoystickSetVirtualAxis(stick, axis, value);
        SDL_GameControllerUpdate();
        EXPECT_EQ(pad.Held(), buttons) << axis << ' ' << value;
        SDL_JoystickSetVirtualAxis(stick, axis, 0);
    }
}

TEST(OverlayTest, ThePanelAndTheConsoleTellTheScriptsErrorAndWhatItPrinted) {
    constexpr Pixel kWhite = 0xFFFFFFFF, kGrey = 0xFFC0C0C8, kYellow = 0xFFFFE060;
    constexpr Pixel kRed = 0xFFB02020, kPanel = 0xF0202028, kShade = 0xB0000000;
    constexpr int kLeft = 8, kBand = 18, kFitting = 15 * 2 - 1; // fifteen lines of an x
    CellFont font;
    const std::string row(58, '\xF1'); // as wide as it goes
    const std::string many = "x\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx";
    // The failure; its place; its text behind the row where it begins; the row of the traceback.
    const std::tuple<Failure, std::string, int, std::string, int> panels[] = {
        {{"juego.lua:3: mal", "pila"}, "Archivo: juego.lua\nLínea: 3", 54, "mal", 72},
        {{"a:b:12: x: y", many + many}, "Archivo: a:b\nLínea: 12", 54, "x: y", 72},
        {{"a:1:x a:: y", "pila"}, "", 24, "a:1:x a:: y", 42},
        {{row + row + "\na\tb", "pila"}, "", 24, row + '\n' + row + "\na b", 66}};
    for (const auto& [failure, place, top, text, bottom] : panels) {
        Picture drawn = Sky(), expected = Sky();
        DrawPanel(drawn, font, failure);
        expected.Fill({0, 0, kWidth, kHeight}, kPanel);
        for (const int band : {0, kHeight - kBand})
            expected.Fill({0, band, kWidth, kBand}, kRed);
        font.Draw(expected, kLeft, 3, "Error en el script", kWhite);
        font.Draw(expected, kLeft, kHeight - 15, "Escape: cerrar", kWhite);
        font.Draw(expected, kLeft, 24, place, kYellow);
        font.Draw(expected, kLeft, top, text, kWhite);
        font.Draw(expected, kLeft, bottom, failure.traceback.substr(0, kFitting), kGrey);
        EXPECT_TRUE(drawn.pixels == expected.pixels) << failure.message;
    }
    std::deque<std::string> lines(30, "x");
    lines.push_back(row + "dos");
    Picture drawn = Sky(), expected = Sky();
    DrawConsole(drawn, font, lines);
    expected.Fill({0, 0, kWidth, kHeight}, kShade);
    font.Draw(expected, kLeft, 0, many + "\nx\nx\nx\n" + row + "\ndos", kWhite);
    EXPECT_TRUE(drawn.pixels == expected.pixels);
}

TEST(EncodingTest, TextsAreUtf8OrElseWindows1252) {
    const std::pair<std::string, std::u32string> texts[] = {
        {"a\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF", U"a\x80\u07FF\u0800\uFFFF"},
        {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", U"\U00010000\U0010FFFF"},
        {"\xC1\xBF", U"\u00C1\u00BF"}, // longer than need be
        {"\xE0\x9F\xBF", U"\u00E0\u0178\u00BF"},
        {"\xED\xA0\x80", U"\u00ED\u00A0\u20AC"}, // half a character
        {"\xF4\x90\x80\x80", U"\u00F4\u0090\u20AC\u20AC"},
        {"ma\xC3", U"ma\u00C3"},
        {"\xE1\x84 \xFF", U"\u00E1\u201E \u00FF"},
    };
    for (const auto& [bytes, characters] : texts)
        EXPECT_TRUE(Decode(bytes) == characters && Decode(ToUtf8(bytes)) == characters) << bytes;
    EXPECT_EQ(ToUtf8("\x7F\x80\xF1"), "\x7F\xE2\x82\xAC\xC3\xB1");
}

} // namespace
} // namespace player
