// The frame under every dialog: the heartbeat replaced, cleared and thrown from inside
// itself and set from another thread; the modal window's SDL calls and null releases; the
// half-open hit test and the list scrollbar; the font lookup order.
#include "gui/frame.h"
#include "frame/look.h"
#include "frame/modal_window.h"
#include "frame/ui_fonts.h"

#include "support/sdl_recorder.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <tuple>

namespace {
using namespace zorvane::frontend::gui;

class Heartbeat : public ztest::DialogTest {};

TEST_F(Heartbeat, ReplacesOrClearsItselfAndItsExceptionPassesWithoutHarm) {
    bool destroyed = false;
    int second = 0;
    std::shared_ptr<bool> guard(&destroyed, [](bool* flag) { *flag = true; });
    SetModalDialogHeartbeat([guard, &second] {
        SetModalDialogHeartbeat([&second] {
            if (++second == 1) {
                throw std::runtime_error("emulation fault");
            }
            SetModalDialogHeartbeat(nullptr);
        });
        EXPECT_FALSE(*guard) << "a running heartbeat outlives its replacement";
    });
    guard.reset();
    PumpModalDialogHeartbeat();
    EXPECT_TRUE(destroyed) << "the replaced heartbeat is destroyed after its call";
    EXPECT_THROW(PumpModalDialogHeartbeat(), std::runtime_error);
    PumpModalDialogHeartbeat();
    PumpModalDialogHeartbeat();
    EXPECT_EQ(second, 2) << "it stayed registered after throwing, then cleared itself";
}

TEST_F(Heartbeat, SetFromAnotherThreadWhileOnePumps) {
    std::atomic<int> calls{0};
    std::atomic<bool> stop{false};
    SetModalDialogHeartbeat([&] { ++calls; });
    std::thread setter([&] {
        for (int i = 0; i < 20000; ++i) {
            SetModalDialogHeartbeat([&, token = std::make_shared<int>(1)] { calls += *token; });
        }
        stop = true;
    });
    int pumps = 0;
    for (; !stop; ++pumps) {
        PumpModalDialogHeartbeat();
    }
    setter.join();
    EXPECT_EQ(calls, pumps) << "every pump ran exactly one whole heartbeat";
}

// The recorded calls in short: "CreateWindow@x,y" in hex, renderers as (accel) or (soft).
std::string CallsInShort() {
    std::ostringstream out;
    for (ztest::SdlCall const& call : ztest::RecordedCalls()) {
        out << std::hex << " " << call.name.substr(4);
        if (call.name == "SDL_CreateWindow") {
            out << "@" << call.args[0] << "," << call.args[1];
        } else if (call.name == "SDL_CreateRenderer") {
            out << (call.args[1] & SDL_RENDERER_ACCELERATED ? "(accel)" : "(soft)");
        }
    }
    return out.str().empty() ? "" : out.str().substr(1);
}

TEST(ModalWindow, CallsWithAndWithoutParentUnderFailuresAndNullReleases) {
    struct Case {
        bool parent, fail_window, fail_software;
        ModalRendererMode mode;
        char const* calls;
    };
    // The parent stands at 0x100,0x200, the offset is 0x50,0x3c; no accelerated renderer exists.
    Case const cases[] = {
        {false, false, false, kPreferAccelerated,
         "CreateWindow@2fff0050,2fff003c CreateRenderer(accel) CreateRenderer(soft) "
         "DestroyRenderer DestroyWindow"},
        {false, false, false, kSoftwareOnly,
         "CreateWindow@2fff0050,2fff003c CreateRenderer(soft) DestroyRenderer DestroyWindow"},
        {true, false, true, kPreferAccelerated,
         "GetWindowPosition CreateWindow@150,23c SetWindowModalFor CreateRenderer(accel) "
         "CreateRenderer(soft) DestroyWindow"},
        {true, true, false, kPreferAccelerated, "GetWindowPosition CreateWindow@150,23c"},
    };
    SDL_Window* parent = SDL_CreateWindow("host", 0x100, 0x200, 64, 64, SDL_WINDOW_HIDDEN);
    for (Case const& c : cases) {
        ztest::ResetRecorder();
        ztest::Faults().fail_call = c.fail_window ? "SDL_CreateWindow" : "";
        ztest::Faults().fail_nth = 1;
        ztest::Faults().fail_accelerated_renderer = true;
        ztest::Faults().fail_software_renderer = c.fail_software;
        {
            ModalWindowBundle bundle = CreateModalWindowBundle(
                c.parent ? parent : nullptr, "m", 0x50, 0x3c, 100, 100, SDL_WINDOW_HIDDEN, c.mode);
            EXPECT_EQ(!!bundle.window + !!bundle.renderer,
                      c.fail_window || c.fail_software ? 0 : 2);
        }
        EXPECT_EQ(CallsInShort(), c.calls);
    }
    SDL_DestroyWindow(parent);
    ztest::ResetRecorder();
    RestoreModalParentFocus(nullptr);
    DestroySdlWindow(nullptr);
    DestroySdlRenderer(nullptr);
    DestroySdlTexture(nullptr);
    DestroySdlSurface(nullptr);
    CloseSdlTtfFont(nullptr);
    EXPECT_EQ(CallsInShort(), "");
}

TEST(Look, HitTestIsHalfOpenAndTheScrollbarThumbFollowsTheShareWithinItsLimits) {
    SDL_Rect const r{10, 20, 30, 40};
    std::tuple<int, int, bool> const points[] = {{10, 20, true},  {39, 59, true}, {40, 20, false},
                                                 {10, 60, false}, {9, 30, false}, {20, 19, false}};
    for (auto const& [x, y, inside] : points) {
        EXPECT_EQ(IsPointInRect(r, x, y), inside) << x << "," << y;
    }
    struct Case {
        SDL_Rect area;
        int total, visible, offset;
        SDL_Rect track, thumb;
        int max_offset;
    };
    Case const cases[] = {
        {{8, 56, 764, 240}, 10, 10, 0, {758, 58, 12, 236}, {758, 58, 12, 236}, 0},    // all fits
        {{0, 0, 100, 304}, 1000, 1, -7, {86, 2, 12, 300}, {86, 2, 12, 24}, 999},      // 24 at least
        {{0, 0, 100, 304}, 1000, 1, 5000, {86, 2, 12, 300}, {86, 278, 12, 24}, 999},  // held
        {{0, 0, 100, 204}, 20, 10, 5, {86, 2, 12, 200}, {86, 52, 12, 100}, 10},       // half way
        {{0, 0, 50, 6}, 4, 1, 0, {36, 2, 12, 8}, {36, 2, 12, 24}, 3},  // track 8 at least
    };
    for (Case const& c : cases) {
        auto const l = BuildSimpleScrollbarLayout(c.area, c.total, c.visible, c.offset);
        EXPECT_TRUE(SDL_RectEquals(&l.track, &c.track) && SDL_RectEquals(&l.thumb, &c.thumb) &&
                    l.max_offset == c.max_offset)
            << c.total << " " << c.offset;
    }
}

class UiFonts : public ztest::DialogTest {};

TEST_F(UiFonts, LookupOrderPassesOverAFolderAndABadFileAndEndsInTheSystemFont) {
    ztest::TempDir dir;  // the bundled names: the semi-bold one a folder, the regular one junk
    std::filesystem::create_directories(dir.path() / "data/ttf/IBMPlexSans-SemiBold.ttf");
    dir.Write("data/ttf/IBMPlexSans-Regular.ttf", "not a font at all");
    ztest::ScopedWorkingDirectory cwd(dir.path());
    struct Case {
        bool bold, any_font;
        SdlUiFontKind kind;
        std::string tried;  // s, r: each bundled semi-bold or regular path, y: each system path
        int style;          // -1: no font
    };
    Case const cases[] = {{true, true, kSemiBold, "sssy", TTF_STYLE_BOLD},
                          {true, true, kRegular, "sssy", TTF_STYLE_BOLD},
                          {false, true, kSemiBold, "sssrrry", TTF_STYLE_NORMAL},
                          {false, true, kRegular, "rrrsssrrry", TTF_STYLE_NORMAL},
                          {false, false, kRegular, "rrrsssrrr" + std::string(10, 'y'), -1}};
    for (Case const& c : cases) {
        ztest::ResetRecorder();
        ztest::Faults().allow_font_path = [&c](std::string const&) { return c.any_font; };
        SdlUiFontHandle const font = OpenSdlUiFontHandle(15, c.bold, c.kind);
        std::string tried;
        for (ztest::SdlCall const& call : ztest::RecordedCalls("TTF_OpenFont")) {
            auto const has = [&](char const* n) { return call.text.find(n) < call.text.size(); };
            tried += has("-SemiBold") ? 's' : has("-Regular") ? 'r' : 'y';
        }
        EXPECT_EQ(tried, c.tried) << "bold " << c.bold << " kind " << c.kind;
        EXPECT_EQ(font ? TTF_GetFontStyle(font.get()) : -1, c.style);
    }
    ztest::ResetRecorder();  // the forms' font is the cached 16-point one
    EXPECT_EQ(EnsureScreenshotDialogFont(), GetCachedSdlUiFont(16, false, kSemiBold));
    EXPECT_NE(EnsureScreenshotDialogFont(), GetCachedSdlUiFont(17, false, kSemiBold));
}

}  // namespace
