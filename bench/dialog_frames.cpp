// The frames of the dialog report: what each dialog's loop draws in one idle turn (no
// pointer over it), fonts and present included, with the layout work that the loop
// repeats every turn.
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

#include <memory>
#include <utility>

namespace zbench {

namespace fs = std::filesystem;
using namespace zorvane::frontend::gui;

namespace {

template <typename T>
std::shared_ptr<T const> Keep(T value) {
    return std::make_shared<T const>(std::move(value));
}

// [SECTION] Message box

int MessageBoxHeight() {
    SdlMessageBox const box(ReportMessageBoxConfig());
    SdlMessageBoxFonts const fonts = OpenSdlMessageBoxFonts(1.0f);
    return BuildSdlMessageBoxLayout(box.config(), 1.0f, kReportMessageBoxWidth, 180,
                                    fonts.title.get(), fonts.message.get())
        .window_height;
}

FrameDrawing OpenMessageBoxFrame(int height) {
    auto const window = std::make_shared<SoftwareWindow>(kReportMessageBoxWidth, height);
    auto const box = std::make_shared<SdlMessageBox const>(ReportMessageBoxConfig());
    auto const fonts = Keep(OpenSdlMessageBoxFonts(1.0f));
    MessageBoxTypeVisual const visual = VisualForMessageBoxType(box->config().type);
    return [window, box, fonts, visual, height] {
        SdlMessageBoxLayout const layout =
            BuildSdlMessageBoxLayout(box->config(), 1.0f, kReportMessageBoxWidth, height,
                                     fonts->title.get(), fonts->message.get());
        RenderSdlMessageBoxFrame(window->renderer(), box->config(), visual, layout,
                                 fonts->icon.get(), fonts->title.get(), fonts->message.get(),
                                 fonts->button.get(), -1, -1);
        SDL_RenderPresent(window->renderer());
    };
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

FrameDrawing OpenPickerFrame(SdlPickerDialogOptions const& options) {
    auto const window =
        std::make_shared<SoftwareWindow>(options.window_width, options.window_height);
    auto const picker = std::make_shared<PickerDialogState>();
    ChangePickerDirectory(options, *picker, options.start_directory);
    return [window, picker, options] {
        PickerDialogLayout const layout =
            BuildPickerDialogLayout(options, options.window_width, options.window_height);
        ClampPickerScroll(*picker, layout);
        RenderPickerDialogFrame(window->renderer(), options, *picker, layout);
        SDL_RenderPresent(window->renderer());
    };
}

// [SECTION] Settings

FrameDrawing OpenSettingsFrame() {
    auto const window = std::make_shared<SoftwareWindow>(820, 492);
    auto const title = Keep(OpenSdlUiFontHandle(15, true, kSemiBold));
    auto const body = Keep(OpenSdlUiFontHandle(15, false, kSemiBold));
    auto const items = Keep(BuildSettingsNavItems());
    auto const values = Keep(ReportSettingsValues());
    int const panel = FindInitialSettingsPanel(*items);
    return [window, title, body, items, values, panel] {
        DrawSettingsFrame(window->renderer(), title->get(), body->get(), *items, *values, panel, -1,
                          -1);
    };
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

// What a shader dialog frame keeps: the session points into it.
struct ShaderFrameParts {
    explicit ShaderFrameParts(std::string shader_path)
        : path(std::move(shader_path)),
          specs(ParseShaderParameterSpecs(path)),
          geometry(BuildShaderDialogGeometry(static_cast<int>(specs.size()), 1.0f)),
          result(InitializeShaderDialogResult(specs, {})),
          window(geometry.window_width, geometry.window_height),
          title_font(OpenSdlUiFontHandle(16, true, kSemiBold)),
          body_font(OpenSdlUiFontHandle(15, false, kRegular)),
          session(ShaderSession(window.window(), window.renderer(), title_font.get(),
                                body_font.get(), path, specs, geometry, result)) {}

    std::string path;
    std::vector<ShaderParameterSpec> specs;
    ShaderDialogGeometry geometry;
    ShaderDialogResult result;
    SoftwareWindow window;
    SdlUiFontHandle title_font;
    SdlUiFontHandle body_font;
    ShaderDialogSession session;
};

FrameDrawing OpenShaderFrame(std::string const& shader_path) {
    auto const parts = std::make_shared<ShaderFrameParts>(shader_path);
    return [parts] {
        int const width = parts->geometry.window_width;
        int const height = parts->geometry.window_height;
        RenderShaderDialog(&parts->session, BuildShaderDialogLayout(parts->session, width, height),
                           width, height);
    };
}

// [SECTION] Screenshot and disk image forms

// What a screenshot form frame keeps: the session points into it.
struct ScreenshotFrameParts {
    explicit ScreenshotFrameParts(std::string folder_text) : folder(std::move(folder_text)) {
        session.renderer = window.renderer();
        session.folder = &folder;
        session.file_name = &file_name;
        session.jpeg_quality_text = &jpeg_quality;
        session.png_compression_text = &png_compression;
    }

    SoftwareWindow window{900, 410};
    std::string folder;
    std::string file_name = "capture.png";
    std::string jpeg_quality = "90";
    std::string png_compression = "2";
    ScreenshotSaveDialogSession session;
};

FrameDrawing OpenScreenshotFrame(std::string const& folder) {
    auto const parts = std::make_shared<ScreenshotFrameParts>(folder);
    return [parts] {
        RenderScreenshotSaveDialog(parts->session, BuildScreenshotSaveDialogLayout(900, 410));
        SDL_RenderPresent(parts->window.renderer());
    };
}

FrameDrawing OpenDiskImageFrame(std::string const& folder) {
    auto const window = std::make_shared<SoftwareWindow>(860, 390);
    auto form = std::make_shared<HddCreateDialogState>();
    form->size_text = "10";
    form->folder_text = folder;
    form->file_name_text = "disk.img";
    return [window, form] {
        RenderHddCreateDialog(window->renderer(), *form);
        SDL_RenderPresent(window->renderer());
    };
}

// [SECTION] About

int AboutHeight() {
    AboutDialogFonts const fonts = OpenAboutDialogFonts(kAboutDialogScale);
    return AboutDialogWindowHeight(BuildAboutDialogMetrics(fonts, kAboutDialogScale));
}

// What an About frame keeps, with the rectangles that the dialog's run keeps: outer
// frame, content and footer.
struct AboutFrameParts {
    AboutFrameParts()
        : fonts(OpenAboutDialogFonts(kAboutDialogScale)),
          m(BuildAboutDialogMetrics(fonts, kAboutDialogScale)),
          rows(BuildAboutDialogInfoRows()),
          height(AboutDialogWindowHeight(m)),
          window(kAboutDialogWidth, height) {
        int const margin = m.outer_margin;
        int const inner_width = kAboutDialogWidth - 2 - 2 * margin;
        outer = {margin, margin, kAboutDialogWidth - 2 * margin, height - 2 * margin};
        content = {margin + 1, margin + 1, inner_width, height - 2 * margin - m.footer_height - 1};
        footer = {margin + 1, height - margin - m.footer_height, inner_width, m.footer_height - 1};
    }

    AboutDialogFonts fonts;
    AboutDialogMetrics m;
    AboutDialogInfoRows rows;
    int height = 0;
    SoftwareWindow window;
    SDL_Rect outer{0, 0, 0, 0};
    SDL_Rect content{0, 0, 0, 0};
    SDL_Rect footer{0, 0, 0, 0};
};

FrameDrawing OpenAboutFrame() {
    auto const parts = std::make_shared<AboutFrameParts>();
    return [parts] {
        SDL_Rect video{0, 0, 0, 0};
        SDL_Rect home{0, 0, 0, 0};
        RenderAboutDialogFrame(parts->window.renderer(), parts->outer, parts->content,
                               parts->footer, parts->fonts, parts->m, parts->rows, -1, -1, &video,
                               &home);
        SDL_RenderPresent(parts->window.renderer());
    };
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

std::vector<DialogFrame> DialogFrames(ReportFolder const& folder) {
    std::string const folder_text = folder.path().string();
    std::string const shader_path = folder.ShaderPath();
    int const box_height = MessageBoxHeight();
    auto const shader_specs = static_cast<int>(ParseShaderParameterSpecs(shader_path).size());
    ShaderDialogGeometry const shader = BuildShaderDialogGeometry(shader_specs, 1.0f);
    SdlPickerDialogOptions const files = FilePickerOptions(folder.path());
    SdlPickerDialogOptions const folders = FolderPickerOptions(folder.path());
    return {
        {"message box", "MessageBox", kReportMessageBoxWidth, box_height,
         [box_height] { return OpenMessageBoxFrame(box_height); }},
        {"folder picker", "FolderPicker", 780, 540, [folders] { return OpenPickerFrame(folders); }},
        {"file picker", "FilePicker", 760, 520, [files] { return OpenPickerFrame(files); }},
        {"settings", "Settings", 820, 492, OpenSettingsFrame},
        {"shader parameters", "ShaderDialog", shader.window_width, shader.window_height,
         [shader_path] { return OpenShaderFrame(shader_path); }},
        {"screenshot", "Screenshot", 900, 410,
         [folder_text] { return OpenScreenshotFrame(folder_text); }},
        {"disk image", "DiskImage", 860, 390,
         [folder_text] { return OpenDiskImageFrame(folder_text); }},
        {"About", "About", kAboutDialogWidth, AboutHeight(), OpenAboutFrame},
    };
}

}  // namespace zbench
