// SPDX-License-Identifier: GPL-3.0-or-later
// A script's 10,000 Image:blit of 32 x 32 with alpha in a frame against the same blits of SDL's own
// software renderer, onto a target with alpha and one without, of which the faster counts. Sprites:
// random pixels with random alpha, and a disc with a soft edge. All run by turns; the medians are
// compared.
#include "player/LuaHost.h"
#include "player/Options.h"
#include "player/Stage.h"
#include "player/api/Api.h"

#include <SDL.h>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace player;

constexpr int kSide = 32;
constexpr int kBlits = 10000;
constexpr int kRounds = 9;

using Sprite = std::vector<Uint32>;

Sprite Noise() {
    std::mt19937 random(1);
    Sprite sprite(size_t{kSide} * kSide);
    std::generate(sprite.begin(), sprite.end(), [&] { return static_cast<Uint32>(random()); });
    return sprite;
}

Sprite Disc() {
    Sprite sprite;
    for (int i = 0; i < kSide * kSide; ++i) {
        const int x = i % kSide;
        const int y = i / kSide;
        const double away = std::hypot(x - 15.5, y - 15.5);
        sprite.push_back(static_cast<Uint32>(std::clamp(15.5 - away, 0.0, 2.0) * 127) << 24 |
                         0xFF8040);
    }
    return sprite;
}

// The sprite as a picture that the script makes itself.
std::string Script(const Sprite& sprite) {
    std::string text = "local s = Image.createEmpty(32, 32)\n";
    for (int i = 0; i < kSide * kSide; ++i) {
        const Uint32 p = sprite[static_cast<size_t>(i)];
        char line[100];
        std::snprintf(line, sizeof line, "s:pixel(%d, %d, Color.new(%u, %u, %u, %u))\n", i % kSide,
                      i / kSide, p >> 16 & 255, p >> 8 & 255, p & 255, p >> 24);
        text += line;
    }
    return text + R"(
        while true do
            for i = 1, 10000 do screen:blit(i * 7 % 448, i * 3 % 240, s) end
            screen.flip()
            screen.waitVblankStart()
        end)";
}

// What a frame of the script takes: the time of many less that of one.
double Ours(const std::string& script) {
    const auto seconds = [&](int frames) {
        Options options;
        options.folder = ".";
        Player player(options);
        player.stage.Hurry();
        player.stage.LimitFrames(frames);
        LuaHost host(player, &OpenLibraries);
        const auto start = std::chrono::steady_clock::now();
        if (const auto failure = host.Run(script, "bench"))
            std::printf("%s\n", failure->message.c_str());
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    constexpr int kFrames = 8;
    return (seconds(1 + kFrames) - seconds(1)) / kFrames;
}

double Theirs(Sprite sprite, Uint32 format) {
    SDL_Surface* const source = SDL_CreateRGBSurfaceWithFormatFrom(
        sprite.data(), kSide, kSide, 32, kSide * 4, SDL_PIXELFORMAT_ARGB8888);
    SDL_Surface* const target = SDL_CreateRGBSurfaceWithFormat(0, kWidth, kHeight, 32, format);
    SDL_SetSurfaceBlendMode(source, SDL_BLENDMODE_BLEND);
    SDL_FillRect(target, nullptr, SDL_MapRGBA(target->format, 0, 0, 0, 255));
    constexpr int kFrames = 8;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kFrames * kBlits; ++i) {
        SDL_Rect place{i * 7 % 448, i * 3 % 240, 0, 0};
        SDL_BlitSurface(source, nullptr, target, &place);
    }
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    SDL_FreeSurface(source);
    SDL_FreeSurface(target);
    return time.count() / kFrames;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2] * 1000;
}

void Compare(const char* name, const Sprite& sprite) {
    const std::string script = Script(sprite);
    std::vector<double> ours, alpha, plain;
    for (int i = 0; i < kRounds; ++i) {
        ours.push_back(Ours(script));
        alpha.push_back(Theirs(sprite, SDL_PIXELFORMAT_ARGB8888));
        plain.push_back(Theirs(sprite, SDL_PIXELFORMAT_RGB888));
    }
    const double best = std::min(Median(alpha), Median(plain));
    std::printf("%-6s ours %.2f ms, SDL %.2f ms with alpha, %.2f ms without; ratio %.2f\n", name,
                Median(ours), Median(alpha), Median(plain), Median(ours) / best);
}

} // namespace

int main() {
    Compare("noise", Noise());
    Compare("disc", Disc());
}
