// Records the SDL and SDL_ttf calls that the library makes, injects failures into
// them, counts the objects they create, and keeps each window's last presented
// frame. The test executable defines the SDL entry points itself, so the library's
// calls land here first and reach SDL through dlsym(RTLD_NEXT, ...), or on Windows
// through the exports of SDL's DLLs.
#pragma once

#include <SDL.h>
#include <SDL_ttf.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace ztest {

// One recorded call: its name, its text argument (title, path, URL) and its
// numeric arguments in order. `object` is the window, renderer or font it acted on.
struct SdlCall {
    std::string name;
    std::string text;
    std::vector<long long> args;
    void const* object = nullptr;
};

// A frame read back from a renderer just before it was presented.
struct Frame {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;  // ARGB8888, row by row

    bool empty() const { return pixels.empty(); }
    // The colour at (x, y) as "red,green,blue", "outside" off the frame.
    std::string ColorAt(int x, int y) const;
};

// What the recorder injects into the calls.
struct SdlFaults {
    bool fail_accelerated_renderer = false;
    bool fail_software_renderer = false;
    bool skip_delays = false;  // record SDL_Delay without sleeping
    // When set, TTF_OpenFont fails at once for every path it refuses.
    std::function<bool(std::string const& path)> allow_font_path;
    // The call number `fail_nth` (counted from 1 since the reset) of the creation
    // entry point named `fail_call` fails: SDL_CreateWindow, SDL_CreateRenderer,
    // SDL_CreateTextureFromSurface, TTF_OpenFont or TTF_RenderUTF8_Blended.
    std::string fail_call;
    int fail_nth = 0;
};

// A pointer that the script places by hand, for video drivers that have no real
// one: while `active`, SDL_GetMouseFocus and SDL_GetMouseState report it.
struct ScriptedPointer {
    bool active = false;
    SDL_Window* window = nullptr;  // the window that has the mouse focus, may be null
    int x = 0;
    int y = 0;
    Uint32 buttons = 0;  // SDL_BUTTON masks held down
};

// Clears the log, the faults, the scripted pointer and the frames. Live counts stay: they describe
// SDL.
void ResetRecorder();
SdlFaults& Faults();
ScriptedPointer& Pointer();

std::vector<SdlCall> RecordedCalls();
std::vector<SdlCall> RecordedCalls(std::string_view name);
int CountCalls(std::string_view name);

// Objects made through the recorded calls and not released yet, as
// "W windows R renderers T textures S surfaces F fonts".
std::string CountLiveObjects();

// How often the creation entry point `name` was called since the reset.
int CountCreations(std::string_view name);

// The most recently created window that is still open, or null.
SDL_Window* TopWindow();

// The last frame presented in the window with this ID (kept after it closed).
Frame FrameOfWindow(Uint32 window_id);

}  // namespace ztest
