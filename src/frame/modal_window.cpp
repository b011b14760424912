// Creation of a dialog's modal window and renderer, focus return, release functions.
#include "frame/modal_window.h"

namespace zorvane::frontend::gui {

void DestroySdlWindow(SDL_Window* window) noexcept {
    if (window != nullptr) {
        SDL_DestroyWindow(window);
    }
}

void DestroySdlRenderer(SDL_Renderer* renderer) noexcept {
    if (renderer != nullptr) {
        SDL_DestroyRenderer(renderer);
    }
}

void DestroySdlTexture(SDL_Texture* texture) noexcept {
    if (texture != nullptr) {
        SDL_DestroyTexture(texture);
    }
}

void DestroySdlSurface(SDL_Surface* surface) noexcept {
    if (surface != nullptr) {
        SDL_FreeSurface(surface);
    }
}

void CloseSdlTtfFont(TTF_Font* font) noexcept {
    if (font != nullptr) {
        TTF_CloseFont(font);
    }
}

ModalWindowBundle CreateModalWindowBundle(SDL_Window* parent, char const* title, int x, int y,
                                          int width, int height, unsigned int window_flags,
                                          ModalRendererMode renderer_mode) noexcept {
    // Without a parent the offset is added to the centred marker value itself, so
    // both cases form the position the same way.
    int base_x = static_cast<int>(SDL_WINDOWPOS_CENTERED);
    int base_y = static_cast<int>(SDL_WINDOWPOS_CENTERED);
    if (parent != nullptr) {
        SDL_GetWindowPosition(parent, &base_x, &base_y);
    }

    ModalWindowBundle bundle;
    bundle.window.reset(
        SDL_CreateWindow(title, base_x + x, base_y + y, width, height, window_flags));
    if (!bundle.window) {
        return {};
    }
    if (parent != nullptr) {
        SDL_SetWindowModalFor(bundle.window.get(), parent);
    }

    if (renderer_mode != kSoftwareOnly) {
        bundle.renderer.reset(
            SDL_CreateRenderer(bundle.window.get(), -1, SDL_RENDERER_ACCELERATED));
        if (bundle.renderer) {
            return bundle;
        }
    }
    bundle.renderer.reset(SDL_CreateRenderer(bundle.window.get(), -1, SDL_RENDERER_SOFTWARE));
    if (bundle.renderer) {
        return bundle;
    }
    return {};
}

void RestoreModalParentFocus(SDL_Window* parent) noexcept {
    if (parent != nullptr) {
        SDL_RaiseWindow(parent);
        SDL_SetWindowInputFocus(parent);
    }
}

}  // namespace zorvane::frontend::gui
