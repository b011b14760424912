// Font lookup order and fallbacks, and one-line text drawing.
#include "frame/ui_fonts.h"

#include "support/sdl_recorder.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using namespace zorvane::frontend::gui;
using Paths = std::vector<std::string>;

// The paths tried, spelt as letters: s the semi-bold files, r the regular ones, d the
// first system font (installed with the test dependencies), y all system fonts.
Paths Tried(std::string const& letters) {
    Paths all;
    for (char letter : letters) {
        auto add = [&all](auto const& paths) { all.insert(all.end(), paths.begin(), paths.end()); };
        letter == 's'   ? add(kSemiBoldFontPaths)
        : letter == 'r' ? add(kRegularFontPaths)
        : letter == 'y' ? add(kSystemFontPaths)
                        : add(std::array<char const*, 1>{kSystemFontPaths[0]});
    }
    return all;
}

class UiFonts : public ztest::DialogTest {};

TEST_F(UiFonts, LookupOrderPassesOverAFolderAndABadFileAndEndsInTheSystemFont) {
    ztest::TempDir dir;  // the bundled names: the semi-bold one a folder, the regular one junk
    std::filesystem::create_directories(dir.path() / "data/ttf/IBMPlexSans-SemiBold.ttf");
    dir.Write("data/ttf/IBMPlexSans-Regular.ttf", "not a font at all");
    ztest::ScopedWorkingDirectory cwd(dir.path());
    struct Case {
        int size;
        bool bold;
        int kind;
        bool any_font;
        char const* tried;
        int style;  // -1: no font
    };
    Case const cases[] = {{15, true, kSemiBold, true, "sd", TTF_STYLE_BOLD},
                          {15, true, kRegular, true, "sd", TTF_STYLE_BOLD},
                          {15, false, kSemiBold, true, "srd", TTF_STYLE_NORMAL},
                          {15, false, kRegular, true, "rsrd", TTF_STYLE_NORMAL},
                          {15, false, 7, true, "srd", TTF_STYLE_NORMAL},
                          {15, false, kRegular, false, "rsry", -1},
                          {0, false, kSemiBold, true, "", -1}};
    for (Case const& c : cases) {
        ztest::ResetRecorder();
        if (!c.any_font) {
            ztest::Faults().allow_font_path = [](std::string const&) { return false; };
        }
        SdlUiFontHandle const font =
            OpenSdlUiFontHandle(c.size, c.bold, static_cast<SdlUiFontKind>(c.kind));
        Paths tried;
        for (ztest::SdlCall const& call : ztest::RecordedCalls("TTF_OpenFont")) {
            tried.push_back(call.text);
        }
        EXPECT_EQ(tried, Tried(c.tried)) << "bold " << c.bold << " kind " << c.kind;
        EXPECT_EQ(font ? TTF_GetFontStyle(font.get()) : -1, c.style);
    }
}

TEST_F(UiFonts, DrawTextReportsItsRectangleOnlyWhenItDraws) {
    SDL_Window* window = SDL_CreateWindow("t", 0, 0, 200, 60, SDL_WINDOW_HIDDEN);
    SDL_Renderer* renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_SOFTWARE);
    SdlUiFontHandle const owned = OpenSdlUiFontHandle(15, false, kSemiBold);
    TTF_Font* font = owned.get();
    ASSERT_TRUE(window && renderer && font);
    SDL_Color const white{255, 255, 255, 255};
    SDL_Rect const untouched{1, 2, 3, 4};
    SDL_Rect rect = untouched;
    DrawSdlUiText(renderer, font, "", 5, 6, white, &rect);
    DrawSdlUiText(renderer, nullptr, "x", 5, 6, white, &rect);
    DrawSdlUiText(nullptr, font, "x", 5, 6, white, &rect);
    DrawSdlUiText(renderer, font, "\xFF\xFE\xC3", 5, 6, white, nullptr);  // bad UTF-8: no harm
    EXPECT_TRUE(SDL_RectEquals(&rect, &untouched));
    DrawSdlUiText(renderer, font, "Ag \xE2\x84\xB9", 5, 6, white, &rect);
    EXPECT_EQ(std::vector<int>({rect.x, rect.y, rect.h}),
              std::vector<int>({5, 6, TTF_FontHeight(font)}));
    EXPECT_GT(rect.w, 10);
    EXPECT_EQ(ztest::CountLiveObjects().textures + ztest::CountLiveObjects().surfaces, 0);
    SDL_DestroyRenderer(renderer);
    SDL_DestroyWindow(window);
}

}  // namespace
