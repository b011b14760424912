// Font lookup order and its fallbacks, and when one-line text drawing reports its rectangle.
#include "frame/ui_fonts.h"

#include "support/sdl_recorder.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {
using namespace zorvane::frontend::gui;

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
}

TEST_F(UiFonts, DrawTextReportsItsRectangleOnlyWhenItDraws) {
    SDL_Window* window = SDL_CreateWindow("t", 0, 0, 200, 60, SDL_WINDOW_HIDDEN);
    SDL_Renderer* renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_SOFTWARE);
    SdlUiFontHandle const font = OpenSdlUiFontHandle(15, false, kSemiBold);
    ASSERT_TRUE(window && renderer && font);
    SDL_Color const white{255, 255, 255, 255};
    SDL_Rect rect{1, 2, 3, 4};
    DrawSdlUiText(renderer, font.get(), "", 5, 6, white, &rect);
    DrawSdlUiText(renderer, nullptr, "x", 5, 6, white, &rect);
    DrawSdlUiText(nullptr, font.get(), "x", 5, 6, white, &rect);
    EXPECT_EQ(std::vector<int>({rect.x, rect.y, rect.w, rect.h}), std::vector<int>({1, 2, 3, 4}));
    DrawSdlUiText(renderer, font.get(), "Ag \xE2\x84\xB9", 5, 6, white, &rect);
    EXPECT_EQ(std::vector<int>({rect.x, rect.y, rect.w > 10, rect.h}),
              std::vector<int>({5, 6, true, TTF_FontHeight(font.get())}));
    EXPECT_EQ(EnsureScreenshotDialogFont(), GetCachedSdlUiFont(16, false, kSemiBold));
    SDL_DestroyRenderer(renderer);
    SDL_DestroyWindow(window);
}
}  // namespace
