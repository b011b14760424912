// Interposed SDL and SDL_ttf entry points that record a frame's calls, and the replay
// of what they recorded. Every entry point forwards to the real function whether or
// not it records, so a measured frame and its replay pay the same forwarding cost.
#include "frame_replay.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <utility>

namespace zbench {

namespace {

using Op = DrawCall::Op;

// The real entry point behind an interposed one: the one place that finds it.
void* RealSymbol(char const* name) {
    void* symbol = dlsym(RTLD_NEXT, name);
    if (symbol == nullptr) {
        std::fprintf(stderr, "frame recorder: no real %s\n", name);
        std::abort();
    }
    return symbol;
}

template <typename Fn>
Fn Real(char const* name) {
    return reinterpret_cast<Fn>(RealSymbol(name));
}

#define ZBENCH_REAL(name) static auto const real = zbench::Real<decltype(&name)>(#name)

struct Recorder {
    bool on = false;
    int depth = 0;  // interposed calls under way
    RecordedFrame frame;
    std::map<TTF_Font const*, FontKey> open_fonts;  // kept whether recording or not
    std::map<TTF_Font const*, int> fonts;
    std::map<SDL_Surface const*, int> surfaces;
    std::map<SDL_Texture const*, int> textures;
};

Recorder& Rec() {
    static Recorder recorder;
    return recorder;
}

// Holds recording off for the calls that the forwarded call makes in turn.
struct Nested {
    Nested() { ++Rec().depth; }
    ~Nested() { --Rec().depth; }
    Nested(Nested const&) = delete;
    Nested& operator=(Nested const&) = delete;
};

bool Recording() {
    return Rec().on && Rec().depth == 0;
}

DrawCall& Add(Op op) {
    Rec().frame.calls.push_back(DrawCall{});
    Rec().frame.calls.back().op = op;
    return Rec().frame.calls.back();
}

DrawCall& AddValues(Op op, int a, int b, int c = 0, int d = 0) {
    DrawCall& call = Add(op);
    call.values[0] = a;
    call.values[1] = b;
    call.values[2] = c;
    call.values[3] = d;
    return call;
}

void SetRect(bool& has, SDL_Rect& into, SDL_Rect const* rect) {
    has = rect != nullptr;
    if (has) {
        into = *rect;
    }
}

void AddRect(Op op, SDL_Rect const* rect) {
    DrawCall& call = Add(op);
    SetRect(call.has_rect, call.rect, rect);
}

// The number of a font, surface or texture met while recording; -1, and the call
// counted as skipped, when it was made before the recording began.
int FontIndex(TTF_Font const* font) {
    Recorder& rec = Rec();
    if (auto const known = rec.fonts.find(font); known != rec.fonts.end()) {
        return known->second;
    }
    auto const opened = rec.open_fonts.find(font);
    if (opened == rec.open_fonts.end()) {
        ++rec.frame.skipped;
        return -1;
    }
    rec.frame.fonts.push_back(opened->second);
    return rec.fonts[font] = static_cast<int>(rec.frame.fonts.size()) - 1;
}

template <typename T>
int ObjectIndex(std::map<T const*, int> const& made, T const* object) {
    auto const found = made.find(object);
    if (found == made.end()) {
        ++Rec().frame.skipped;
        return -1;
    }
    return found->second;
}

// Records the release of an object made while recording, and forgets it; the
// release of one made before is not recorded.
template <typename T>
void AddRelease(Op op, std::map<T const*, int>& made, T const* object) {
    auto const found = made.find(object);
    if (found == made.end()) {
        return;
    }
    DrawCall& call = Add(op);
    (op == Op::DestroyTexture ? call.texture : call.surface) = found->second;
    made.erase(found);
}

// Adds a text call unless its font is unknown.
bool AddTextCall(Op op, TTF_Font const* font, char const* text, SDL_Color color = {}) {
    int const index = FontIndex(font);
    if (index < 0) {
        return false;
    }
    DrawCall& call = AddValues(op, color.r, color.g, color.b, color.a);
    call.font = index;
    call.text = text != nullptr ? text : "";
    return true;
}

}  // namespace

void StartRecording() {
    Recorder& rec = Rec();
    rec.frame = RecordedFrame{};
    rec.fonts.clear();
    rec.surfaces.clear();
    rec.textures.clear();
    rec.on = true;
}

RecordedFrame StopRecording() {
    Rec().on = false;
    return std::exchange(Rec().frame, RecordedFrame{});
}

bool SameCalls(RecordedFrame const& a, RecordedFrame const& b) {
    auto const same_rect = [](SDL_Rect const& p, SDL_Rect const& q) {
        return p.x == q.x && p.y == q.y && p.w == q.w && p.h == q.h;
    };
    auto const same = [&same_rect](DrawCall const& p, DrawCall const& q) {
        return p.op == q.op && std::equal(p.values, p.values + 4, q.values) &&
               p.has_rect == q.has_rect && same_rect(p.rect, q.rect) &&
               p.has_source == q.has_source && same_rect(p.source, q.source) && p.font == q.font &&
               p.surface == q.surface && p.texture == q.texture && p.text == q.text;
    };
    return std::equal(a.calls.begin(), a.calls.end(), b.calls.begin(), b.calls.end(), same);
}

// [SECTION] Replay

FrameReplay::FrameReplay(RecordedFrame frame, SDL_Renderer* renderer)
    : frame_(std::move(frame)),
      renderer_(renderer),
      surfaces_(static_cast<std::size_t>(frame_.surfaces), nullptr),
      textures_(static_cast<std::size_t>(frame_.textures), nullptr) {
    for (FontKey const& key : frame_.fonts) {
        TTF_Font* font = TTF_OpenFont(key.file.c_str(), key.point_size);
        if (font != nullptr) {
            TTF_SetFontStyle(font, key.style);
        }
        fonts_.push_back(font);
    }
}

FrameReplay::~FrameReplay() {
    ReleaseLeftovers();
    for (TTF_Font* font : fonts_) {
        TTF_CloseFont(font);
    }
}

void FrameReplay::Run() {
    for (DrawCall const& call : frame_.calls) {
        Do(call);
    }
    ReleaseLeftovers();
}

void FrameReplay::RunText() {
    for (DrawCall const& call : frame_.calls) {
        if (call.op == Op::TextToSurface || call.op == Op::SurfaceToTexture ||
            call.op == Op::DestroyTexture || call.op == Op::FreeSurface) {
            Do(call);
        }
    }
    ReleaseLeftovers();
}

void FrameReplay::ReleaseLeftovers() {
    for (SDL_Texture*& texture : textures_) {
        SDL_DestroyTexture(std::exchange(texture, nullptr));
    }
    for (SDL_Surface*& surface : surfaces_) {
        SDL_FreeSurface(std::exchange(surface, nullptr));
    }
}

void FrameReplay::Do(DrawCall const& call) {
    int const* v = call.values;
    SDL_Rect const* rect = call.has_rect ? &call.rect : nullptr;
    SDL_Color const color{Uint8(v[0]), Uint8(v[1]), Uint8(v[2]), Uint8(v[3])};
    int w = 0;
    int h = 0;
    switch (call.op) {
        case Op::SetColor:
            SDL_SetRenderDrawColor(renderer_, color.r, color.g, color.b, color.a);
            break;
        case Op::Clear:
            SDL_RenderClear(renderer_);
            break;
        case Op::FillRect:
            SDL_RenderFillRect(renderer_, rect);
            break;
        case Op::DrawRect:
            SDL_RenderDrawRect(renderer_, rect);
            break;
        case Op::DrawLine:
            SDL_RenderDrawLine(renderer_, v[0], v[1], v[2], v[3]);
            break;
        case Op::DrawPoint:
            SDL_RenderDrawPoint(renderer_, v[0], v[1]);
            break;
        case Op::SetClip:
            SDL_RenderSetClipRect(renderer_, rect);
            break;
        case Op::Copy:
            SDL_RenderCopy(renderer_, textures_[call.texture],
                           call.has_source ? &call.source : nullptr, rect);
            break;
        case Op::Present:
            SDL_RenderPresent(renderer_);
            break;
        case Op::TextToSurface:
            surfaces_[call.surface] =
                TTF_RenderUTF8_Blended(fonts_[call.font], call.text.c_str(), color);
            break;
        case Op::SurfaceToTexture:
            textures_[call.texture] =
                SDL_CreateTextureFromSurface(renderer_, surfaces_[call.surface]);
            break;
        case Op::DestroyTexture:
            SDL_DestroyTexture(std::exchange(textures_[call.texture], nullptr));
            break;
        case Op::FreeSurface:
            SDL_FreeSurface(std::exchange(surfaces_[call.surface], nullptr));
            break;
        case Op::SizeText:
            TTF_SizeUTF8(fonts_[call.font], call.text.c_str(), &w, &h);
            break;
        case Op::FontHeight:
            TTF_FontHeight(fonts_[call.font]);
            break;
        case Op::WindowSize:
            SDL_GetWindowSize(SDL_RenderGetWindow(renderer_), &w, &h);
            break;
        case Op::OutputSize:
            SDL_GetRendererOutputSize(renderer_, &w, &h);
            break;
        case Op::MouseFocus:
            SDL_GetMouseFocus();
            break;
        case Op::MouseState:
            SDL_GetMouseState(&w, &h);
            break;
        case Op::TtfWasInit:
            TTF_WasInit();
            break;
    }
}

}  // namespace zbench

using zbench::Add;
using zbench::AddRect;
using zbench::AddValues;
using zbench::DrawCall;
using zbench::Nested;
using zbench::Op;
using zbench::Rec;
using zbench::Recording;

extern "C" {

// An entry point that records its call by `record`, then forwards it.
#define ZBENCH_FORWARD(ret, name, params, args, record) \
    ret name params {                                   \
        ZBENCH_REAL(name);                              \
        if (Recording()) {                              \
            record;                                     \
        }                                               \
        Nested const nested;                            \
        return real args;                               \
    }

// [SECTION] Drawing

ZBENCH_FORWARD(int, SDL_SetRenderDrawColor,
               (SDL_Renderer * renderer, Uint8 r, Uint8 g, Uint8 b, Uint8 a),
               (renderer, r, g, b, a), AddValues(Op::SetColor, r, g, b, a))
ZBENCH_FORWARD(int, SDL_RenderClear, (SDL_Renderer * renderer), (renderer), Add(Op::Clear))
ZBENCH_FORWARD(int, SDL_RenderFillRect, (SDL_Renderer * renderer, SDL_Rect const* rect),
               (renderer, rect), AddRect(Op::FillRect, rect))
ZBENCH_FORWARD(int, SDL_RenderDrawRect, (SDL_Renderer * renderer, SDL_Rect const* rect),
               (renderer, rect), AddRect(Op::DrawRect, rect))
ZBENCH_FORWARD(int, SDL_RenderSetClipRect, (SDL_Renderer * renderer, SDL_Rect const* rect),
               (renderer, rect), AddRect(Op::SetClip, rect))
ZBENCH_FORWARD(int, SDL_RenderDrawLine, (SDL_Renderer * renderer, int x1, int y1, int x2, int y2),
               (renderer, x1, y1, x2, y2), AddValues(Op::DrawLine, x1, y1, x2, y2))
ZBENCH_FORWARD(int, SDL_RenderDrawPoint, (SDL_Renderer * renderer, int x, int y), (renderer, x, y),
               AddValues(Op::DrawPoint, x, y))
ZBENCH_FORWARD(void, SDL_RenderPresent, (SDL_Renderer * renderer), (renderer), Add(Op::Present))

int SDL_RenderCopy(SDL_Renderer* renderer, SDL_Texture* texture, SDL_Rect const* source,
                   SDL_Rect const* destination) {
    ZBENCH_REAL(SDL_RenderCopy);
    if (Recording()) {
        int const index =
            zbench::ObjectIndex(Rec().textures, static_cast<SDL_Texture const*>(texture));
        if (index >= 0) {
            DrawCall& call = Add(Op::Copy);
            call.texture = index;
            zbench::SetRect(call.has_source, call.source, source);
            zbench::SetRect(call.has_rect, call.rect, destination);
        }
    }
    Nested const nested;
    return real(renderer, texture, source, destination);
}

// [SECTION] Text, surfaces and textures

SDL_Surface* TTF_RenderUTF8_Blended(TTF_Font* font, char const* text, SDL_Color color) {
    ZBENCH_REAL(TTF_RenderUTF8_Blended);
    bool const recorded = Recording() && zbench::AddTextCall(Op::TextToSurface, font, text, color);
    SDL_Surface* surface = nullptr;
    {
        Nested const nested;
        surface = real(font, text, color);
    }
    if (recorded) {
        int const index = surface != nullptr ? Rec().frame.surfaces++ : -1;
        Rec().frame.calls.back().surface = index;
        if (surface != nullptr) {
            Rec().surfaces[surface] = index;
        } else {
            Rec().frame.calls.pop_back();
        }
    }
    return surface;
}

SDL_Texture* SDL_CreateTextureFromSurface(SDL_Renderer* renderer, SDL_Surface* surface) {
    ZBENCH_REAL(SDL_CreateTextureFromSurface);
    int const source =
        Recording() ? zbench::ObjectIndex(Rec().surfaces, static_cast<SDL_Surface const*>(surface))
                    : -1;
    SDL_Texture* texture = nullptr;
    {
        Nested const nested;
        texture = real(renderer, surface);
    }
    if (source >= 0 && texture != nullptr) {
        DrawCall& call = Add(Op::SurfaceToTexture);
        call.surface = source;
        call.texture = Rec().frame.textures++;
        Rec().textures[texture] = call.texture;
    }
    return texture;
}

ZBENCH_FORWARD(void, SDL_DestroyTexture, (SDL_Texture * texture), (texture),
               zbench::AddRelease(Op::DestroyTexture, Rec().textures,
                                  static_cast<SDL_Texture const*>(texture)))
ZBENCH_FORWARD(void, SDL_FreeSurface, (SDL_Surface * surface), (surface),
               zbench::AddRelease(Op::FreeSurface, Rec().surfaces,
                                  static_cast<SDL_Surface const*>(surface)))
ZBENCH_FORWARD(int, TTF_SizeUTF8, (TTF_Font * font, char const* text, int* w, int* h),
               (font, text, w, h), zbench::AddTextCall(Op::SizeText, font, text))
ZBENCH_FORWARD(int, TTF_FontHeight, (TTF_Font const* font), (font),
               zbench::AddTextCall(Op::FontHeight, font, nullptr))

// [SECTION] Queries a frame makes

ZBENCH_FORWARD(void, SDL_GetWindowSize, (SDL_Window * window, int* w, int* h), (window, w, h),
               Add(Op::WindowSize))
ZBENCH_FORWARD(int, SDL_GetRendererOutputSize, (SDL_Renderer * renderer, int* w, int* h),
               (renderer, w, h), Add(Op::OutputSize))
ZBENCH_FORWARD(SDL_Window*, SDL_GetMouseFocus, (void), (), Add(Op::MouseFocus))
ZBENCH_FORWARD(Uint32, SDL_GetMouseState, (int* x, int* y), (x, y), Add(Op::MouseState))
ZBENCH_FORWARD(int, TTF_WasInit, (void), (), Add(Op::TtfWasInit))

// [SECTION] Fonts, followed whether recording or not

TTF_Font* TTF_OpenFont(char const* file, int point_size) {
    ZBENCH_REAL(TTF_OpenFont);
    TTF_Font* font = nullptr;
    {
        Nested const nested;
        font = real(file, point_size);
    }
    if (font != nullptr) {
        Rec().open_fonts[font] = {file, point_size, TTF_STYLE_NORMAL};
    }
    return font;
}

void TTF_SetFontStyle(TTF_Font* font, int style) {
    ZBENCH_REAL(TTF_SetFontStyle);
    if (auto const found = Rec().open_fonts.find(font); found != Rec().open_fonts.end()) {
        found->second.style = style;
    }
    Nested const nested;
    real(font, style);
}

void TTF_CloseFont(TTF_Font* font) {
    ZBENCH_REAL(TTF_CloseFont);
    Rec().open_fonts.erase(font);
    Rec().fonts.erase(font);
    Nested const nested;
    real(font);
}

}  // extern "C"
