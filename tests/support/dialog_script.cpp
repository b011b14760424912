// The heartbeat-driven dialog script and its gestures.
#include "support/dialog_script.h"

#include "gui/frame.h"

namespace ztest {

DialogScript::DialogScript() {
    zorvane::frontend::gui::SetModalDialogHeartbeat([this] { Beat(); });
}

DialogScript::~DialogScript() {
    zorvane::frontend::gui::SetModalDialogHeartbeat(nullptr);
}

void DialogScript::At(int frame, Step step) {
    steps_[frame].push_back(std::move(step));
    last_step_frame_ = std::max(last_step_frame_, frame);
}

void DialogScript::Then(Step step, int frames) {
    At(last_step_frame_ + frames, std::move(step));
}

void DialogScript::Beat() {
    ++frame_;
    std::vector<Step> const due = steps_[frame_];  // a copy: steps may add steps
    for (Step const& step : due) {
        step(*this);
    }
    if (frame_ > last_step_frame_ + grace_frames_) {
        timed_out_ = true;
        gestures::Quit()(*this);
    }
}

SDL_Window* DialogScript::Window() const {
    return TopWindow();
}

Uint32 DialogScript::WindowId() const {
    return Window() != nullptr ? SDL_GetWindowID(Window()) : 0;
}

Frame DialogScript::Capture() const {
    return FrameOfWindow(WindowId());
}

namespace gestures {

namespace {

void Push(SDL_Event event) {
    SDL_PushEvent(&event);
}

void PointAt(DialogScript const& s, int x, int y, Uint32 buttons) {
    Pointer() = {true, s.Window(), x, y, buttons};
}

}  // namespace

Step Key(SDL_Keycode key, bool repeat) {
    return [key, repeat](DialogScript& s) {
        SDL_Event event{SDL_KEYDOWN};
        event.key = {SDL_KEYDOWN, 0, s.WindowId(), SDL_PRESSED, Uint8(repeat ? 1 : 0), 0, 0, {}};
        event.key.keysym.sym = key;
        event.key.keysym.scancode = SDL_GetScancodeFromKey(key);
        Push(event);
    };
}
Step Text(std::string text) {
    return [text](DialogScript& s) {
        SDL_Event event{SDL_TEXTINPUT};
        event.text.windowID = s.WindowId();
        SDL_strlcpy(event.text.text, text.c_str(), sizeof(event.text.text));
        Push(event);
    };
}
Step Wheel(int notches) {
    return [notches](DialogScript& s) {
        SDL_Event event{SDL_MOUSEWHEEL};
        event.wheel.windowID = s.WindowId();
        event.wheel.y = notches;
        Push(event);
    };
}
Step Motion(int x, int y) {
    return [x, y](DialogScript& s) {
        SDL_Event event{SDL_MOUSEMOTION};
        event.motion.windowID = s.WindowId();
        event.motion.x = x;
        event.motion.y = y;
        Push(event);
    };
}
Step Button(bool down, int x, int y, Uint8 button, Uint8 clicks) {
    return [=](DialogScript& s) {
        Uint32 const type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
        SDL_Event event{type};
        event.button = {type, 0, s.WindowId(), 0, button, Uint8(down ? 1 : 0), clicks, 0, x, y};
        Push(event);
    };
}
Step Hover(int x, int y) {
    return [x, y](DialogScript& s) {
        PointAt(s, x, y, Pointer().buttons);
        Motion(x, y)(s);
    };
}
Step Press(int x, int y) {
    return [x, y](DialogScript& s) {
        PointAt(s, x, y, SDL_BUTTON_LMASK);
        Button(true, x, y)(s);
    };
}
Step Release(int x, int y) {
    return [x, y](DialogScript& s) {
        PointAt(s, x, y, 0);
        Button(false, x, y)(s);
    };
}
Step Click(int x, int y, Uint8 clicks, Uint8 button) {
    return [=](DialogScript& s) {
        PointAt(s, x, y, Pointer().buttons);
        Button(true, x, y, button, clicks)(s);
        Button(false, x, y, button, clicks)(s);
    };
}
Step Resize(int width, int height) {
    return [width, height](DialogScript& s) { SDL_SetWindowSize(s.Window(), width, height); };
}
Step Quit() {
    return Event(SDL_Event{SDL_QUIT});
}
Step CloseWindow() {
    return [](DialogScript& s) {
        SDL_Event event{SDL_WINDOWEVENT};
        event.window = {SDL_WINDOWEVENT, 0, s.WindowId(), SDL_WINDOWEVENT_CLOSE, 0, 0, 0, 0, 0};
        Push(event);
    };
}
Step Event(SDL_Event event) {
    return [event](DialogScript&) { Push(event); };
}

}  // namespace gestures

}  // namespace ztest
