// What the two form dialogs (screenshot, disk image) share: SDL's text input held
// for a scope, end-of-field editing, the nested folder picker and the modal run.
#pragma once

#include "frame/modal_window.h"
#include "gui/pickers.h"

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

// Backspace at the end of a field: removes the last byte of `text`, if it has one.
// Fields are edited byte by byte, as they are typed; a multi-byte character takes as
// many presses as it has bytes.
inline void EraseLastByte(std::string& text) {
    if (!text.empty()) {
        text.pop_back();
    }
}

// Runs the folder picker over `parent`, opened on `folder`, with "Use" and "Cancel";
// an accepted folder replaces `folder`, a cancelled or failed picker leaves it.
inline void ChooseFolderInto(SDL_Window* parent, char const* window_title, char const* heading,
                             std::string& folder) {
    FolderPickerOptions options;
    options.window_title = window_title;
    options.heading = heading;
    options.accept_label = "Use";
    options.cancel_label = "Cancel";
    options.start_directory = folder;
    std::string chosen = ShowSimpleFolderPicker(parent, options);
    if (!chosen.empty()) {
        folder = std::move(chosen);
    }
}

// One form dialog's window and the functions that its loop feeds. `State` has the
// flags `done` and `shown`.
template <typename State>
struct FormDialogRun {
    SDL_Window* window = nullptr;
    SDL_Renderer* renderer = nullptr;
    void (*handle_key)(State* state, int keycode) = nullptr;
    void (*handle_text)(State* state, char const* text) = nullptr;
    void (*handle_mouse)(State* state, SDL_Window* window, SDL_MouseButtonEvent const& event,
                         bool pressed) = nullptr;
    void (*render)(State const& state, SDL_Window* window, SDL_Renderer* renderer) = nullptr;
};

// Drains the queue into the handlers. A quit or the window's close sets `done` and
// ends this pass; after anything else polling goes on, even once `done` is set.
template <typename State>
void DrainFormDialogEvents(State& state, FormDialogRun<State> const& run, Uint32 window_id) {
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) {
        bool const closes = event.type == SDL_QUIT ||
                            (event.type == SDL_WINDOWEVENT && event.window.windowID == window_id &&
                             event.window.event == SDL_WINDOWEVENT_CLOSE);
        if (closes) {
            state.done = true;
            return;
        }
        if (event.type == SDL_KEYDOWN) {
            run.handle_key(&state, event.key.keysym.sym);
        } else if (event.type == SDL_TEXTINPUT) {
            run.handle_text(&state, event.text.text);
        } else if ((event.type == SDL_MOUSEBUTTONDOWN || event.type == SDL_MOUSEBUTTONUP) &&
                   event.button.button == SDL_BUTTON_LEFT) {
            run.handle_mouse(&state, run.window, event.button, event.type == SDL_MOUSEBUTTONDOWN);
        }
    }
}

// Until `done`: the heartbeat, the events, the whole frame and its present, the
// window shown after the first present, then 8 ms of sleep.
template <typename State>
void RunFormDialogLoop(State& state, FormDialogRun<State> const& run) {
    Uint32 const window_id = SDL_GetWindowID(run.window);
    while (!state.done) {
        PumpModalDialogHeartbeat();
        DrainFormDialogEvents(state, run, window_id);
        run.render(state, run.window, run.renderer);
        SDL_RenderPresent(run.renderer);
        if (!state.shown) {
            SDL_ShowWindow(run.window);
            SDL_RaiseWindow(run.window);
            SDL_SetWindowInputFocus(run.window);
            state.shown = true;
        }
        SDL_Delay(8);
    }
}

// The whole run of a form dialog: text input on around the loop, and the focus
// given back to `parent` after it.
template <typename State>
void RunFormDialog(State& state, SDL_Window* parent, FormDialogRun<State> const& run) {
    {
        ScopedTextInput const text_input;
        RunFormDialogLoop(state, run);
    }
    RestoreModalParentFocus(parent);
}

}  // namespace zorvane::frontend::gui
