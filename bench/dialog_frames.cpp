// The frame benchmarks of the dialog report: what each dialog's loop draws in one
// idle turn (no pointer over it), fonts and present included, with the layout work
// that the loop repeats every turn.
#include "dialog_frames.h"

#include "about/about_dialog.h"
#include "bench_support.h"
#include "frame/draw.h"
#include "frame/ui_fonts.h"
#include "hdd_image/hdd_create_dialog.h"
#include "message_box/message_box_internal.h"
#include "pickers/picker_dialog.h"
#include "screenshot/screenshot_dialog.h"
#include "shader_params/shader_dialog.h"

#include <functional>
#include <set>
#include <utility>

namespace zbench {

namespace fs = std::filesystem;
using namespace zorvane::frontend::gui;

namespace {

// One dialog's frame benchmark and the window size that its floor takes.
struct FrameBench {
    std::string dialog;
    std::string name;
    int width = 0;
    int height = 0;
    std::function<void(benchmark::State&)> run;
};

// [SECTION] Message box

int MessageBoxHeight() {
    SdlMessageBox const box(ReportMessageBoxConfig());
    SdlMessageBoxFonts const fonts = OpenSdlMessageBoxFonts(1.0f);
    return BuildSdlMessageBoxLayout(box.config(), 1.0f, kReportMessageBoxWidth, 180,
                                    fonts.title.get(), fonts.message.get())
        .window_height;
}

void MessageBoxFrames(benchmark::State& state, int height) {
    SoftwareWindow window(kReportMessageBoxWidth, height);
    SdlMessageBox const box(ReportMessageBoxConfig());
    SdlMessageBoxFonts const fonts = OpenSdlMessageBoxFonts(1.0f);
    MessageBoxTypeVisual const visual = VisualForMessageBoxType(box.config().type);
    for (auto _ : state) {
        SdlMessageBoxLayout const layout =
            BuildSdlMessageBoxLayout(box.config(), 1.0f, kReportMessageBoxWidth, height,
                                     fonts.title.get(), fonts.message.get());
        RenderSdlMessageBoxFrame(window.renderer(), box.config(), visual, layout, fonts.icon.get(),
                                 fonts.title.get(), fonts.message.get(), fonts.button.get(), -1,
                                 -1);
        SDL_RenderPresent(window.renderer());
    }
}

// [SECTION] Pickers

SdlPickerDialogOptions FilePickerOptions(fs::path const& folder) {
    SdlPickerDialogOptions options;
    options.window_title = "Load Floppy Image";
    options.heading = "Select floppy image (*.ima, *.img)";
    options.start_directory = folder;
    options.load_entries = kFloppyPickerFamily.load_entries;
    options.label_entry = kFloppyPickerFamily.label_entry;
    options.accept_label = "Open";
    options.cancel_label = "Cancel";
    options.window_width = 760;
    options.window_height = 520;
    options.footer_height = 46;
    options.button_width = 70;
    options.button_height = 30;
    options.picker_mode = kPickFile;
    return options;
}

SdlPickerDialogOptions FolderPickerOptions(fs::path const& folder) {
    SdlPickerDialogOptions options;
    options.window_title = "Select Folder";
    options.heading = "Select destination folder";
    options.start_directory = folder;
    options.load_entries = kFolderPickerFamily.load_entries;
    options.label_entry = kFolderPickerFamily.label_entry;
    options.accept_label = "Select";
    options.cancel_label = "Cancel";
    options.window_width = 780;
    options.window_height = 540;
    options.footer_height = 50;
    options.button_width = 86;
    options.button_height = 34;
    options.picker_mode = kPickShownFolder;
    return options;
}

void PickerFrames(benchmark::State& state, SdlPickerDialogOptions const& options) {
    SoftwareWindow window(options.window_width, options.window_height);
    PickerDialogState picker;
    ChangePickerDirectory(options, picker, options.start_directory);
    for (auto _ : state) {
        PickerDialogLayout const layout =
            BuildPickerDialogLayout(options, options.window_width, options.window_height);
        ClampPickerScroll(picker, layout);
        RenderPickerDialogFrame(window.renderer(), options, picker, layout);
        SDL_RenderPresent(window.renderer());
    }
}

// [SECTION] Settings

void SettingsFrames(benchmark::State& state) {
    SoftwareWindow window(820, 492);
    SdlUiFontHandle const title = OpenSdlUiFontHandle(15, true, kSemiBold);
    SdlUiFontHandle const body = OpenSdlUiFontHandle(15, false, kSemiBold);
    std::vector<NavItem> const items = BuildSettingsNavItems();
    SettingsDialogValues const values = ReportSettingsValues();
    int const panel = FindInitialSettingsPanel(items);
    for (auto _ : state) {
        DrawSettingsFrame(window.renderer(), title.get(), body.get(), items, values, panel, -1, -1);
    }
}

// [SECTION] Shader parameters

}  // namespace

ShaderDialogSession ShaderSession(SDL_Window* window, SDL_Renderer* renderer, TTF_Font* title_font,
                                  TTF_Font* body_font, std::string const& path,
                                  std::vector<ShaderParameterSpec> const& specs,
                                  ShaderDialogGeometry const& geometry,
                                  ShaderDialogResult& result) {
    ShaderDialogSession session;
    session.window = window;
    session.renderer = renderer;
    session.title_font = title_font;
    session.body_font = body_font;
    session.path = &path;
    session.specs = &specs;
    session.geometry = &geometry;
    session.result = &result;
    session.shown = true;
    return session;
}

namespace {

ShaderDialogGeometry ShaderGeometry(std::string const& shader_path) {
    auto const count = static_cast<int>(ParseShaderParameterSpecs(shader_path).size());
    return BuildShaderDialogGeometry(count, 1.0f);
}

void ShaderFrames(benchmark::State& state, std::string const& shader_path) {
    std::vector<ShaderParameterSpec> const specs = ParseShaderParameterSpecs(shader_path);
    ShaderDialogResult result = InitializeShaderDialogResult(specs, {});
    ShaderDialogGeometry const geometry = ShaderGeometry(shader_path);
    int const width = geometry.window_width;
    int const height = geometry.window_height;
    SoftwareWindow window(width, height);
    SdlUiFontHandle const title_font = OpenSdlUiFontHandle(16, true, kSemiBold);
    SdlUiFontHandle const body_font = OpenSdlUiFontHandle(15, false, kRegular);
    ShaderDialogSession session =
        ShaderSession(window.window(), window.renderer(), title_font.get(), body_font.get(),
                      shader_path, specs, geometry, result);
    for (auto _ : state) {
        RenderShaderDialog(&session, BuildShaderDialogLayout(session, width, height), width,
                           height);
    }
}

// [SECTION] Screenshot and disk image forms

void ScreenshotFrames(benchmark::State& state, std::string const& folder) {
    SoftwareWindow window(900, 410);
    std::string const file_name = "capture.png";
    std::string const jpeg_quality = "90";
    std::string const png_compression = "2";
    ScreenshotSaveDialogSession session;
    session.renderer = window.renderer();
    session.folder = &folder;
    session.file_name = &file_name;
    session.jpeg_quality_text = &jpeg_quality;
    session.png_compression_text = &png_compression;
    for (auto _ : state) {
        RenderScreenshotSaveDialog(session, BuildScreenshotSaveDialogLayout(900, 410));
        SDL_RenderPresent(window.renderer());
    }
}

void DiskImageFrames(benchmark::State& state, std::string const& folder) {
    SoftwareWindow window(860, 390);
    HddCreateDialogState form;
    form.size_text = "10";
    form.folder_text = folder;
    form.file_name_text = "disk.img";
    for (auto _ : state) {
        RenderHddCreateDialog(window.renderer(), form);
        SDL_RenderPresent(window.renderer());
    }
}

// [SECTION] About

int AboutHeight() {
    AboutDialogFonts const fonts = OpenAboutDialogFonts(kAboutDialogScale);
    return AboutDialogWindowHeight(BuildAboutDialogMetrics(fonts, kAboutDialogScale));
}

void AboutFrames(benchmark::State& state) {
    AboutDialogFonts const fonts = OpenAboutDialogFonts(kAboutDialogScale);
    AboutDialogMetrics const m = BuildAboutDialogMetrics(fonts, kAboutDialogScale);
    AboutDialogInfoRows const rows = BuildAboutDialogInfoRows();
    int const height = AboutDialogWindowHeight(m);
    SoftwareWindow window(kAboutDialogWidth, height);
    // The rectangles that the dialog's run keeps: outer frame, content, footer.
    int const margin = m.outer_margin;
    int const inner_width = kAboutDialogWidth - 2 - 2 * margin;
    SDL_Rect const outer{margin, margin, kAboutDialogWidth - 2 * margin, height - 2 * margin};
    SDL_Rect const content{margin + 1, margin + 1, inner_width,
                           height - 2 * margin - m.footer_height - 1};
    SDL_Rect const footer{margin + 1, height - margin - m.footer_height, inner_width,
                          m.footer_height - 1};
    SDL_Rect video{0, 0, 0, 0};
    SDL_Rect home{0, 0, 0, 0};
    for (auto _ : state) {
        RenderAboutDialogFrame(window.renderer(), outer, content, footer, fonts, m, rows, -1, -1,
                               &video, &home);
        SDL_RenderPresent(window.renderer());
    }
}

// [SECTION] Registration

std::vector<FrameBench> DialogFrameBenches(ReportFolder const& folder) {
    std::string const folder_text = folder.path().string();
    std::string const shader_path = folder.ShaderPath();
    int const box_height = MessageBoxHeight();
    ShaderDialogGeometry const shader = ShaderGeometry(shader_path);
    SdlPickerDialogOptions const files = FilePickerOptions(folder.path());
    SdlPickerDialogOptions const folders = FolderPickerOptions(folder.path());
    return {
        {"message box", "BM_MessageBoxFrame", kReportMessageBoxWidth, box_height,
         [box_height](benchmark::State& s) { MessageBoxFrames(s, box_height); }},
        {"folder picker", "BM_FolderPickerFrame", 780, 540,
         [folders](benchmark::State& s) { PickerFrames(s, folders); }},
        {"file picker", "BM_FilePickerFrame", 760, 520,
         [files](benchmark::State& s) { PickerFrames(s, files); }},
        {"settings", "BM_SettingsFrame", 820, 492, SettingsFrames},
        {"shader parameters", "BM_ShaderDialogFrame", shader.window_width, shader.window_height,
         [shader_path](benchmark::State& s) { ShaderFrames(s, shader_path); }},
        {"screenshot", "BM_ScreenshotFrame", 900, 410,
         [folder_text](benchmark::State& s) { ScreenshotFrames(s, folder_text); }},
        {"disk image", "BM_DiskImageFrame", 860, 390,
         [folder_text](benchmark::State& s) { DiskImageFrames(s, folder_text); }},
        {"About", "BM_AboutFrame", kAboutDialogWidth, AboutHeight(), AboutFrames},
    };
}

std::string FloorName(int width, int height) {
    return "BM_ClearPresentFloor/" + std::to_string(width) + "x" + std::to_string(height);
}

void RegisterFloor(int width, int height) {
    benchmark::RegisterBenchmark(FloorName(width, height).c_str(),
                                 [width, height](benchmark::State& state) {
                                     SoftwareWindow window(width, height);
                                     for (auto _ : state) {
                                         ClearAndPresent(window.renderer());
                                     }
                                 });
}

}  // namespace

void DrawSettingsFrame(SDL_Renderer* renderer, TTF_Font* title_font, TTF_Font* body_font,
                       std::vector<NavItem> const& items, SettingsDialogValues const& values,
                       int panel, int mouse_x, int mouse_y) {
    SettingsDialogButtons const buttons = BuildSettingsDialogButtons();
    SDL_SetRenderDrawColor(renderer, 18, 21, 27, 255);
    SDL_RenderClear(renderer);
    DrawLeftPanel(renderer, title_font, body_font, items, panel, mouse_x, mouse_y);
    FillRect(renderer, {225, 0, 595, 436}, {18, 21, 27, 255});
    RightPanelContext context;
    context.renderer = renderer;
    context.title_font = title_font;
    context.body_font = body_font;
    context.active_panel = panel;
    context.mouse_x = mouse_x;
    context.mouse_y = mouse_y;
    context.values = &values;
    benchmark::DoNotOptimize(DrawRightPanel(context));
    DrawBottomBar(renderer, body_font, buttons.cancel, buttons.apply, mouse_x, mouse_y);
    SDL_RenderPresent(renderer);
}

std::map<std::string, FrameCase> RegisterDialogFrameBenchmarks(ReportFolder const& folder) {
    std::map<std::string, FrameCase> cases;
    std::set<std::pair<int, int>> floors;
    for (FrameBench& bench : DialogFrameBenches(folder)) {
        if (floors.insert({bench.width, bench.height}).second) {
            RegisterFloor(bench.width, bench.height);
        }
        benchmark::RegisterBenchmark(bench.name.c_str(), std::move(bench.run));
        cases[bench.dialog] = {bench.name, FloorName(bench.width, bench.height)};
    }
    return cases;
}

}  // namespace zbench
