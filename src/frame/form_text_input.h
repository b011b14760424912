// Text editing shared by the form dialogs: SDL's text input held for a scope, and
// the removal of the last character of a field that is edited at its end alone.
#pragma once

#include <SDL.h>

#include <string>

namespace zorvane::frontend::gui {

// Starts SDL's text input and stops it again on every way out of the scope.
class ScopedTextInput {
public:
    ScopedTextInput() { SDL_StartTextInput(); }
    ~ScopedTextInput() { SDL_StopTextInput(); }
    ScopedTextInput(ScopedTextInput const&) = delete;
    ScopedTextInput& operator=(ScopedTextInput const&) = delete;
};

// Removes the last UTF-8 character of `text`: its continuation bytes together with
// the byte that leads them, so no broken sequence is left behind. Stray continuation
// bytes count with the character before them. Does nothing for an empty text.
inline void EraseLastUtf8Character(std::string& text) {
    std::size_t end = text.size();
    while (end > 0 && (static_cast<unsigned char>(text[end - 1]) & 0xC0u) == 0x80u) {
        --end;
    }
    text.erase(end > 0 ? end - 1 : 0);
}

}  // namespace zorvane::frontend::gui
