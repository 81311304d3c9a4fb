// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "player/Stage.h"

#include <SDL.h>
#include <span>
#include <vector>

namespace player {

/// A button of the console, and what holds it down here.
struct Button {
    const char* name;
    SDL_Keycode key;
    SDL_GameControllerButton pad;
};

/// In the order of the bits of Buttons.
std::span<const Button> AllButtons();

/// The buttons held with the keyboard and all of SDL's game controllers.
class Pad {
public:
    ~Pad();

    void Handle(const SDL_Event& event);
    Buttons Held() const;

private:
    void Key(SDL_Keycode key, bool down);

    Buttons m_keys = 0;
    std::vector<SDL_GameController*> m_controllers;
};

} // namespace player
