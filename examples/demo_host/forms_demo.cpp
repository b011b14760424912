// The host's side of the screenshot, disk image and About dialogs: the screenshot
// really writes the host's frame, the disk image is only described.
#include "forms_demo.h"

#include <cstdio>
#include <filesystem>
#include <memory>

#include "capture_files.h"
#include "gui/about.h"
#include "gui/hdd_image.h"
#include "gui/screenshot.h"

namespace demo {

namespace {

namespace gui = zorvane::frontend::gui;

using SurfaceHandle = std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)>;

// What the host's renderer shows now, as a surface of its output size.
SurfaceHandle GrabFrame(SDL_Renderer* renderer) {
    int w = 0;
    int h = 0;
    SDL_GetRendererOutputSize(renderer, &w, &h);
    SurfaceHandle frame(SDL_CreateRGBSurfaceWithFormat(0, w, h, 32, SDL_PIXELFORMAT_RGB888),
                        &SDL_FreeSurface);
    if (frame && SDL_RenderReadPixels(renderer, nullptr, SDL_PIXELFORMAT_RGB888, frame->pixels,
                                      frame->pitch) != 0) {
        frame.reset();
    }
    return frame;
}

}  // namespace

void SaveHostScreenshot(SDL_Window* host_window, SDL_Renderer* host_renderer,
                        std::string const& default_folder) {
    SurfaceHandle const frame = GrabFrame(host_renderer);
    gui::ScreenshotSaveDialogResult const r = gui::ShowScreenshotSaveDialog(
        host_window, default_folder, "", gui::ScreenshotSaveFormat::Png, 90, 6, true);
    if (!r.accepted) {
        std::printf("screenshot cancelled\n");
        return;
    }
    std::string const path =
        (std::filesystem::u8path(r.folder) / std::filesystem::u8path(r.file_name)).u8string();
    std::string how;
    if (!frame) {
        std::printf("screenshot: cannot read the frame: %s\n", SDL_GetError());
    } else if (!WriteCapture(frame.get(), path, r, how)) {
        std::printf("screenshot %s\n", how.c_str());
    } else {
        std::printf("screenshot saved as %s (%s)\n", path.c_str(), how.c_str());
    }
}

void AskForDiskImage(SDL_Window* host_window) {
    gui::HddCreateDialogResult const r = gui::ShowSimpleHddCreateDialog(host_window, "", 0);
    if (!r.accepted) {
        std::printf("disk image cancelled\n");
        return;
    }
    std::printf("would create a %u MB disk image %s in %s\n", r.size_mb, r.file_name.c_str(),
                r.folder.c_str());
}

void ShowAbout(SDL_Window* host_window) {
    gui::ShowSimpleAboutDialog(host_window, 1.0f);
    std::printf("about closed (version %s, built %s)\n", zorvane::frontend::kProgramVersion,
                zorvane::frontend::kProgramBuildDate);
}

}  // namespace demo
