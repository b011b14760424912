// The modal window of a dialog: the owned window and renderer pair, its creation
// over a parent, and the return of the focus to that parent.
#pragma once

#include "gui/frame.h"

#include <memory>

namespace zorvane::frontend::gui {

struct SdlWindowDeleter {
    void operator()(SDL_Window* window) const noexcept { DestroySdlWindow(window); }
};
struct SdlRendererDeleter {
    void operator()(SDL_Renderer* renderer) const noexcept { DestroySdlRenderer(renderer); }
};
struct SdlTextureDeleter {
    void operator()(SDL_Texture* texture) const noexcept { DestroySdlTexture(texture); }
};
struct SdlSurfaceDeleter {
    void operator()(SDL_Surface* surface) const noexcept { DestroySdlSurface(surface); }
};
struct TtfFontDeleter {
    void operator()(TTF_Font* font) const noexcept { CloseSdlTtfFont(font); }
};

using SdlWindowHandle = std::unique_ptr<SDL_Window, SdlWindowDeleter>;
using SdlRendererHandle = std::unique_ptr<SDL_Renderer, SdlRendererDeleter>;
using SdlTextureHandle = std::unique_ptr<SDL_Texture, SdlTextureDeleter>;
using SdlSurfaceHandle = std::unique_ptr<SDL_Surface, SdlSurfaceDeleter>;

// The window and renderer of one dialog. Members are destroyed in reverse order,
// so the renderer always goes before its window. Move-only.
struct ModalWindowBundle {
    SdlWindowHandle window;
    SdlRendererHandle renderer;
};

enum ModalRendererMode : int {
    kPreferAccelerated = 0,  // accelerated first, software as the fallback
    kSoftwareOnly = 1,       // software only; every other value acts like 0
};

// Creates a window at (`x`, `y`) from the parent's top-left corner, or offset from
// a centred position without a parent, made modal for `parent`, with its renderer.
// Yields both handles or neither.
ModalWindowBundle CreateModalWindowBundle(SDL_Window* parent, char const* title, int x, int y,
                                          int width, int height, unsigned int window_flags,
                                          ModalRendererMode renderer_mode) noexcept;

// Raises the parent and gives it the input focus; does nothing for a null parent.
void RestoreModalParentFocus(SDL_Window* parent) noexcept;

}  // namespace zorvane::frontend::gui
