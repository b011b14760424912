// What every exported dialog keeps under failed creation calls and under random input:
// it writes nothing to disk, leaves no SDL object behind, stops its text input, gives
// the focus back to its parent, and returns a result that keeps its invariants. A new
// dialog joins with one row of kDialogs.
#include "dialogs.h"
#include "file_watch.h"

#include "gui/screenshot.h"
#include "gui/shader_params.h"
#include "hdd_image/hdd_create_dialog.h"
#include "screenshot/screenshot_dialog.h"
#include "settings/settings_internal.h"
#include "support/records.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <set>
#include <string>
#include <tuple>

namespace {

namespace fs = std::filesystem;
namespace gui = zorvane::frontend::gui;
using Script = ztest::DialogScript;

struct DialogRow {
    char const* name;
    ztest::Dialog dialog;
    // "title x,y WxH" of its window over a parent at 100,100, its flags, how often it is shown
    // and its sleep
    char const* window;
};

void PrintTo(DialogRow const& row, std::ostream* out) {
    *out << row.name;
}

std::vector<DialogRow> const kDialogs = {
    {"MessageBox", ztest::MessageBox(gui::SdlMessageBox::Type::Question),
     "Reset the machine? 180,180 420x180 hidden, shown once, 12 ms a frame"},
    {"FolderPicker", ztest::FolderPicker("floppies"),
     "Select Folder 160,160 780x540 hidden, shown once, 8 ms a frame"},
    {"FontPicker", ztest::FontPicker(),
     "Select TTF Font 160,160 760x520 hidden resizable, shown once, 8 ms a frame"},
    {"FloppyPicker", ztest::FloppyPicker(),
     "Load Floppy Image 160,160 760x520 hidden, shown once, 8 ms a frame"},
    {"ShaderPicker", ztest::ShaderPicker(""),
     "Select Shader 160,160 760x520 hidden resizable, shown once, 8 ms a frame"},
    {"Settings", ztest::Settings("ttf-custom"),
     "Settings 160,150 820x492 hidden, shown once, 12 ms a frame"},
    {"ShaderParameters", ztest::ShaderParameters(),
     "Shader Parameters 160,160 900x490 hidden resizable, shown once, 12 ms a frame"},
    {"Screenshot", ztest::Screenshot(gui::ScreenshotSaveFormat::Jpeg, ""),
     "Save Screenshot 180,180 900x410 hidden resizable, shown once, 8 ms a frame"},
    {"HddImage", ztest::DiskImage(),
     "Create HDD Image 180,180 860x390 hidden, shown once, 8 ms a frame"},
    {"About", ztest::About(), "About Zorvane 180,180 860x607 hidden, shown once, 12 ms a frame"},
};

class EveryDialog : public ztest::WholeDialogTest, public testing::WithParamInterface<DialogRow> {};

TEST_P(EveryDialog, OpensItsWindowOverTheParentAndEscapeClosesIt) {
    Script script;
    script.At(2, ztest::gestures::Key(SDLK_ESCAPE));
    Run(GetParam().dialog, script);
    auto const created = ztest::RecordedCalls("SDL_CreateWindow");
    ASSERT_FALSE(created.empty());
    std::vector<long long> const& a = created[0].args;
    std::string const flags = std::string((a[4] & SDL_WINDOW_HIDDEN) != 0 ? " hidden" : "") +
                              ((a[4] & SDL_WINDOW_RESIZABLE) != 0 ? " resizable" : "");
    std::set<long long> sleeps;  // each turn presents its frame, then sleeps
    for (ztest::SdlCall const& call : ztest::RecordedCalls("SDL_Delay")) {
        sleeps.insert(call.args.at(0));
    }
    bool const each_frame =
        ztest::CountCalls("SDL_Delay") == ztest::CountCalls("SDL_RenderPresent");
    int const shown = ztest::CountCalls("SDL_ShowWindow");
    EXPECT_EQ(created[0].text + " " + std::to_string(a[0]) + "," + std::to_string(a[1]) + " " +
                  std::to_string(a[2]) + "x" + std::to_string(a[3]) + flags + ", shown " +
                  (shown == 1 ? "once" : std::to_string(shown) + " times") + ", " +
                  (sleeps.size() == 1 && each_frame ? std::to_string(*sleeps.begin()) : "?") +
                  " ms a frame",
              GetParam().window);
}

// Failing call numbers: each of the first ten, then ever wider apart.
int NextCallNumber(int nth) {
    return nth < 10 ? nth + 1 : nth + nth / 2;
}

TEST_P(EveryDialog, SurvivesEachFailedCreationCall) {
    for (char const* call : {"SDL_CreateWindow", "SDL_CreateRenderer", "TTF_OpenFont",
                             "TTF_RenderUTF8_Blended", "SDL_CreateTextureFromSurface"}) {
        for (int nth = 1;; nth = NextCallNumber(nth)) {
            SCOPED_TRACE(std::string(call) + " #" + std::to_string(nth));
            ResetRecorder();
            ztest::Faults().fail_call = call;
            ztest::Faults().fail_nth = nth;
            Script script;
            script.At(3, ztest::gestures::Key(SDLK_ESCAPE));
            script.Then(ztest::gestures::Quit(), 3);
            ztest::Outcome const outcome = Run(GetParam().dialog, script);
            if (nth == 1 && std::string(call) == "SDL_CreateWindow") {
                EXPECT_TRUE(outcome.nothing_done) << "no window, nothing done";
                EXPECT_EQ(script.frame(), -1) << "no turn ran";
            }
            if (ztest::CountCreations(call) < nth) {
                break;  // this run never came to the call that was to fail
            }
        }
    }
}

// The seeds of every run; a seed that once found a fault stays in the list.
// ZORVANE_RANDOM_RUNS=N adds N fresh seeds, printed, for a longer search by hand.
unsigned const kFixedSeeds[] = {1, 2, 3, 4};
int const kRandomFrames = 240;

// A few events for the newest window: keys, text of random bytes, clicks and drags of
// the queued and the polled pointer, wheel, resizes, and every kind of window event
// addressed to other windows.
void PushRandomEvents(Script& s, std::mt19937& rng, Uint32 parent_id) {
    using namespace ztest::gestures;
    auto pick = [&rng](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
    static SDL_Keycode const kKeys[] = {
        SDLK_ESCAPE,   SDLK_RETURN, SDLK_KP_ENTER, SDLK_TAB,  SDLK_BACKSPACE, SDLK_UP,
        SDLK_DOWN,     SDLK_LEFT,   SDLK_RIGHT,    SDLK_HOME, SDLK_END,       SDLK_PAGEUP,
        SDLK_PAGEDOWN, SDLK_SPACE,  SDLK_DELETE,   SDLK_a,    SDLK_1,         SDLK_F1};
    for (int events = pick(4); events > 0; --events) {
        int const x = pick(1200) - 100;
        int const y = pick(900) - 100;
        std::string text(1 + pick(31), ' ');
        for (char& c : text) {
            c = static_cast<char>(1 + pick(255));
        }
        SDL_Event window{SDL_WINDOWEVENT};  // for another window
        window.window = {SDL_WINDOWEVENT,
                         0,
                         pick(2) == 0 ? parent_id : s.WindowId() + 1 + pick(5),
                         static_cast<Uint8>(1 + pick(SDL_WINDOWEVENT_HIT_TEST)),
                         0,
                         0,
                         0,
                         x,
                         y};
        Step const gestures[] = {
            Key(kKeys[pick(20) == 0 ? 0 : 1 + pick(17)], pick(4) == 0),  // Escape seldom
            Text(text),
            Click(x, y, static_cast<Uint8>(1 + pick(2))),
            Button(pick(2) == 0, x, y),
            Motion(x, y),
            pick(3) == 0 ? Press(x, y) : Release(x, y),
            Hover(x, y),
            Wheel(pick(7) - 3),
            Resize(1 + pick(1400), 1 + pick(1000)),
            Event(window)};
        gestures[pick(10)](s);
    }
}

std::vector<unsigned> RandomSeeds() {
    std::vector<unsigned> seeds(std::begin(kFixedSeeds), std::end(kFixedSeeds));
    char const* runs = std::getenv("ZORVANE_RANDOM_RUNS");
    std::random_device device;
    for (int i = 0, n = runs != nullptr ? std::atoi(runs) : 0; i < n; ++i) {
        seeds.push_back(device());
    }
    return seeds;
}

TEST_P(EveryDialog, RandomInputNeverBreaksItAndAQuitClosesIt) {
    for (unsigned const seed : RandomSeeds()) {
        std::printf("%s: random input seed %u\n", GetParam().name, seed);
        SCOPED_TRACE("seed " + std::to_string(seed));
        ResetRecorder();
        std::mt19937 rng(seed);
        Script script;
        script.set_grace_frames(20);
        Uint32 const parent_id = SDL_GetWindowID(parent_);
        for (int frame = 0; frame < kRandomFrames; ++frame) {
            script.At(frame, [&](Script& s) { PushRandomEvents(s, rng, parent_id); });
        }
        // A quit closes the innermost dialog alone, so one for each that may be open.
        for (int level = 0; level < 3; ++level) {
            script.Then(ztest::gestures::Quit(), 5);
        }
        Run(GetParam().dialog, script);
    }
}

// The settings and shader dialogs tell the user, in a box over the parent, when they
// have no font or nothing to show; then no window of theirs opens.
class DialogWithoutWindow : public ztest::WholeDialogTest {};

TEST_F(DialogWithoutWindow, SaysWhyInABoxOverTheParent) {
    std::tuple<char const*, ztest::Dialog, bool, char const*> const cases[] = {
        {"settings without fonts", ztest::Settings(), false, "Settings\nFailed to load font."},
        {"shader dialog without fonts", ztest::ShaderParameters(), false,
         "Shader Parameters\nUnable to load a font via SDL_ttf."},
        {"a shader without parameters", ztest::ShaderParameters("shaders/notes.txt"), true,
         "Shader Parameters\nNo #pragma parameter lines were found in the selected shader "
         "file."}};
    for (auto const& [name, dialog, fonts, box] : cases) {
        SCOPED_TRACE(name);
        ResetRecorder();
        ztest::Faults().allow_font_path = [any = fonts](std::string const&) { return any; };
        Script script;
        EXPECT_TRUE(Run(dialog, script).nothing_done);
        auto const boxes = ztest::RecordedCalls("SDL_ShowSimpleMessageBox");
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_EQ(boxes[0].text + (boxes[0].object == parent_ ? ", over the parent" : ""),
                  std::string(box) + ", over the parent");
        EXPECT_EQ(ztest::CountCalls("SDL_ShowWindow"), 0);
    }
}

// The parts of the dialogs that take pointers do nothing with a null one, also when every
// other argument is usable: no crash, no state changed, no picker opened.
TEST(EveryDialogPart, DoesNothingWithANull) {
    SDL_Window* window = SDL_CreateWindow("parts", 0, 0, 900, 500, SDL_WINDOW_HIDDEN);
    SDL_Renderer* renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_SOFTWARE);
    ztest::ResetRecorder();
    std::string const x = "x";
    gui::ScreenshotSaveDialogState shot;
    gui::HddCreateDialogState disk;
    SDL_MouseButtonEvent const release{
        SDL_MOUSEBUTTONUP, 0, 0, 0, 1, 0, 1, 0, 800, 355};  // Save, Create
    gui::HandleScreenshotSaveDialogTextInput(&shot, nullptr);
    gui::HandleScreenshotSaveDialogMouseButton(&shot, nullptr, release, false);
    gui::HandleHddCreateDialogTextInput(&disk, nullptr);
    gui::HandleHddCreateDialogMouseButton(&disk, nullptr, release, false);
    for (int missing = 0; missing < 5; ++missing) {  // the renderer, then each text
        std::vector<std::string const*> texts(4, &x);
        texts[std::max(missing - 1, 0)] = missing > 0 ? nullptr : &x;
        gui::RenderScreenshotSaveDialog({missing > 0 ? renderer : nullptr, texts[0], texts[1],
                                         gui::ScreenshotSaveFormat::Png, texts[2], texts[3]},
                                        gui::BuildScreenshotSaveDialogLayout(900, 410));
    }
    for (auto draw :
         {gui::DrawSimpleModalText, gui::DrawHddCreateDialogText, gui::DrawScreenshotDialogText}) {
        draw(renderer, nullptr, 0, 0, {});
    }
    gui::RightPanelHitResult hit{true, "fps", "25", 0.0, false, true};
    for (int panel = 0; panel < 8; ++panel) {  // the settings record missing
        EXPECT_FALSE(gui::DrawSettingsDisplayPanel({renderer, nullptr, nullptr, panel}, &hit) ||
                     gui::DrawSettingsRuntimePanel({renderer, nullptr, nullptr, panel}, &hit));
    }
    gui::ApplySettingsHit(nullptr, hit);
    gui::HandleSettingsFontPickerHit(nullptr, window, hit);
    EXPECT_EQ(ztest::Describe(shot.result) + " " + shot.file_name_text + " " +
                  ztest::Describe(disk.result) + " " + disk.size_text,
              "not saved   png q90 c2 rle1  no image 0MB   ");
    EXPECT_EQ(ztest::CountCalls("SDL_CreateWindow"), 0) << "no picker opened";
    SDL_DestroyRenderer(renderer);
    SDL_DestroyWindow(window);
}

INSTANTIATE_TEST_SUITE_P(Library, EveryDialog, testing::ValuesIn(kDialogs),
                         [](testing::TestParamInfo<DialogRow> const& row) {
                             return std::string(row.param.name);
                         });

}  // namespace
