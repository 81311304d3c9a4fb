// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/Failure.h"
#include "player/Options.h"
#include "player/Pad.h"
#include "player/Picture.h"
#include "player/Stage.h"
#include "player/Typeface.h"

#include <SDL.h>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

namespace player {

/// SDL, initialised for as long as this lives: the window and its game pads must be gone before.
class Session {
public:
    /// Throws std::runtime_error if there is no display.
    explicit Session(bool headless);
    ~Session() { SDL_Quit(); }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
};

/// The player's SDL window. Headless it has none and keeps the picture for the screenshot.
class Screen {
public:
    /// Throws std::runtime_error.
    Screen(const Options& options, Stage& stage);
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// Shows what the script shows, until it has finished or the user ends it.
    void Run();
    /// Shows the panel until the user closes it.
    void ShowFailure(const Failure& failure);
    /// False if the file can't be written.
    bool SaveScreenshot(const std::filesystem::path& path);

private:
    bool Pump();
    bool Handle(const SDL_Event& event);
    void ChangeScale();
    void Compose();
    void Present();

    struct Destroy {
        void operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
    };

    Stage& m_stage;
    std::unique_ptr<SDL_Window, Destroy> m_window;
    Pad m_pad;
    CellFont m_font;
    Picture m_shown{kWidth, kHeight, true};
    Picture m_view{kWidth, kHeight, true};
    std::optional<Failure> m_failure;
    uint64_t m_seen = 0;
    size_t m_printed = 0;
    int m_scale = 1;
    bool m_console = false;
    bool m_stale = true;
};

} // namespace player
