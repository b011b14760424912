// The dialogs of the whole-library tests, their sample folder and the checks around a run.
#include "dialogs.h"

#include "file_watch.h"
#include "gui/about.h"
#include "gui/frame.h"
#include "gui/hdd_image.h"
#include "gui/pickers.h"
#include "gui/screenshot.h"
#include "gui/settings.h"
#include "gui/shader_params.h"
#include "support/records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>

#include "zorvane/utils.h"

namespace ztest {

namespace fs = std::filesystem;
namespace gui = zorvane::frontend::gui;

namespace {

std::string Broken(bool holds, std::string const& what) {
    return holds ? std::string() : what;
}

bool SettingsInRange(gui::SettingsDialogValues const& v) {
    std::set<std::string> const fonts{"pixel", "ttf", "ttf-hires", "ttf-custom"};
    std::set<int> const rates{25, 30, 50, 60};
    return rates.count(v.fps) > 0 && fonts.count(v.font_mode) > 0 &&
           (v.renderer_mode == "hardware" || v.renderer_mode == "software") &&
           v.mouse_capture_gain >= 0.25 && v.mouse_capture_gain <= 3.0 &&
           v.hdd_sounds_volume >= 0.0 && v.hdd_sounds_volume <= 1.0 &&
           (v.screenshot_capture_size_mode == 0 || v.screenshot_capture_size_mode == 1);
}

}  // namespace

Dialog MessageBox(gui::SdlMessageBox::Config config) {
    return [config](SDL_Window* parent) {
        int const id = gui::SdlMessageBox(config).Show(parent, 1.0f);
        bool const known = std::any_of(config.buttons.begin(), config.buttons.end(),
                                       [id](auto const& button) { return button.id == id; });
        return Outcome{std::to_string(id), id == -1,
                       Broken(id == -1 || known || config.buttons.empty(), "an unknown id")};
    };
}

Dialog MessageBox(gui::SdlMessageBox::Type type, std::string message) {
    return MessageBox({"Reset the machine?",
                       std::move(message),
                       type,
                       {{1, "Reset", true, false, {}}, {0, "Cancel", false, true, {}}},
                       420});
}

Dialog FolderPicker(std::string start) {
    return [start](SDL_Window* parent) {
        std::string const picked = gui::ShowSimpleFolderPicker(parent, {"", "", "", "", start});
        return Outcome{picked, picked.empty(),
                       Broken(picked.empty() || fs::is_directory(picked), "not a folder")};
    };
}

namespace {

// A file picker whose pick must be a file with one of the extensions in `kinds`, each
// followed by a space (".ttf .otf ").
Dialog FilePicker(std::string (*show)(SDL_Window*, std::string const&), std::string kinds,
                  std::string start = "") {
    return [show, kinds, start](SDL_Window* parent) {
        std::string const picked = show(parent, start);
        std::string const kind = fs::u8path(picked).extension().u8string() + " ";
        bool const fits = fs::is_regular_file(fs::u8path(picked)) && kind.size() > 1 &&
                          kinds.find(kind) != std::string::npos;
        return Outcome{picked, picked.empty(), Broken(picked.empty() || fits, "not a " + kinds)};
    };
}

}  // namespace

Dialog FontPicker() {
    return FilePicker(gui::ShowSimpleTtfFilePicker, ".ttf .otf ");
}
Dialog FloppyPicker(std::string start) {
    return FilePicker(gui::ShowSimpleFloppyFilePicker, ".ima .img .IMA .IMG ", start);
}
Dialog ShaderPicker(std::string start) {
    return FilePicker(gui::ShowSimpleShaderFilePicker, ".glsl .glslp .frag .vert .fs .vs ", start);
}

gui::SettingsDialogValues SettingsOf(std::string const& font_mode) {
    gui::SettingsDialogValues values;
    values.fps = 60;
    values.font_mode = font_mode;
    values.custom_font_path = font_mode == "ttf-custom" ? "data/ttf/Mono Retro.ttf" : "";
    values.cpu_mhz = 4.77;
    values.mouse_capture_gain = 1.5;
    values.hdd_sounds_enabled = true;
    values.hdd_sounds_volume = 0.35;
    return values;
}

Dialog Settings(std::string font_mode) {
    return [font_mode](SDL_Window* parent) {
        Outcome outcome;
        gui::ShowSettingsDialog(
            parent, 1.0f, SettingsOf(font_mode), [&](gui::SettingsDialogValues const& v) {
                outcome.result += (outcome.nothing_done ? "apply " : " | apply ") + Describe(v);
                outcome.nothing_done = false;
                if (!SettingsInRange(v)) {
                    outcome.broken = "settings out of range";
                }
            });
        return outcome;
    };
}

Dialog ShaderParameters(std::string path) {
    return [path](SDL_Window* parent) {
        Outcome outcome;
        std::vector<gui::ShaderParameterValue> start = gui::ParseGlslpParameterOverrides(path);
        start.push_back({"MASK", 0.65f});
        gui::ShaderDialogResult const result = gui::ShowShaderParameterDialog(
            parent, path, 1.0f,
            [&](std::vector<gui::ShaderParameterValue> const& values) {
                outcome.result += "apply " + Describe(values) + " | ";
            },
            start);
        outcome.result += Describe(result);
        outcome.nothing_done = !result.accepted;
        std::string names;
        for (gui::ShaderParameterValue const& value : result.values) {
            names += value.name + (std::isfinite(value.value) ? " " : "! ");
        }
        outcome.broken = Broken(names.empty() || names == "CURVE SCAN MASK GAMMA TILT ", names);
        return outcome;
    };
}

Dialog Screenshot(gui::ScreenshotSaveFormat format, std::string name) {
    return [format, name](SDL_Window* parent) {
        gui::ScreenshotSaveDialogResult const r =
            gui::ShowScreenshotSaveDialog(parent, "out/captures", name, format, 85, 6, true);
        std::string const extension = gui::ScreenshotSaveFormatExtension(r.format);
        bool const named = r.file_name.size() > extension.size() &&
                           r.file_name.compare(r.file_name.size() - extension.size(),
                                               extension.size(), extension) == 0;
        bool const ok = named && !r.folder.empty() && r.jpeg_quality >= 1 &&
                        r.jpeg_quality <= 100 && r.png_compression >= 0 && r.png_compression <= 9;
        return Outcome{Describe(r), !r.accepted, Broken(ok, "an unusable name or value")};
    };
}

Dialog DiskImage() {
    return [](SDL_Window* parent) {
        gui::HddCreateDialogResult const r =
            gui::ShowSimpleHddCreateDialog(parent, "out/images", 0);
        bool const ok = r.size_mb >= 1 && !r.folder.empty() && !r.file_name.empty();
        return Outcome{Describe(r), !r.accepted, Broken(ok, "an empty size, folder or name")};
    };
}

Dialog About(bool fonts) {
    return [fonts](SDL_Window* parent) {
        if (!fonts) {
            Faults().allow_font_path = [](std::string const&) { return false; };
        }
        gui::ShowSimpleAboutDialog(parent, fonts ? 1.0f : -3.0f);  // the scale changes nothing
        Outcome outcome;
        for (SdlCall const& call : RecordedCalls("SDL_OpenURL")) {
            outcome.result += "open " + call.text + " ";
        }
        return outcome;
    };
}

// The sample sits in a folder named "café 日本", and some of its names go beyond ASCII
// too, so that every path on its way into and out of a dialog passes the UTF-8
// conversions, on Windows under any code page.
void WholeDialogTest::SetUp() {
    DialogTest::SetUp();
    ResetRecorder();
    std::string const root = "caf\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC/";
    std::error_code ignored;
    fs::path const fonts = dir_.path() / zorvane::utils::path_from_utf8(root + "data/ttf");
    fs::create_directories(fonts, ignored);
    fs::copy(fs::current_path() / "data/ttf", fonts, ignored);
    for (char const* name :
         {"DOS622_1.IMA", "DOS622_2.IMA", "DOS622_3.IMA", "TOOLS.IMG", "dos_tools.img",
          "readme.txt", "drivers/MOUSE.IMG", "games/keep", "system/keep", "caf\xC3\xA9.ima",
          "caf\xC3\xA9/\xE6\x97\xA5\xE6\x9C\xAC.img"}) {
        dir_.Write(root + "floppies/" + name, "");
    }
    for (int disk = 10; disk < 40; ++disk) {
        dir_.Write(root + "floppies/GAMES_" + std::to_string(disk) + ".IMG", "");
    }
    dir_.Write(root + "shaders/crt.glslp", "shaders = 1\nshader0 = crt.glsl\n");
    dir_.Write(
        root + "presets/\xE6\x97\xA5\xE6\x9C\xAC/caf\xC3\xA9.glslp",
        "shaders = 1\nshader0 = ../../shaders/crt.glsl\nparameters = \"MASK;TILT\"\nMASK = 0.9\n"
        "TILT = -0.5\n");
    dir_.Write(root + "shaders/notes.txt", "");
    dir_.Write(root + "shaders/crt.glsl",
               "#pragma parameter CURVE \"Screen curvature\" 0.08 0.0 0.25 0.01\n"
               "#pragma parameter SCAN \"Scanline weight\" 6.0 0.5 12.0 0.5\n"
               "#pragma parameter MASK \"Mask strength\" 0.5 0.0 1.0 0.05\n"
               "#pragma parameter GLOW \"\" 0.3 0.0 1.0 0.0\n"
               "#pragma parameter GAMMA \"Output gamma\" 2.2 1.0 3.0 0.1\n"
               "#pragma parameter TILT \"Tilt\" 0.0 -1.0 1.0 0.25\n");
    dir_.Write(root + "out/captures/old.png", "");
    dir_.Write(root + "out/images/c.img", "");
    cwd_ = std::make_unique<ScopedWorkingDirectory>(dir_.path() /
                                                    zorvane::utils::path_from_utf8(root));
#ifndef _WIN32  // the watch sees what the process writes (file_watch.h)
    FileWriteWatch const watch;
    std::ofstream("probe") << "x";
    fs::remove("probe");
    EXPECT_EQ(watch.Writes().size(), 2u) << "the watch sees a file made and removed";
#endif
}

SDL_Window* WholeDialogTest::parent_ = nullptr;

void WholeDialogTest::SetUpTestSuite() {
    parent_ = SDL_CreateWindow("host", 100, 100, 640, 400, SDL_WINDOW_HIDDEN);
#ifdef _WIN32
    std::printf(
        "[  NOTE    ] the writes checks are skipped: the file watch sees the C library's "
        "calls, which Windows programs reach through their import tables\n");
#endif
}

void WholeDialogTest::TearDownTestSuite() {
    SDL_DestroyWindow(parent_);
}

void WholeDialogTest::ResetRecorder() {
    ztest::ResetRecorder();
    Faults().skip_delays = true;
    Faults().fail_accelerated_renderer = true;
}

Outcome WholeDialogTest::Run(Dialog const& dialog, DialogScript const& script) {
    gui::ShutdownSdlUiCachedFonts();  // cached fonts are the cache's, not the call's
    SDL_StopTextInput();
    std::string const before = CountLiveObjects();
    Outcome outcome;
    std::vector<std::string> writes;
    {
        FileWriteWatch const watch;
        outcome = dialog(parent_);
        writes = watch.Writes();
    }
    gui::ShutdownSdlUiCachedFonts();
    EXPECT_FALSE(script.timed_out());
    EXPECT_EQ(outcome.broken, "");
    EXPECT_TRUE(writes.empty()) << writes.front();
    EXPECT_EQ(CountLiveObjects(), before) << "left behind";
    EXPECT_FALSE(SDL_IsTextInputActive());
    if (CountCalls("SDL_ShowWindow") > 0) {
        EXPECT_EQ(RecordedCalls("SDL_RaiseWindow").back().object, parent_);
    }
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    return outcome;
}

}  // namespace ztest
