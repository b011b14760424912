// Interposed SDL and SDL_ttf entry points: log, faults, object counts, frame capture.
#include "support/sdl_recorder.h"

#include <dlfcn.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <set>

namespace ztest {

namespace {

struct RecorderState {
    std::mutex mutex;
    std::vector<SdlCall> calls;
    SdlFaults faults;
    ScriptedPointer pointer;
    std::set<void const*> windows;
    std::set<void const*> renderers;
    std::set<void const*> textures;
    std::set<void const*> surfaces;
    std::set<void const*> fonts;
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
    auto& s = State();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.calls.push_back({std::move(name), std::move(text), std::move(args), object});
}

// Removes `object` from `live`; true if it was one of ours.
bool Release(std::set<void const*>& live, void const* object) {
    std::lock_guard<std::mutex> lock(State().mutex);
    return live.erase(object) > 0;
}

void Track(std::set<void const*>& live, void const* object) {
    if (object != nullptr) {
        std::lock_guard<std::mutex> lock(State().mutex);
        live.insert(object);
    }
}

// Counts one call of the creation entry point `name`; true when it is the one to fail.
bool FailCreation(char const* name) {
    auto& s = State();
    std::lock_guard<std::mutex> lock(s.mutex);
    int const number = ++s.creations[name];
    return s.faults.fail_nth == number && s.faults.fail_call == name;
}

template <typename Fn>
Fn Real(char const* name) {
    void* symbol = dlsym(RTLD_NEXT, name);
    if (symbol == nullptr) {
        SDL_Log("test recorder: no real %s", name);
        std::abort();
    }
    return reinterpret_cast<Fn>(symbol);
}

#define ZTEST_REAL(name) static auto const real = ztest::Real<decltype(&name)>(#name)

void CaptureFrame(SDL_Renderer* renderer) {
    SDL_Window* window = SDL_RenderGetWindow(renderer);
    int w = 0;
    int h = 0;
    if (window == nullptr || SDL_GetRendererOutputSize(renderer, &w, &h) != 0 || w <= 0 || h <= 0) {
        return;
    }
    Frame frame;
    frame.width = w;
    frame.height = h;
    frame.pixels.resize(static_cast<std::size_t>(w) * static_cast<std::size_t>(h));
    if (SDL_RenderReadPixels(renderer, nullptr, SDL_PIXELFORMAT_ARGB8888, frame.pixels.data(),
                             w * 4) != 0) {
        return;
    }
    auto& s = State();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.frames[SDL_GetWindowID(window)] = std::move(frame);
}

}  // namespace

SDL_Color Frame::At(int x, int y) const {
    if (x < 0 || y < 0 || x >= width || y >= height) {
        return {0, 0, 0, 0};
    }
    std::uint32_t const p = pixels[static_cast<std::size_t>(y) * width + x];
    return {static_cast<Uint8>(p >> 16), static_cast<Uint8>(p >> 8), static_cast<Uint8>(p), 255};
}

void ResetRecorder() {
    auto& s = State();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.calls.clear();
    s.faults = SdlFaults{};
    s.pointer = ScriptedPointer{};
    s.frames.clear();
    s.creations.clear();
}

SdlFaults& Faults() {
    return State().faults;
}

ScriptedPointer& Pointer() {
    return State().pointer;
}

std::vector<SdlCall> RecordedCalls() {
    std::lock_guard<std::mutex> lock(State().mutex);
    return State().calls;
}

std::vector<SdlCall> RecordedCalls(std::string_view name) {
    std::vector<SdlCall> named;
    for (SdlCall const& call : RecordedCalls()) {
        if (call.name == name) {
            named.push_back(call);
        }
    }
    return named;
}

std::vector<std::string> RecordedCallNames() {
    std::vector<std::string> names;
    for (SdlCall const& call : RecordedCalls()) {
        names.push_back(call.name);
    }
    return names;
}

int CountCreations(std::string_view name) {
    auto& s = State();
    std::lock_guard<std::mutex> lock(s.mutex);
    auto const it = s.creations.find(name);
    return it == s.creations.end() ? 0 : it->second;
}

int CountCalls(std::string_view name) {
    return static_cast<int>(RecordedCalls(name).size());
}

void ClearRecordedCalls() {
    std::lock_guard<std::mutex> lock(State().mutex);
    State().calls.clear();
}

LiveObjects CountLiveObjects() {
    auto& s = State();
    std::lock_guard<std::mutex> lock(s.mutex);
    return {static_cast<int>(s.windows.size()), static_cast<int>(s.renderers.size()),
            static_cast<int>(s.textures.size()), static_cast<int>(s.surfaces.size()),
            static_cast<int>(s.fonts.size())};
}

SDL_Window* TopWindow() {
    auto& s = State();
    std::lock_guard<std::mutex> lock(s.mutex);
    return s.window_stack.empty() ? nullptr : s.window_stack.back();
}

Frame FrameOfWindow(Uint32 window_id) {
    auto& s = State();
    std::lock_guard<std::mutex> lock(s.mutex);
    auto const it = s.frames.find(window_id);
    return it == s.frames.end() ? Frame{} : it->second;
}

}  // namespace ztest

using ztest::Faults;
using ztest::Record;
using ztest::State;

extern "C" {

// Entry points that are only recorded with the window they act on, then forwarded.
#define ZTEST_RECORD_WINDOW_CALL(ret, name, params, args, window) \
    ret name params {                                             \
        ZTEST_REAL(name);                                         \
        Record(#name, {}, {}, window);                            \
        return real args;                                         \
    }

ZTEST_RECORD_WINDOW_CALL(void, SDL_GetWindowPosition, (SDL_Window * window, int* x, int* y),
                         (window, x, y), window)
ZTEST_RECORD_WINDOW_CALL(int, SDL_SetWindowModalFor, (SDL_Window * modal, SDL_Window* parent),
                         (modal, parent), modal)
ZTEST_RECORD_WINDOW_CALL(void, SDL_RaiseWindow, (SDL_Window * window), (window), window)
ZTEST_RECORD_WINDOW_CALL(int, SDL_SetWindowInputFocus, (SDL_Window * window), (window), window)
ZTEST_RECORD_WINDOW_CALL(void, SDL_ShowWindow, (SDL_Window * window), (window), window)

SDL_Window* SDL_CreateWindow(char const* title, int x, int y, int w, int h, Uint32 flags) {
    ZTEST_REAL(SDL_CreateWindow);
    Record("SDL_CreateWindow", title != nullptr ? title : "", {x, y, w, h, flags});
    if (ztest::FailCreation("SDL_CreateWindow") || Faults().fail_window_creation) {
        return nullptr;
    }
    SDL_Window* window = real(title, x, y, w, h, flags);
    if (window != nullptr) {
        auto& s = State();
        std::lock_guard<std::mutex> lock(s.mutex);
        s.windows.insert(window);
        s.window_stack.push_back(window);
    }
    return window;
}

void SDL_DestroyWindow(SDL_Window* window) {
    ZTEST_REAL(SDL_DestroyWindow);
    if (ztest::Release(State().windows, window)) {
        Record("SDL_DestroyWindow", {}, {}, window);
        auto& s = State();
        std::lock_guard<std::mutex> lock(s.mutex);
        s.window_stack.erase(std::remove(s.window_stack.begin(), s.window_stack.end(), window),
                             s.window_stack.end());
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

void SDL_DestroyRenderer(SDL_Renderer* renderer) {
    ZTEST_REAL(SDL_DestroyRenderer);
    if (ztest::Release(State().renderers, renderer)) {
        Record("SDL_DestroyRenderer", {}, {}, renderer);
    }
    real(renderer);
}

void SDL_SetWindowSize(SDL_Window* window, int w, int h) {
    ZTEST_REAL(SDL_SetWindowSize);
    Record("SDL_SetWindowSize", {}, {w, h}, window);
    real(window, w, h);
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

void SDL_StartTextInput(void) {
    ZTEST_REAL(SDL_StartTextInput);
    Record("SDL_StartTextInput");
    real();
}

void SDL_StopTextInput(void) {
    ZTEST_REAL(SDL_StopTextInput);
    Record("SDL_StopTextInput");
    real();
}

// Never opens a browser or a native box during a test: both are recorded only.
int SDL_OpenURL(char const* url) {
    Record("SDL_OpenURL", url != nullptr ? url : "");
    return Faults().fail_open_url ? -1 : 0;
}

int SDL_ShowSimpleMessageBox(Uint32 flags, char const* title, char const* message,
                             SDL_Window* window) {
    std::string text = title != nullptr ? title : "";
    text += '\n';
    text += message != nullptr ? message : "";
    Record("SDL_ShowSimpleMessageBox", std::move(text), {flags}, window);
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

void SDL_DestroyTexture(SDL_Texture* texture) {
    ZTEST_REAL(SDL_DestroyTexture);
    ztest::Release(State().textures, texture);
    real(texture);
}

void SDL_FreeSurface(SDL_Surface* surface) {
    ZTEST_REAL(SDL_FreeSurface);
    ztest::Release(State().surfaces, surface);
    real(surface);
}

int TTF_Init(void) {
    ZTEST_REAL(TTF_Init);
    Record("TTF_Init");
    if (Faults().fail_ttf_init) {
        return -1;
    }
    return real();
}

int TTF_WasInit(void) {
    ZTEST_REAL(TTF_WasInit);
    Record("TTF_WasInit");
    return Faults().fail_ttf_init ? 0 : real();
}

TTF_Font* TTF_OpenFont(char const* file, int ptsize) {
    ZTEST_REAL(TTF_OpenFont);
    std::string const path = file != nullptr ? file : "";
    TTF_Font* font = nullptr;
    bool const fail = ztest::FailCreation("TTF_OpenFont");
    if (!fail && (!Faults().allow_font_path || Faults().allow_font_path(path))) {
        font = real(file, ptsize);
    }
    // The second argument tells whether the font opened.
    Record("TTF_OpenFont", path, {ptsize, font != nullptr ? 1 : 0});
    ztest::Track(State().fonts, font);
    return font;
}

void TTF_CloseFont(TTF_Font* font) {
    ZTEST_REAL(TTF_CloseFont);
    if (ztest::Release(State().fonts, font)) {
        Record("TTF_CloseFont", {}, {}, font);
    }
    real(font);
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
