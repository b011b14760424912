// The dialog frame as the host sees it: the heartbeat that keeps the emulated
// machine running while a dialog is open, and the release functions of SDL objects.
#pragma once

#include <SDL.h>
#include <SDL_ttf.h>

#include <functional>

namespace zorvane::frontend::gui {

// Registers the callable that every dialog loop runs once per frame. It may be set
// from any thread; an empty callable clears it. The callable that stood there
// before is destroyed before this returns.
void SetModalDialogHeartbeat(std::function<void()> heartbeat);

// Runs the registered heartbeat once, if there is one. The lock is not held while
// it runs, so a heartbeat may replace or clear itself. Its exceptions pass through.
void PumpModalDialogHeartbeat();

// Null-tolerant release functions; each does nothing for a null argument.
void DestroySdlWindow(SDL_Window* window) noexcept;
void DestroySdlRenderer(SDL_Renderer* renderer) noexcept;
void DestroySdlTexture(SDL_Texture* texture) noexcept;
void DestroySdlSurface(SDL_Surface* surface) noexcept;
void CloseSdlTtfFont(TTF_Font* font) noexcept;

// Closes every font that the dialogs keep cached and empties the cache. Call it
// while SDL_ttf still runs; a later dialog opens its fonts anew.
void ShutdownSdlUiCachedFonts();

}  // namespace zorvane::frontend::gui
