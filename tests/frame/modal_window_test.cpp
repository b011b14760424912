// The modal window: position from the parent or the centred marker, modality,
// renderer choice by mode, failures, release order and focus return.
#include "frame/modal_window.h"

#include "support/sdl_recorder.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

namespace {

using namespace zorvane::frontend::gui;

class ModalWindow : public ztest::DialogTest {};

TEST_F(ModalWindow, WithoutParentOffsetsTheCentredMarkerAndAsksNoParent) {
    ModalWindowBundle bundle = CreateModalWindowBundle(nullptr, "Box", 80, 60, 320, 180,
                                                       SDL_WINDOW_HIDDEN, kPreferAccelerated);
    ASSERT_TRUE(bundle.window && bundle.renderer);
    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    ASSERT_EQ(created.size(), 1u);
    EXPECT_EQ(created[0].text, "Box");
    EXPECT_EQ(created[0].args,
              (std::vector<long long>{0x2FFF0050, 0x2FFF003C, 320, 180, SDL_WINDOW_HIDDEN}));
    EXPECT_EQ(ztest::CountCalls("SDL_GetWindowPosition"), 0);
    EXPECT_EQ(ztest::CountCalls("SDL_SetWindowModalFor"), 0);
}

TEST_F(ModalWindow, WithParentOpensAtTheOffsetFromItsCornerAndIsModalForIt) {
    SDL_Window* parent = SDL_CreateWindow("host", 200, 150, 640, 480, SDL_WINDOW_HIDDEN);
    ASSERT_NE(parent, nullptr);
    ztest::ClearRecordedCalls();
    {
        ModalWindowBundle bundle =
            CreateModalWindowBundle(parent, "Picker", 60, 60, 780, 540,
                                    SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE, kPreferAccelerated);
        ASSERT_TRUE(bundle.window && bundle.renderer);
        auto const names = ztest::RecordedCallNames();
        ASSERT_GE(names.size(), 4u);
        EXPECT_EQ(names[0], "SDL_GetWindowPosition");
        EXPECT_EQ(names[1], "SDL_CreateWindow");
        EXPECT_EQ(names[2], "SDL_SetWindowModalFor");
        EXPECT_EQ(names[3], "SDL_CreateRenderer");
        auto const created = ztest::RecordedCalls("SDL_CreateWindow");
        EXPECT_EQ(
            created[0].args,
            (std::vector<long long>{260, 210, 780, 540, SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE}));
        ztest::ClearRecordedCalls();
    }
    // The bundle lets the renderer go before its window.
    EXPECT_EQ(ztest::RecordedCallNames(),
              (std::vector<std::string>{"SDL_DestroyRenderer", "SDL_DestroyWindow"}));
    SDL_DestroyWindow(parent);
}

TEST_F(ModalWindow, RendererModesAndFallbacks) {
    struct Case {
        int mode;
        bool fail_accelerated;
        std::vector<long long> requested_flags;
    };
    Case const cases[] = {
        {kPreferAccelerated, false, {SDL_RENDERER_ACCELERATED}},
        {kSoftwareOnly, false, {SDL_RENDERER_SOFTWARE}},
        {2, false, {SDL_RENDERER_ACCELERATED}},
        {kPreferAccelerated, true, {SDL_RENDERER_ACCELERATED, SDL_RENDERER_SOFTWARE}},
        {kSoftwareOnly, true, {SDL_RENDERER_SOFTWARE}},
    };
    for (Case const& c : cases) {
        ztest::ResetRecorder();
        ztest::Faults().fail_accelerated_renderer = c.fail_accelerated;
        ModalWindowBundle bundle =
            CreateModalWindowBundle(nullptr, "m", 0, 0, 100, 100, SDL_WINDOW_HIDDEN,
                                    static_cast<ModalRendererMode>(c.mode));
        EXPECT_TRUE(bundle.window && bundle.renderer) << "mode " << c.mode;
        std::vector<long long> flags;
        for (auto const& call : ztest::RecordedCalls("SDL_CreateRenderer")) {
            flags.push_back(call.args[1]);
        }
        // The dummy display has no accelerated renderer, so unforced mode 0 may
        // also fall back; what matters is the first request and that vsync never shows.
        ASSERT_FALSE(flags.empty());
        EXPECT_EQ(flags.front(), c.requested_flags.front()) << "mode " << c.mode;
        if (c.fail_accelerated) {
            EXPECT_EQ(flags, c.requested_flags) << "mode " << c.mode;
        }
        for (long long f : flags) {
            EXPECT_EQ(f & SDL_RENDERER_PRESENTVSYNC, 0);
        }
    }
}

TEST_F(ModalWindow, FailuresYieldAnEmptyBundleAndLeaveNothingBehind) {
    ztest::Faults().fail_accelerated_renderer = true;
    ztest::Faults().fail_software_renderer = true;
    SDL_Window* parent = SDL_CreateWindow("host", 0, 0, 64, 64, SDL_WINDOW_HIDDEN);
    int const windows_before = ztest::CountLiveObjects().windows;
    ModalWindowBundle bundle =
        CreateModalWindowBundle(parent, "x", 1, 1, 100, 100, SDL_WINDOW_HIDDEN, kPreferAccelerated);
    EXPECT_EQ(bundle.window, nullptr);
    EXPECT_EQ(bundle.renderer, nullptr);
    EXPECT_EQ(ztest::CountLiveObjects().windows, windows_before);
    EXPECT_EQ(ztest::CountCalls("SDL_DestroyWindow"), 1);

    ztest::ResetRecorder();
    ztest::Faults().fail_window_creation = true;
    bundle = CreateModalWindowBundle(parent, "x", 1, 1, 100, 100, SDL_WINDOW_HIDDEN, kSoftwareOnly);
    EXPECT_EQ(bundle.window, nullptr);
    EXPECT_EQ(ztest::CountCalls("SDL_SetWindowModalFor"), 0);
    EXPECT_EQ(ztest::CountCalls("SDL_CreateRenderer"), 0);
    SDL_DestroyWindow(parent);
}

TEST_F(ModalWindow, FocusReturnAndReleaseFunctionsTolerateNull) {
    RestoreModalParentFocus(nullptr);
    DestroySdlWindow(nullptr);
    DestroySdlRenderer(nullptr);
    DestroySdlTexture(nullptr);
    DestroySdlSurface(nullptr);
    CloseSdlTtfFont(nullptr);
    EXPECT_TRUE(ztest::RecordedCalls().empty());

    SDL_Window* parent = SDL_CreateWindow("host", 0, 0, 64, 64, SDL_WINDOW_HIDDEN);
    ztest::ClearRecordedCalls();
    RestoreModalParentFocus(parent);
    EXPECT_EQ(ztest::RecordedCallNames(),
              (std::vector<std::string>{"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}));
    EXPECT_EQ(ztest::RecordedCalls()[0].object, parent);
    SDL_DestroyWindow(parent);
}

}  // namespace
