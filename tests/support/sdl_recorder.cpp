// Interposed SDL and SDL_ttf entry points: log, faults, object counts, frame capture.
#include "support/sdl_recorder.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

#include <algorithm>
#include <iterator>
#include <map>
#include <set>

namespace ztest {

namespace {

// Everything runs on the one thread of the dialogs, so the state has no lock.
struct RecorderState {
    std::vector<SdlCall> calls;
    SdlFaults faults;
    ScriptedPointer pointer;
    std::set<void const*> windows, renderers, textures, surfaces, fonts;
    std::vector<SDL_Window*> window_stack;
    std::map<Uint32, Frame> frames;
    std::map<std::string, int, std::less<>> creations;
};

RecorderState& State() {
    static RecorderState state;
    return state;
}

void Record(std::string name, std::string text = {}, std::vector<long long> args = {},
            void const* object = nullptr) {
    State().calls.push_back({std::move(name), std::move(text), std::move(args), object});
}

// Moves `object` into or out of a set of live objects; Release tells whether it was ours.
void Track(std::set<void const*>& live, void const* object) {
    live.insert(object);
    live.erase(nullptr);
}
bool Release(std::set<void const*>& live, void const* object) {
    return live.erase(object) > 0;
}

// Counts one call of the creation entry point `name`; true when it is the one to fail.
bool FailCreation(char const* name) {
    int const number = ++State().creations[name];
    return State().faults.fail_nth == number && State().faults.fail_call == name;
}

// The library's calls reach the definitions below; the real entry point is the next
// definition of the name on Linux, and the export of SDL's own DLL on Windows, where
// the test executable's definitions take the place of the import library's.
template <typename Fn>
Fn Real(char const* name) {
#ifdef _WIN32
    HMODULE const module = GetModuleHandleW(name[0] == 'T' ? L"SDL2_ttf.dll" : L"SDL2.dll");
    auto* symbol =
        module != nullptr ? reinterpret_cast<void*>(GetProcAddress(module, name)) : nullptr;
#else
    void* symbol = dlsym(RTLD_NEXT, name);
#endif
    if (symbol == nullptr) {
        SDL_Log("test recorder: no real %s", name);
        std::abort();
    }
    return reinterpret_cast<Fn>(symbol);
}

#define ZTEST_REAL(name) static auto const real = ztest::Real<decltype(&name)>(#name)

void CaptureFrame(SDL_Renderer* renderer) {
    SDL_Window* window = SDL_RenderGetWindow(renderer);
    Frame frame;
    if (window == nullptr ||
        SDL_GetRendererOutputSize(renderer, &frame.width, &frame.height) != 0 || frame.width <= 0 ||
        frame.height <= 0) {
        return;
    }
    frame.pixels.resize(static_cast<std::size_t>(frame.width) * frame.height);
    if (SDL_RenderReadPixels(renderer, nullptr, SDL_PIXELFORMAT_ARGB8888, frame.pixels.data(),
                             frame.width * 4) == 0) {
        State().frames[SDL_GetWindowID(window)] = std::move(frame);
    }
}

}  // namespace

std::string Frame::ColorAt(int x, int y) const {
    if (x < 0 || y < 0 || x >= width || y >= height) {
        return "outside";
    }
    std::uint32_t const p = pixels[static_cast<std::size_t>(y) * width + x];
    return std::to_string((p >> 16) & 0xFF) + "," + std::to_string((p >> 8) & 0xFF) + "," +
           std::to_string(p & 0xFF);
}

void ResetRecorder() {
    State().calls.clear();
    State().faults = SdlFaults{};
    State().pointer = ScriptedPointer{};
    State().frames.clear();
    State().creations.clear();
}

SdlFaults& Faults() {
    return State().faults;
}

ScriptedPointer& Pointer() {
    return State().pointer;
}

std::vector<SdlCall> RecordedCalls() {
    return State().calls;
}

std::vector<SdlCall> RecordedCalls(std::string_view name) {
    std::vector<SdlCall> named;
    std::copy_if(State().calls.begin(), State().calls.end(), std::back_inserter(named),
                 [name](SdlCall const& call) { return call.name == name; });
    return named;
}

int CountCalls(std::string_view name) {
    return static_cast<int>(RecordedCalls(name).size());
}

int CountCreations(std::string_view name) {
    auto const it = State().creations.find(name);
    return it == State().creations.end() ? 0 : it->second;
}

std::string CountLiveObjects() {
    RecorderState const& s = State();
    return std::to_string(s.windows.size()) + " windows " + std::to_string(s.renderers.size()) +
           " renderers " + std::to_string(s.textures.size()) + " textures " +
           std::to_string(s.surfaces.size()) + " surfaces " + std::to_string(s.fonts.size()) +
           " fonts";
}

SDL_Window* TopWindow() {
    return State().window_stack.empty() ? nullptr : State().window_stack.back();
}

Frame FrameOfWindow(Uint32 window_id) {
    auto const it = State().frames.find(window_id);
    return it == State().frames.end() ? Frame{} : it->second;
}

}  // namespace ztest

using ztest::Faults;
using ztest::Record;
using ztest::State;

extern "C" {

// Entry points that are only recorded, with the object they act on and their
// numeric arguments, then forwarded.
#define ZTEST_RECORDED(ret, name, params, args, object, numbers) \
    ret name params {                                            \
        ZTEST_REAL(name);                                        \
        Record(#name, {}, numbers, object);                      \
        return real args;                                        \
    }

ZTEST_RECORDED(void, SDL_GetWindowPosition, (SDL_Window * window, int* x, int* y), (window, x, y),
               window, {})
ZTEST_RECORDED(int, SDL_SetWindowModalFor, (SDL_Window * modal, SDL_Window* parent),
               (modal, parent), modal, {})
ZTEST_RECORDED(void, SDL_RaiseWindow, (SDL_Window * window), (window), window, {})
ZTEST_RECORDED(int, SDL_SetWindowInputFocus, (SDL_Window * window), (window), window, {})
ZTEST_RECORDED(void, SDL_ShowWindow, (SDL_Window * window), (window), window, {})
ZTEST_RECORDED(void, SDL_SetWindowSize, (SDL_Window * window, int w, int h), (window, w, h), window,
               (std::vector<long long>{w, h}))
ZTEST_RECORDED(void, SDL_StartTextInput, (void), (), nullptr, {})
ZTEST_RECORDED(void, SDL_StopTextInput, (void), (), nullptr, {})
ZTEST_RECORDED(int, TTF_Init, (void), (), nullptr, {})
ZTEST_RECORDED(int, TTF_WasInit, (void), (), nullptr, {})

// Release functions: a release of one of ours is recorded when `logged`, then forwarded.
#define ZTEST_RELEASE(name, type, live, logged)                 \
    void name(type* object) {                                   \
        ZTEST_REAL(name);                                       \
        if (ztest::Release(State().live, object) && (logged)) { \
            Record(#name, {}, {}, object);                      \
        }                                                       \
        real(object);                                           \
    }

ZTEST_RELEASE(SDL_DestroyRenderer, SDL_Renderer, renderers, true)
ZTEST_RELEASE(SDL_DestroyTexture, SDL_Texture, textures, false)
ZTEST_RELEASE(SDL_FreeSurface, SDL_Surface, surfaces, false)
ZTEST_RELEASE(TTF_CloseFont, TTF_Font, fonts, true)

SDL_Window* SDL_CreateWindow(char const* title, int x, int y, int w, int h, Uint32 flags) {
    ZTEST_REAL(SDL_CreateWindow);
    Record("SDL_CreateWindow", title != nullptr ? title : "", {x, y, w, h, flags});
    if (ztest::FailCreation("SDL_CreateWindow")) {
        return nullptr;
    }
    SDL_Window* window = real(title, x, y, w, h, flags);
    ztest::Track(State().windows, window);
    if (window != nullptr) {
        State().window_stack.push_back(window);
    }
    return window;
}

void SDL_DestroyWindow(SDL_Window* window) {
    ZTEST_REAL(SDL_DestroyWindow);
    if (ztest::Release(State().windows, window)) {
        Record("SDL_DestroyWindow", {}, {}, window);
        auto& stack = State().window_stack;
        stack.erase(std::remove(stack.begin(), stack.end(), window), stack.end());
    }
    real(window);
}

SDL_Renderer* SDL_CreateRenderer(SDL_Window* window, int index, Uint32 flags) {
    ZTEST_REAL(SDL_CreateRenderer);
    Record("SDL_CreateRenderer", {}, {index, flags}, window);
    bool const accelerated = (flags & SDL_RENDERER_ACCELERATED) != 0;
    bool const software = (flags & SDL_RENDERER_SOFTWARE) != 0;
    if (ztest::FailCreation("SDL_CreateRenderer") ||
        (accelerated && Faults().fail_accelerated_renderer) ||
        (software && Faults().fail_software_renderer)) {
        return nullptr;
    }
    SDL_Renderer* renderer = real(window, index, flags);
    ztest::Track(State().renderers, renderer);
    return renderer;
}

void SDL_RenderPresent(SDL_Renderer* renderer) {
    ZTEST_REAL(SDL_RenderPresent);
    ztest::CaptureFrame(renderer);
    Record("SDL_RenderPresent", {}, {}, SDL_RenderGetWindow(renderer));
    real(renderer);
}

void SDL_Delay(Uint32 ms) {
    ZTEST_REAL(SDL_Delay);
    Record("SDL_Delay", {}, {ms});
    if (!Faults().skip_delays) {
        real(ms);
    }
}

// Never opens a browser or a native box during a test: both are recorded only.
int SDL_OpenURL(char const* url) {
    Record("SDL_OpenURL", url != nullptr ? url : "");
    return 0;
}

int SDL_ShowSimpleMessageBox(Uint32 flags, char const* title, char const* message,
                             SDL_Window* window) {
    std::string const text =
        std::string(title != nullptr ? title : "") + '\n' + (message != nullptr ? message : "");
    Record("SDL_ShowSimpleMessageBox", text, {flags}, window);
    return 0;
}

SDL_Texture* SDL_CreateTextureFromSurface(SDL_Renderer* renderer, SDL_Surface* surface) {
    ZTEST_REAL(SDL_CreateTextureFromSurface);
    if (ztest::FailCreation("SDL_CreateTextureFromSurface")) {
        return nullptr;
    }
    SDL_Texture* texture = real(renderer, surface);
    ztest::Track(State().textures, texture);
    return texture;
}

TTF_Font* TTF_OpenFont(char const* file, int ptsize) {
    ZTEST_REAL(TTF_OpenFont);
    std::string const path = file != nullptr ? file : "";
    bool const refused = ztest::FailCreation("TTF_OpenFont") ||
                         (Faults().allow_font_path && !Faults().allow_font_path(path));
    TTF_Font* font = refused ? nullptr : real(file, ptsize);
    // The second argument tells whether the font opened.
    Record("TTF_OpenFont", path, {ptsize, font != nullptr ? 1 : 0});
    ztest::Track(State().fonts, font);
    return font;
}

SDL_Surface* TTF_RenderUTF8_Blended(TTF_Font* font, char const* text, SDL_Color fg) {
    ZTEST_REAL(TTF_RenderUTF8_Blended);
    if (ztest::FailCreation("TTF_RenderUTF8_Blended")) {
        return nullptr;
    }
    SDL_Surface* surface = real(font, text, fg);
    ztest::Track(State().surfaces, surface);
    return surface;
}

SDL_Window* SDL_GetMouseFocus(void) {
    ZTEST_REAL(SDL_GetMouseFocus);
    ztest::ScriptedPointer const& pointer = ztest::Pointer();
    return pointer.active ? pointer.window : real();
}

Uint32 SDL_GetMouseState(int* x, int* y) {
    ZTEST_REAL(SDL_GetMouseState);
    ztest::ScriptedPointer const& pointer = ztest::Pointer();
    if (!pointer.active) {
        return real(x, y);
    }
    if (x != nullptr) {
        *x = pointer.x;
    }
    if (y != nullptr) {
        *y = pointer.y;
    }
    return pointer.buttons;
}

}  // extern "C"
