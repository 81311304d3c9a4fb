// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Pad.h"

#include <array>

namespace player {
namespace {

constexpr std::array kButtons = {
    Button{"up", SDLK_UP, SDL_CONTROLLER_BUTTON_DPAD_UP},
    Button{"down", SDLK_DOWN, SDL_CONTROLLER_BUTTON_DPAD_DOWN},
    Button{"right", SDLK_RIGHT, SDL_CONTROLLER_BUTTON_DPAD_RIGHT},
    Button{"left", SDLK_LEFT, SDL_CONTROLLER_BUTTON_DPAD_LEFT},
    Button{"l", SDLK_q, SDL_CONTROLLER_BUTTON_LEFTSHOULDER},
    Button{"r", SDLK_w, SDL_CONTROLLER_BUTTON_RIGHTSHOULDER},
    Button{"cross", SDLK_x, SDL_CONTROLLER_BUTTON_A},
    Button{"circle", SDLK_s, SDL_CONTROLLER_BUTTON_B},
    Button{"square", SDLK_z, SDL_CONTROLLER_BUTTON_X},
    Button{"triangle", SDLK_a, SDL_CONTROLLER_BUTTON_Y},
    Button{"select", SDLK_BACKSPACE, SDL_CONTROLLER_BUTTON_BACK},
    Button{"start", SDLK_RETURN, SDL_CONTROLLER_BUTTON_START},
    Button{"home", SDLK_HOME, SDL_CONTROLLER_BUTTON_GUIDE},
    Button{"hold", SDLK_h, SDL_CONTROLLER_BUTTON_LEFTSTICK},
    Button{"note", SDLK_n, SDL_CONTROLLER_BUTTON_RIGHTSTICK},
};

// The left stick pushed halfway counts as the direction.
struct Push {
    SDL_GameControllerAxis axis;
    int sign;
    Buttons button;
};

constexpr std::array kPushes = {
    Push{SDL_CONTROLLER_AXIS_LEFTY, -1, 1U << 0},
    Push{SDL_CONTROLLER_AXIS_LEFTY, 1, 1U << 1},
    Push{SDL_CONTROLLER_AXIS_LEFTX, 1, 1U << 2},
    Push{SDL_CONTROLLER_AXIS_LEFTX, -1, 1U << 3},
};
constexpr int kHalfway = 16384;

Buttons HeldOn(SDL_GameController* controller) {
    Buttons held = 0;
    for (size_t i = 0; i < kButtons.size(); ++i) {
        if (SDL_GameControllerGetButton(controller, kButtons[i].pad) != 0)
            held |= 1U << i;
    }
    for (const Push& push : kPushes) {
        if (SDL_GameControllerGetAxis(controller, push.axis) * push.sign > kHalfway)
            held |= push.button;
    }
    return held;
}

} // namespace

std::span<const Button> AllButtons() {
    return kButtons;
}

Pad::~Pad() {
    for (SDL_GameController* controller : m_controllers)
        SDL_GameControllerClose(controller);
}

void Pad::Key(SDL_Keycode key, bool down) {
    for (size_t i = 0; i < kButtons.size(); ++i) {
        if (kButtons[i].key == key)
            m_keys = down ? m_keys | 1U << i : m_keys & ~(1U << i);
    }
}

void Pad::Handle(const SDL_Event& event) {
    if (event.type == SDL_KEYDOWN || event.type == SDL_KEYUP) {
        const SDL_Keycode key = event.key.keysym.sym;
        Key(key == SDLK_KP_ENTER ? SDLK_RETURN : key, event.type == SDL_KEYDOWN);
    } else if (event.type == SDL_WINDOWEVENT && event.window.event == SDL_WINDOWEVENT_FOCUS_LOST) {
        m_keys = 0;
    } else if (event.type == SDL_CONTROLLERDEVICEADDED) {
        if (SDL_GameController* controller = SDL_GameControllerOpen(event.cdevice.which))
            m_controllers.push_back(controller);
    }
}

Buttons Pad::Held() const {
    Buttons held = m_keys;
    for (SDL_GameController* controller : m_controllers)
        held |= HeldOn(controller);
    return held;
}

} // namespace player
