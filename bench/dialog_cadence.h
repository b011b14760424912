// The timed run of an open dialog: the heartbeat's cadence and the share of one core
// that the dialog takes while it sits idle; and the same share for a host program.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace zbench {

// How long the idle stretch lasts: it starts at beat `warmup_beats`, after the first
// frames, and ends at the first beat that is at least `min_beats` beats and
// `min_seconds` seconds later, which pushes SDL_QUIT. The first beat is beat 1.
struct IdleStretch {
    int warmup_beats = 10;
    int min_beats = 200;
    double min_seconds = 2.0;
};

struct IdleDialogRun {
    bool completed = false;            // the stretch ran to its end
    std::vector<double> intervals_ms;  // between two beats of the stretch
    double cpu_share = 0.0;            // user and system time over wall time
    double wall_seconds = 0.0;
    int beats_after_quit = 0;  // turns that the dialog took after SDL_QUIT was pushed
};

// Runs `show`, which opens a dialog and blocks until it closes, with a heartbeat that
// times every beat, and ends the dialog through SDL_QUIT after the stretch. No other
// event is pushed. The heartbeat is cleared again before this returns.
IdleDialogRun RunIdleDialog(std::function<void()> const& show, IdleStretch const& stretch);

// Starts `program` without arguments on the display that DISPLAY names, lets it
// settle for `settle_seconds`, and returns the share of one core that it takes over
// the next `seconds`, from its user and system time; then ends it with SIGTERM.
// Negative when it could not be started or ended early.
double ProgramIdleCpuShare(std::string const& program, double settle_seconds, double seconds);

// The value below which `fraction` of `values` lie (nearest rank); 0 when empty.
double Percentile(std::vector<double> values, double fraction);

}  // namespace zbench
