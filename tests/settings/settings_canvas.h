// Shared helpers of the settings tests: colour assertions, the panels' content
// line for the dialog's fonts, and a hidden software canvas for widget calls.
#pragma once

#include "frame/ui_fonts.h"
#include "gui/settings.h"
#include "support/sdl_recorder.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>

namespace zset {

using namespace zorvane::frontend::gui;

inline constexpr SDL_Color kCanvasClear{1, 2, 3, 255};
inline constexpr SDL_Color kAccent{106, 166, 255, 255};
inline constexpr SDL_Color kHover{40, 46, 60, 255};
inline constexpr SDL_Color kTrack{52, 58, 70, 255};
inline constexpr SDL_Color kNavBg{24, 27, 34, 255};
inline constexpr SDL_Color kNavActive{44, 74, 128, 255};
inline constexpr SDL_Color kSection{20, 23, 30, 255};
inline constexpr SDL_Color kRing{100, 108, 122, 255};
inline constexpr SDL_Color kButton{48, 54, 68, 255};
inline constexpr SDL_Color kButtonHover{68, 76, 92, 255};
inline constexpr SDL_Color kWindowBg{18, 21, 27, 255};
inline constexpr SDL_Color kFooter{22, 25, 32, 255};

inline testing::AssertionResult SameColor(SDL_Color got, SDL_Color want) {
    if (got.r == want.r && got.g == want.g && got.b == want.b) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << "got " << int(got.r) << "," << int(got.g) << "," << int(got.b) << " want "
           << int(want.r) << "," << int(want.g) << "," << int(want.b);
}

inline testing::AssertionResult HasColor(ztest::Frame const& frame, int x, int y, SDL_Color want) {
    return SameColor(frame.At(x, y), want) << " at " << x << "," << y;
}

// Every field of a settings record in one line, for whole-record comparisons.
inline std::string Describe(SettingsDialogValues const& v) {
    std::ostringstream out;
    out << "fps=" << v.fps << " font_mode=" << v.font_mode << " renderer=" << v.renderer_mode
        << " cpu=" << v.cpu_mhz << " gain=" << v.mouse_capture_gain
        << " text_capture=" << v.allow_mouse_capture_in_text_mode << " hdd=" << v.hdd_sounds_enabled
        << " volume=" << v.hdd_sounds_volume << " font=" << v.custom_font_path
        << " shaders=" << v.screenshot_capture_with_opengl_shaders
        << " size=" << v.screenshot_capture_size_mode;
    return out.str();
}

// The y at which a panel's content starts under the dialog's own fonts.
inline int PanelTop(bool with_subtitle) {
    SdlUiFontHandle const title = OpenSdlUiFontHandle(15, true, kSemiBold);
    SdlUiFontHandle const body = OpenSdlUiFontHandle(15, false, kSemiBold);
    int const h1 = TTF_FontHeight(title.get());
    return with_subtitle ? 20 + h1 + 6 + TTF_FontHeight(body.get()) + 20 : 20 + h1 + 20;
}

// A hidden 820 x 492 window with a software renderer, cleared to kCanvasClear, and
// the dialog's two fonts.
class Canvas : public ztest::DialogTest {
protected:
    void SetUp() override {
        DialogTest::SetUp();
        window_ = SDL_CreateWindow("canvas", 0, 0, 820, 492, SDL_WINDOW_HIDDEN);
        ASSERT_NE(window_, nullptr);
        renderer_ = SDL_CreateRenderer(window_, -1, SDL_RENDERER_SOFTWARE);
        ASSERT_NE(renderer_, nullptr);
        title_font_ = OpenSdlUiFontHandle(15, true, kSemiBold);
        body_font_ = OpenSdlUiFontHandle(15, false, kSemiBold);
        ASSERT_TRUE(title_font_ && body_font_);
        Clear();
    }
    void TearDown() override {
        body_font_.reset();
        title_font_.reset();
        SDL_DestroyRenderer(renderer_);
        SDL_DestroyWindow(window_);
        DialogTest::TearDown();
    }
    void Clear() {
        SDL_SetRenderDrawColor(renderer_, kCanvasClear.r, kCanvasClear.g, kCanvasClear.b, 255);
        SDL_RenderClear(renderer_);
    }
    SDL_Color Pixel(int x, int y) const {
        SDL_Rect const one{x, y, 1, 1};
        Uint32 argb = 0;
        SDL_RenderReadPixels(renderer_, &one, SDL_PIXELFORMAT_ARGB8888, &argb, 4);
        return {Uint8(argb >> 16), Uint8(argb >> 8), Uint8(argb), 255};
    }
    // The first and last columns from x0 up to x1 with a pixel other than `fill` in the
    // rows y0 up to y1; -1, -1 when there is none.
    std::pair<int, int> InkColumns(int x0, int x1, int y0, int y1, SDL_Color fill) const {
        int first = -1;
        int last = -1;
        for (int x = x0; x < x1; ++x) {
            for (int y = y0; y < y1; ++y) {
                if (!SameColor(Pixel(x, y), fill)) {
                    first = first < 0 ? x : first;
                    last = x;
                    break;
                }
            }
        }
        return {first, last};
    }
    testing::AssertionResult At(int x, int y, SDL_Color want) const {
        return SameColor(Pixel(x, y), want) << " at " << x << "," << y;
    }

    SDL_Window* window_ = nullptr;
    SDL_Renderer* renderer_ = nullptr;
    SdlUiFontHandle title_font_;
    SdlUiFontHandle body_font_;
};

}  // namespace zset
