// Frame-by-frame scripting of a dialog through the modal heartbeat. The script is the
// heartbeat while it lives: on the frames it names it runs its steps (gestures that push
// events for the newest window, or looks at that window and its last frame), so that an
// exported Show... function runs its real loop under the test's hand.
#pragma once

#include "support/sdl_recorder.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace ztest {

class DialogScript {
public:
    using Step = std::function<void(DialogScript&)>;

    DialogScript();   // becomes the heartbeat
    ~DialogScript();  // and clears it
    DialogScript(DialogScript const&) = delete;
    DialogScript& operator=(DialogScript const&) = delete;

    // Runs `step` at heartbeat `frame`, counted from 0 over all dialogs, or `frames`
    // heartbeats after the step added last.
    void At(int frame, Step step);
    void Then(Step step, int frames = 1);

    // After the last step the dialogs get this many more frames; then the script pushes
    // SDL_QUIT on every frame and counts the run as timed out.
    void set_grace_frames(int frames) { grace_frames_ = frames; }
    bool timed_out() const { return timed_out_; }
    int frame() const { return frame_; }

    // The newest open window (the innermost dialog), its ID and its last presented frame.
    SDL_Window* Window() const;
    Uint32 WindowId() const;
    Frame Capture() const;

private:
    void Beat();

    std::map<int, std::vector<Step>> steps_;
    int frame_ = -1;
    int last_step_frame_ = -1;
    int grace_frames_ = 300;
    bool timed_out_ = false;
};

// Gestures, one a heartbeat, so that a script reads as a list of steps. Each pushes its
// events for the newest window; the pointer ones also place the scripted pointer, which
// gives that window the mouse focus, so hover and held buttons show.
namespace gestures {
using Step = DialogScript::Step;
Step Key(SDL_Keycode key, bool repeat = false);
Step Text(std::string text);
Step Wheel(int notches);
Step Motion(int x, int y);  // the queued pointer alone
Step Button(bool down, int x, int y, Uint8 button = SDL_BUTTON_LEFT, Uint8 clicks = 1);
Step Hover(int x, int y);  // a move, the left button as it was
Step Press(int x, int y);  // the left button pressed there and held
Step Release(int x, int y);
Step Click(int x, int y, Uint8 clicks = 1, Uint8 button = SDL_BUTTON_LEFT);
Step Resize(int width, int height);
Step Quit();
Step CloseWindow();
Step Event(SDL_Event event);  // any event, as it is
}  // namespace gestures

}  // namespace ztest
