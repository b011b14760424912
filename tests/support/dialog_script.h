// Frame-by-frame scripting of a dialog through the modal heartbeat. The script is
// the heartbeat while it lives: on the frames it names it pushes events, looks at
// the dialog's window or reads its last presented frame, so that an exported
// Show... function runs its real loop under the test's hand.
#pragma once

#include "support/sdl_recorder.h"

#include <functional>
#include <map>
#include <vector>

namespace ztest {

class DialogScript {
public:
    using Step = std::function<void(DialogScript&)>;

    // Registers the script as the heartbeat.
    DialogScript();
    // Clears the heartbeat.
    ~DialogScript();
    DialogScript(DialogScript const&) = delete;
    DialogScript& operator=(DialogScript const&) = delete;

    // Runs `step` at heartbeat number `frame`, counted from 0 over all dialogs.
    DialogScript& At(int frame, Step step);
    // Runs `step` `frames` heartbeats after the step added last (1 is the next one).
    DialogScript& Then(Step step, int frames = 1);

    // After the last step the dialog gets this many more frames; then the script
    // pushes SDL_QUIT on every frame and counts the run as timed out.
    void set_grace_frames(int frames) { grace_frames_ = frames; }
    bool timed_out() const { return timed_out_; }
    int frame() const { return frame_; }

    // The newest open window (the innermost dialog) and its ID.
    SDL_Window* Window() const;
    Uint32 WindowId() const;
    // The last presented frame of the newest open window.
    Frame Capture() const;

    // Events, pushed into SDL's queue for the newest open window.
    void Key(SDL_Keycode sym, bool repeat = false) const;
    void Text(char const* text) const;
    void Button(bool down, int x, int y, Uint8 button = SDL_BUTTON_LEFT, Uint8 clicks = 1) const;
    void Motion(int x, int y) const;
    void Wheel(int y) const;
    // Puts the scripted pointer over the newest window at (x, y), giving it the mouse focus.
    void Hover(int x, int y) const;

private:
    void Beat();

    std::map<int, std::vector<Step>> steps_;
    int frame_ = -1;
    int last_step_frame_ = -1;
    int grace_frames_ = 300;
    bool timed_out_ = false;
};

// Pushes any event into SDL's queue.
void PushEvent(SDL_Event event);

// Gestures for scripts that read as a list of steps, one gesture a heartbeat. The
// pointer ones also place the polled pointer, so hover and held buttons show.
namespace gestures {
DialogScript::Step Key(SDL_Keycode key);
DialogScript::Step Text(char const* text);
DialogScript::Step Wheel(int notches);
DialogScript::Step Hover(int x, int y);  // a move, the left button as it was
DialogScript::Step Press(int x, int y);  // the left button pressed there and held
DialogScript::Step Release(int x, int y);
DialogScript::Step Click(int x, int y, Uint8 clicks = 1, Uint8 button = SDL_BUTTON_LEFT);
DialogScript::Step Resize(int width, int height);
DialogScript::Step Quit();
DialogScript::Step CloseWindow();
}  // namespace gestures

}  // namespace ztest
