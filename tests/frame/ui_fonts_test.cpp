// Font lookup order, the cache's memory of failures, the font sets' sizes and
// one-line text drawing.
#include "frame/ui_fonts.h"

#include "support/sdl_recorder.h"
#include "support/temp_dir.h"
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using namespace zorvane::frontend::gui;

class UiFonts : public ztest::DialogTest {
protected:
    void SetUp() override {
        DialogTest::SetUp();
        ShutdownSdlUiCachedFonts();
    }
    void TearDown() override {
        ShutdownSdlUiCachedFonts();
        DialogTest::TearDown();
    }

    static std::vector<std::string> OpenedPaths() {
        std::vector<std::string> paths;
        for (auto const& call : ztest::RecordedCalls("TTF_OpenFont")) {
            paths.push_back(call.text);
        }
        return paths;
    }
};

std::vector<std::string> Paths(std::initializer_list<std::array<char const*, 3> const*> tables,
                               char const* last) {
    std::vector<std::string> paths;
    for (auto const* table : tables) {
        paths.insert(paths.end(), table->begin(), table->end());
    }
    paths.emplace_back(last);
    return paths;
}

TEST_F(UiFonts, SearchOrderWithoutTheDataFolder) {
    ztest::TempDir empty;
    ztest::ScopedWorkingDirectory cwd(empty.path());
    // The first system font is DejaVu Sans, installed with the test dependencies.
    char const* dejavu = kSystemFontPaths[0];
    ASSERT_TRUE(std::filesystem::exists(dejavu));

    struct Case {
        bool bold;
        SdlUiFontKind kind;
        std::vector<std::string> expected;
        int style;
    };
    Case const cases[] = {
        {true, kSemiBold, Paths({&kSemiBoldFontPaths}, dejavu), TTF_STYLE_BOLD},
        {true, kRegular, Paths({&kSemiBoldFontPaths}, dejavu), TTF_STYLE_BOLD},
        {false, kSemiBold, Paths({&kSemiBoldFontPaths, &kRegularFontPaths}, dejavu),
         TTF_STYLE_NORMAL},
        {false, kRegular,
         Paths({&kRegularFontPaths, &kSemiBoldFontPaths, &kRegularFontPaths}, dejavu),
         TTF_STYLE_NORMAL},
        {false, static_cast<SdlUiFontKind>(7),
         Paths({&kSemiBoldFontPaths, &kRegularFontPaths}, dejavu), TTF_STYLE_NORMAL},
    };
    for (Case const& c : cases) {
        ztest::ClearRecordedCalls();
        SdlUiFontHandle font = OpenSdlUiFontHandle(15, c.bold, c.kind);
        ASSERT_NE(font, nullptr);
        EXPECT_EQ(OpenedPaths(), c.expected) << "bold " << c.bold << " kind " << c.kind;
        EXPECT_EQ(TTF_GetFontStyle(font.get()), c.style);
    }
}

TEST_F(UiFonts, BundledFilesWinInTheProjectFolder) {
    // The set-up step fetches both UI fonts into data/ttf.
    SdlUiFontHandle regular = OpenSdlUiFontHandle(15, false, kRegular);
    SdlUiFontHandle semibold_plain = OpenSdlUiFontHandle(15, false, kSemiBold);
    SdlUiFontHandle semibold_bold = OpenSdlUiFontHandle(15, true, kRegular);
    EXPECT_EQ(OpenedPaths(), (std::vector<std::string>{kRegularFontPaths[0], kSemiBoldFontPaths[0],
                                                       kSemiBoldFontPaths[0]}));
    EXPECT_EQ(TTF_GetFontStyle(regular.get()), TTF_STYLE_NORMAL);
    EXPECT_EQ(TTF_GetFontStyle(semibold_plain.get()), TTF_STYLE_NORMAL);
    EXPECT_EQ(TTF_GetFontStyle(semibold_bold.get()), TTF_STYLE_BOLD);
}

TEST_F(UiFonts, NoFontAnywhereIsNullAndTheCacheRemembersIt) {
    ztest::Faults().allow_font_path = [](std::string const&) { return false; };
    EXPECT_EQ(OpenSdlUiFontHandle(15, false, kRegular), nullptr);
    EXPECT_EQ(OpenedPaths().size(), 3u + 3u + 3u + kSystemFontPaths.size());

    ztest::ClearRecordedCalls();
    EXPECT_EQ(GetCachedSdlUiFont(15, false, kSemiBold), nullptr);
    int const first_attempts = ztest::CountCalls("TTF_OpenFont");
    EXPECT_GT(first_attempts, 0);
    EXPECT_EQ(GetCachedSdlUiFont(15, false, kSemiBold), nullptr);
    EXPECT_EQ(ztest::CountCalls("TTF_OpenFont"), first_attempts) << "a failed key is not retried";

    // Once fonts exist again, the failure is only forgotten after a shutdown.
    ztest::Faults().allow_font_path = nullptr;
    EXPECT_EQ(GetCachedSdlUiFont(15, false, kSemiBold), nullptr);
    ShutdownSdlUiCachedFonts();
    EXPECT_NE(GetCachedSdlUiFont(15, false, kSemiBold), nullptr);
}

TEST_F(UiFonts, CacheKeysOnSizeWeightAndKind) {
    TTF_Font* a = GetCachedSdlUiFont(15, false, kSemiBold);
    TTF_Font* b = GetCachedSdlUiFont(15, false, kRegular);
    TTF_Font* c = GetCachedSdlUiFont(15, true, kSemiBold);
    TTF_Font* d = GetCachedSdlUiFont(16, false, kSemiBold);
    ASSERT_TRUE(a && b && c && d);
    EXPECT_EQ(GetCachedSdlUiFonts().size(), 4u);
    EXPECT_NE(a, b);
    EXPECT_NE(a, c);
    EXPECT_EQ(GetCachedSdlUiFont(15, false, kSemiBold), a);
    EXPECT_EQ(EnsureScreenshotDialogFont(), d);
    EXPECT_EQ(GetCachedSdlUiFonts().size(), 4u);
    EXPECT_EQ(ztest::CountLiveObjects().fonts, 4);
    ShutdownSdlUiCachedFonts();
    EXPECT_EQ(ztest::CountLiveObjects().fonts, 0);
    EXPECT_TRUE(GetCachedSdlUiFonts().empty());
}

TEST_F(UiFonts, FontSetsScaleWithLowerLimits) {
    auto sizes = [] {
        std::vector<long long> opened;
        for (auto const& call : ztest::RecordedCalls("TTF_OpenFont")) {
            if (call.args[1] == 1) {
                opened.push_back(call.args[0]);
            }
        }
        return opened;
    };
    {
        SdlMessageBoxFonts fonts = OpenSdlMessageBoxFonts(0.01f);
        EXPECT_TRUE(fonts.icon && fonts.title && fonts.message && fonts.button);
        EXPECT_EQ(sizes(), (std::vector<long long>{16, 14, 14, 14}));
        EXPECT_EQ(TTF_GetFontStyle(fonts.title.get()), TTF_STYLE_BOLD);
        EXPECT_EQ(TTF_GetFontStyle(fonts.message.get()), TTF_STYLE_NORMAL);
    }
    ztest::ClearRecordedCalls();
    {
        AboutDialogFonts fonts = OpenAboutDialogFonts(0.01f);
        EXPECT_FALSE(fonts.title || fonts.contact || fonts.label || fonts.info || fonts.link ||
                     fonts.footer);
        EXPECT_TRUE(ztest::RecordedCalls().empty());
    }
    {
        AboutDialogFonts fonts = OpenAboutDialogFonts(1.2f);
        EXPECT_EQ(sizes(), (std::vector<long long>{24, 17, 16, 17, 17, 16}));
        EXPECT_EQ(TTF_GetFontStyle(fonts.link.get()), TTF_STYLE_BOLD);
    }
    EXPECT_EQ(ztest::CountLiveObjects().fonts, 0);
}

TEST_F(UiFonts, NoPointSizeAsksNothingAndAFailedTtfStartGivesNull) {
    EXPECT_EQ(OpenSdlUiFontHandle(0, false, kSemiBold), nullptr);
    EXPECT_EQ(OpenSdlUiFontHandle(-4, true, kRegular), nullptr);
    EXPECT_TRUE(ztest::RecordedCalls().empty());
    ztest::Faults().fail_ttf_init = true;
    EXPECT_EQ(OpenSdlUiFontHandle(12, false, kSemiBold), nullptr);
    EXPECT_EQ(ztest::RecordedCallNames(), (std::vector<std::string>{"TTF_WasInit", "TTF_Init"}));
}

TEST_F(UiFonts, AFontPathThatIsAFolderIsPassedOver) {
    ztest::TempDir dir;
    std::filesystem::create_directories(dir.path() / "data/ttf/IBMPlexSans-SemiBold.ttf");
    dir.Write("data/ttf/IBMPlexSans-Regular.ttf", "not a font at all");
    ztest::ScopedWorkingDirectory cwd(dir.path());
    SdlUiFontHandle font = OpenSdlUiFontHandle(14, false, kSemiBold);
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(OpenedPaths().back(), kSystemFontPaths[0]);
}

TEST_F(UiFonts, DrawTextReportsItsRectangleOnlyWhenItDraws) {
    SDL_Window* window = SDL_CreateWindow("t", 0, 0, 200, 60, SDL_WINDOW_HIDDEN);
    SDL_Renderer* renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_SOFTWARE);
    TTF_Font* font = GetCachedSdlUiFont(15, false, kSemiBold);
    ASSERT_TRUE(window && renderer && font);

    SDL_Rect const untouched{1, 2, 3, 4};
    SDL_Rect rect = untouched;
    DrawSdlUiText(renderer, font, "", 5, 6, {255, 255, 255, 255}, &rect);
    DrawSdlUiText(renderer, nullptr, "x", 5, 6, {255, 255, 255, 255}, &rect);
    DrawSdlUiText(nullptr, font, "x", 5, 6, {255, 255, 255, 255}, &rect);
    EXPECT_EQ(SDL_RectEquals(&rect, &untouched), SDL_TRUE);

    DrawSdlUiText(renderer, font, "Ag \xE2\x84\xB9", 5, 6, {255, 255, 255, 255}, &rect);
    EXPECT_EQ(rect.x, 5);
    EXPECT_EQ(rect.y, 6);
    EXPECT_EQ(rect.h, TTF_FontHeight(font));
    EXPECT_GT(rect.w, 10);
    EXPECT_EQ(FontHeightOr(font, 99), TTF_FontHeight(font));
    EXPECT_EQ(FontHeightOr(nullptr, 18), 18);

    // Invalid UTF-8 and the NUL-terminated forms with nothing to draw: no crash, no font.
    DrawSdlUiText(renderer, font, "\xFF\xFE\xC3", 0, 0, {255, 255, 255, 255}, nullptr);
    ShutdownSdlUiCachedFonts();
    ztest::ClearRecordedCalls();
    DrawSimpleModalText(renderer, nullptr, 0, 0, {255, 255, 255, 255});
    DrawHddCreateDialogText(renderer, "", 0, 0, {255, 255, 255, 255});
    DrawScreenshotDialogText(nullptr, "x", 0, 0, {255, 255, 255, 255});
    EXPECT_EQ(ztest::CountCalls("TTF_OpenFont"), 0);
    EXPECT_EQ(ztest::CountLiveObjects().textures, 0);
    EXPECT_EQ(ztest::CountLiveObjects().surfaces, 0);
    SDL_DestroyRenderer(renderer);
    SDL_DestroyWindow(window);
}

}  // namespace
