// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Screen.h"

#include "player/Overlay.h"
#include "player/PictureFile.h"

#include <SDL_image.h>
#include <cstring>
#include <stdexcept>

namespace player {
namespace {

constexpr int kLargestScale = 4;
constexpr int kIdleMilliseconds = 100;

} // namespace

Session::Session(bool headless) {
    LimitPieces();
    if (headless) {
        SDL_setenv("SDL_VIDEODRIVER", "dummy", 1);
        SDL_setenv("SDL_AUDIODRIVER", "dummy", 1);
    }
    if (SDL_Init(SDL_INIT_VIDEO | (headless ? 0 : SDL_INIT_GAMECONTROLLER)) != 0)
        throw std::runtime_error(std::string("no se puede abrir la ventana: ") + SDL_GetError());
    // The pictures are drawn here; going through a graphics card's driver would only cost.
    if (std::strcmp(SDL_GetCurrentVideoDriver(), "x11") == 0)
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
}

Screen::Screen(const Options& options, Stage& stage) : stage_(stage) {
    if (options.Headless()) {
        stage_.Hurry();
        stage_.LimitFrames(options.frames.value_or(0));
        return;
    }
    const std::string title = options.name + " - luaplayer";
    window_.reset(SDL_CreateWindow(title.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                   kWidth, kHeight, 0));
    if (!window_)
        throw std::runtime_error(std::string("no se puede abrir la ventana: ") + SDL_GetError());
}

void Screen::Run() {
    while (!stage_.Finished()) {
        if (!Pump())
            return stage_.Stop();
        if (stage_.Take(shown_.pixels, seen_))
            stale_ = true;
        Present();
    }
    stage_.Take(shown_.pixels, seen_);
}

void Screen::ShowFailure(const Failure& failure) {
    failure_ = failure;
    console_ = false;
    stale_ = true;
    while (window_ && Pump()) {
        Present();
        SDL_WaitEventTimeout(nullptr, kIdleMilliseconds);
    }
}

// False when the user wants to end.
bool Screen::Pump() {
    SDL_Event event;
    bool goes_on = true;
    while (SDL_PollEvent(&event) != 0)
        goes_on = Handle(event) && goes_on;
    stage_.Hold(pad_.Held());
    return goes_on;
}

bool Screen::Handle(const SDL_Event& event) {
    pad_.Handle(event);
    if (event.type == SDL_WINDOWEVENT && event.window.event == SDL_WINDOWEVENT_EXPOSED)
        stale_ = true;
    if (event.type != SDL_KEYDOWN)
        return event.type != SDL_QUIT;
    stage_.Hold(pad_.Held()); // a press may end in the same moment
    switch (event.key.keysym.sym) {
    case SDLK_F1:
        console_ = !console_ && !failure_;
        stale_ = true;
        break;
    case SDLK_F2:
        ChangeScale();
        break;
    case SDLK_ESCAPE:
        return false;
    default:
        break;
    }
    return true;
}

void Screen::ChangeScale() {
    if (!window_)
        return;
    scale_ = scale_ % kLargestScale + 1;
    SDL_SetWindowSize(window_.get(), kWidth * scale_, kHeight * scale_);
    SDL_SetWindowPosition(window_.get(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED);
    stale_ = true;
}

void Screen::Compose() {
    view_.pixels = shown_.pixels;
    if (failure_)
        DrawPanel(view_, font_, *failure_);
    else if (console_)
        DrawConsole(view_, font_, stage_.Lines());
}

void Screen::Present() {
    const std::size_t printed = stage_.Printed();
    if (!window_ || (!stale_ && !(console_ && printed != printed_)))
        return;
    Compose();
    printed_ = printed;
    SDL_Surface* const target = SDL_GetWindowSurface(window_.get());
    SDL_Surface* const source = SDL_CreateRGBSurfaceWithFormatFrom(
        view_.pixels.data(), kWidth, kHeight, 32, kWidth * 4, SDL_PIXELFORMAT_RGB888);
    if (target && source) {
        SDL_Rect whole{0, 0, kWidth * scale_, kHeight * scale_};
        SDL_BlitScaled(source, nullptr, target, &whole);
        stale_ = SDL_UpdateWindowSurface(window_.get()) != 0;
    }
    SDL_FreeSurface(source);
}

bool Screen::SaveScreenshot(const std::filesystem::path& path) {
    Compose();
    SDL_Surface* const surface = SDL_CreateRGBSurfaceWithFormatFrom(
        view_.pixels.data(), kWidth, kHeight, 32, kWidth * 4, SDL_PIXELFORMAT_RGB888);
    const bool saved = surface && IMG_SavePNG(surface, path.c_str()) == 0;
    SDL_FreeSurface(surface);
    return saved;
}

} // namespace player
