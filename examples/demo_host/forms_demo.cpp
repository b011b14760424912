// The host's side of the screenshot, disk image and About dialogs: the screenshot
// really writes the host's frame, the disk image is only described.
#include "forms_demo.h"

#include <filesystem>
#include <memory>

#include "capture_files.h"
#include "gui/about.h"
#include "gui/hdd_image.h"
#include "gui/screenshot.h"

namespace demo {

namespace {

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

void SaveHostScreenshot(Host& host) {
    SurfaceHandle const frame = GrabFrame(host.renderer);
    gui::ScreenshotSaveDialogResult const r = gui::ShowScreenshotSaveDialog(
        host.window, host.capture_folder, "", gui::ScreenshotSaveFormat::Png, 90, 6, true);
    if (!r.accepted) {
        Tell(host, "screenshot cancelled");
        return;
    }
    std::string const path =
        (std::filesystem::u8path(r.folder) / std::filesystem::u8path(r.file_name)).u8string();
    std::string how;
    if (!frame) {
        Tell(host, std::string("screenshot: cannot read the frame: ") + SDL_GetError());
    } else if (!WriteCapture(frame.get(), path, r, how)) {
        Tell(host, "screenshot " + how);
    } else {
        host.last_capture = path;
        Tell(host, "screenshot saved as " + path + " (" + how + ")");
    }
}

void AskForDiskImage(Host& host) {
    gui::HddCreateDialogResult const r = gui::ShowSimpleHddCreateDialog(host.window, "", 0);
    if (!r.accepted) {
        Tell(host, "disk image cancelled");
        return;
    }
    std::string const path =
        (std::filesystem::u8path(r.folder) / std::filesystem::u8path(r.file_name)).u8string();
    // The geometry a host would give the image: 16 heads of 63 sectors of 512 bytes.
    unsigned long long const bytes = static_cast<unsigned long long>(r.size_mb) << 20;
    Tell(host, "would create " + path + ": " + std::to_string(bytes) + " bytes, " +
                   std::to_string(bytes / (16 * 63 * 512)) + " cylinders of 16 heads, 63 sectors");
}

void ShowAbout(Host& host) {
    gui::ShowSimpleAboutDialog(host.window, 1.0f);
    Tell(host, std::string("about closed (version ") + zorvane::frontend::kProgramVersion +
                   ", built " + zorvane::frontend::kProgramBuildDate + ")");
}

}  // namespace demo
