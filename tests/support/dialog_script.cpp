// The heartbeat-driven dialog script and its event helpers.
#include "support/dialog_script.h"

#include "gui/frame.h"

namespace ztest {

void PushEvent(SDL_Event event) {
    SDL_PushEvent(&event);
}

DialogScript::DialogScript() {
    zorvane::frontend::gui::SetModalDialogHeartbeat([this] { Beat(); });
}

DialogScript::~DialogScript() {
    zorvane::frontend::gui::SetModalDialogHeartbeat(nullptr);
}

DialogScript& DialogScript::At(int frame, Step step) {
    steps_[frame].push_back(std::move(step));
    last_step_frame_ = std::max(last_step_frame_, frame);
    return *this;
}

DialogScript& DialogScript::Then(Step step, int frames) {
    return At(last_step_frame_ + frames, std::move(step));
}

void DialogScript::Beat() {
    ++frame_;
    auto const it = steps_.find(frame_);
    if (it != steps_.end()) {
        // Steps may add further steps, so run them from a copy.
        std::vector<Step> const due = it->second;
        for (Step const& step : due) {
            step(*this);
        }
    }
    if (frame_ > last_step_frame_ + grace_frames_) {
        timed_out_ = true;
        PushEvent(SDL_Event{SDL_QUIT});
    }
}

SDL_Window* DialogScript::Window() const {
    return TopWindow();
}

Uint32 DialogScript::WindowId() const {
    SDL_Window* window = Window();
    return window != nullptr ? SDL_GetWindowID(window) : 0;
}

Frame DialogScript::Capture() const {
    return FrameOfWindow(WindowId());
}

void DialogScript::Key(SDL_Keycode sym, bool repeat) const {
    SDL_Event event{SDL_KEYDOWN};
    event.key = {SDL_KEYDOWN, 0, WindowId(), SDL_PRESSED, Uint8(repeat ? 1 : 0), 0, 0, {}};
    event.key.keysym.sym = sym;
    event.key.keysym.scancode = SDL_GetScancodeFromKey(sym);
    PushEvent(event);
}

void DialogScript::Text(char const* text) const {
    SDL_Event event{SDL_TEXTINPUT};
    event.text.windowID = WindowId();
    SDL_strlcpy(event.text.text, text, sizeof(event.text.text));
    PushEvent(event);
}

void DialogScript::Button(bool down, int x, int y, Uint8 button, Uint8 clicks) const {
    Uint32 const type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
    SDL_Event event{type};
    event.button = {type, 0, WindowId(), 0, button, Uint8(down ? 1 : 0), clicks, 0, x, y};
    PushEvent(event);
}

void DialogScript::Motion(int x, int y) const {
    SDL_Event event{SDL_MOUSEMOTION};
    event.motion.windowID = WindowId();
    event.motion.x = x;
    event.motion.y = y;
    PushEvent(event);
}

void DialogScript::Wheel(int y) const {
    SDL_Event event{SDL_MOUSEWHEEL};
    event.wheel.windowID = WindowId();
    event.wheel.y = y;
    PushEvent(event);
}

void DialogScript::Hover(int x, int y) const {
    ScriptedPointer& pointer = Pointer();
    pointer.active = true;
    pointer.window = Window();
    pointer.x = x;
    pointer.y = y;
}

namespace gestures {

using Step = DialogScript::Step;

Step Key(SDL_Keycode key) {
    return [key](DialogScript& s) { s.Key(key); };
}
Step Text(char const* text) {
    return [text](DialogScript& s) { s.Text(text); };
}
Step Wheel(int notches) {
    return [notches](DialogScript& s) { s.Wheel(notches); };
}
Step Hover(int x, int y) {
    return [x, y](DialogScript& s) {
        s.Hover(x, y);
        s.Motion(x, y);
    };
}
Step Press(int x, int y) {
    return [x, y](DialogScript& s) {
        s.Hover(x, y);
        Pointer().buttons = SDL_BUTTON_LMASK;
        s.Button(true, x, y);
    };
}
Step Release(int x, int y) {
    return [x, y](DialogScript& s) {
        s.Hover(x, y);
        Pointer().buttons = 0;
        s.Button(false, x, y);
    };
}
Step Click(int x, int y, Uint8 clicks, Uint8 button) {
    return [x, y, clicks, button](DialogScript& s) {
        s.Hover(x, y);
        s.Button(true, x, y, button, clicks);
        s.Button(false, x, y, button, clicks);
    };
}
Step Resize(int width, int height) {
    return [width, height](DialogScript& s) { SDL_SetWindowSize(s.Window(), width, height); };
}
Step Quit() {
    return [](DialogScript&) { PushEvent(SDL_Event{SDL_QUIT}); };
}
Step CloseWindow() {
    return [](DialogScript& s) {
        SDL_Event event{SDL_WINDOWEVENT};
        event.window = {SDL_WINDOWEVENT, 0, s.WindowId(), SDL_WINDOWEVENT_CLOSE, 0, 0, 0, 0, 0};
        PushEvent(event);
    };
}

}  // namespace gestures

}  // namespace ztest
