// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Screen.h"

#include "player/Overlay.h"
#include "player/PictureFile.h"

#include <SDL_image.h>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <string>

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

Screen::Screen(const Options& options, Stage& stage) : m_stage(stage) {
    if (options.Headless()) {
        m_stage.Hurry();
        m_stage.LimitFrames(options.frames.value_or(0));
        return;
    }
    const std::string title = options.name + " - luaplayer";
    m_window.reset(SDL_CreateWindow(title.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                    kWidth, kHeight, 0));
    if (!m_window)
        throw std::runtime_error(std::string("no se puede abrir la ventana: ") + SDL_GetError());
}

void Screen::Run() {
    while (!m_stage.Finished()) {
        if (!Pump())
            return m_stage.Stop();
        if (m_stage.Take(m_shown.pixels, m_seen))
            m_stale = true;
        Present();
    }
    m_stage.Take(m_shown.pixels, m_seen);
}

void Screen::ShowFailure(const Failure& failure) {
    m_failure = failure;
    m_console = false;
    m_stale = true;
    while (m_window && Pump()) {
        Present();
        SDL_WaitEventTimeout(nullptr, kIdleMilliseconds);
    }
}

// False when the user wants to end.
bool Screen::Pump() {
    SDL_Event event;
    bool goesOn = true;
    while (SDL_PollEvent(&event) != 0)
        goesOn = Handle(event) && goesOn;
    m_stage.Hold(m_pad.Held());
    return goesOn;
}

bool Screen::Handle(const SDL_Event& event) {
    m_pad.Handle(event);
    if (event.type == SDL_WINDOWEVENT && event.window.event == SDL_WINDOWEVENT_EXPOSED)
        m_stale = true;
    if (event.type != SDL_KEYDOWN)
        return event.type != SDL_QUIT;
    m_stage.Hold(m_pad.Held()); // a press may end in the same moment
    switch (event.key.keysym.sym) {
    case SDLK_F1:
        m_console = !m_console && !m_failure;
        m_stale = true;
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
    if (!m_window)
        return;
    m_scale = m_scale % kLargestScale + 1;
    SDL_SetWindowSize(m_window.get(), kWidth * m_scale, kHeight * m_scale);
    SDL_SetWindowPosition(m_window.get(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED);
    m_stale = true;
}

void Screen::Compose() {
    m_view.pixels = m_shown.pixels;
    if (m_failure)
        DrawPanel(m_view, m_font, *m_failure);
    else if (m_console)
        DrawConsole(m_view, m_font, m_stage.Lines());
}

void Screen::Present() {
    const size_t printed = m_stage.Printed();
    if (!m_window || (!m_stale && !(m_console && printed != m_printed)))
        return;
    Compose();
    m_printed = printed;
    SDL_Surface* const target = SDL_GetWindowSurface(m_window.get());
    SDL_Surface* const source = SDL_CreateRGBSurfaceWithFormatFrom(
        m_view.pixels.data(), kWidth, kHeight, 32, kWidth * 4, SDL_PIXELFORMAT_RGB888);
    if (target && source) {
        SDL_Rect whole{0, 0, kWidth * m_scale, kHeight * m_scale};
        SDL_BlitScaled(source, nullptr, target, &whole);
        m_stale = SDL_UpdateWindowSurface(m_window.get()) != 0;
    }
    SDL_FreeSurface(source);
}

bool Screen::SaveScreenshot(const std::filesystem::path& path) {
    Compose();
    SDL_Surface* const surface = SDL_CreateRGBSurfaceWithFormatFrom(
        m_view.pixels.data(), kWidth, kHeight, 32, kWidth * 4, SDL_PIXELFORMAT_RGB888);
    const bool saved = surface && IMG_SavePNG(surface, path.c_str()) == 0;
    SDL_FreeSurface(surface);
    return saved;
}

} // namespace player
