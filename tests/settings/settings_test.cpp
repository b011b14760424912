// The settings dialog when no font loads: a box over the parent, and no callback; the
// topic it opens on.
#include "gui/settings.h"
#include "settings/settings_internal.h"
#include "support/sdl_recorder.h"
#include "support/test_display.h"

namespace {

using namespace zorvane::frontend::gui;

class SettingsDialog : public ztest::DialogTest {};

TEST_F(SettingsDialog, NoFontShowsFailedToLoadFontOverTheParent) {
    SDL_Window* parent = SDL_CreateWindow("host", 0, 0, 320, 200, SDL_WINDOW_HIDDEN);
    ztest::Faults().allow_font_path = [](std::string const&) { return false; };
    ShowSettingsDialog(parent, 1.0f, {}, [](SettingsDialogValues const&) { ADD_FAILURE(); });
    auto const boxes = ztest::RecordedCalls("SDL_ShowSimpleMessageBox");
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].text, "Settings\nFailed to load font.");
    EXPECT_EQ(boxes[0].object, parent);
    SDL_DestroyWindow(parent);
}

// The first selectable row's topic, or none.
TEST(SettingsNavigation, OpensOnTheFirstSelectableTopic) {
    EXPECT_EQ(FindInitialSettingsPanel({{0, "Audio", -1}, {1, "HDD Sounds", 5}, {1, "CPU", 3}}), 5);
    EXPECT_EQ(FindInitialSettingsPanel({{0, "Audio", -1}}), -1);
}

}  // namespace
