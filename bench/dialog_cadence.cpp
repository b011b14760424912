// Heartbeat timing and CPU accounting of an open dialog, from steady_clock stamps and
// getrusage of the whole process.
#include "dialog_cadence.h"

#include "gui/frame.h"

#include <SDL.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace zbench {

namespace {

using Clock = std::chrono::steady_clock;

// User and system time of the process so far, in seconds.
double ProcessCpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    auto const seconds = [](timeval const& t) {
        return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double Seconds(Clock::duration d) {
    return std::chrono::duration<double>(d).count();
}

void PushQuit() {
    SDL_Event quit{};
    quit.type = SDL_QUIT;
    SDL_PushEvent(&quit);
}

// What the heartbeat does on every beat: stamp it, open and close the stretch.
class BeatRecorder {
public:
    explicit BeatRecorder(IdleStretch const& stretch) : stretch_(stretch) {
        stretch_.warmup_beats = std::max(stretch_.warmup_beats, 1);
        run_.intervals_ms.reserve(static_cast<std::size_t>(stretch.min_beats) * 4 + 64);
    }

    void Beat() {
        Clock::time_point const now = Clock::now();
        if (quit_pushed_) {
            ++run_.beats_after_quit;
            return;
        }
        ++beats_;
        if (beats_ == stretch_.warmup_beats) {
            Start(now);
        } else if (beats_ > stretch_.warmup_beats) {
            run_.intervals_ms.push_back(Seconds(now - last_) * 1e3);
            if (beats_ - stretch_.warmup_beats >= stretch_.min_beats &&
                Seconds(now - start_) >= stretch_.min_seconds) {
                Finish(now);
            }
        }
        last_ = now;
    }

    IdleDialogRun const& run() const { return run_; }

private:
    void Start(Clock::time_point now) {
        start_ = now;
        start_cpu_ = ProcessCpuSeconds();
    }

    void Finish(Clock::time_point now) {
        run_.wall_seconds = Seconds(now - start_);
        run_.cpu_share = (ProcessCpuSeconds() - start_cpu_) / run_.wall_seconds;
        run_.completed = true;
        quit_pushed_ = true;
        PushQuit();
    }

    IdleStretch stretch_;
    IdleDialogRun run_;
    int beats_ = 0;
    bool quit_pushed_ = false;
    Clock::time_point start_;
    Clock::time_point last_;
    double start_cpu_ = 0.0;
};

}  // namespace

IdleDialogRun RunIdleDialog(std::function<void()> const& show, IdleStretch const& stretch) {
    using zorvane::frontend::gui::SetModalDialogHeartbeat;
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    BeatRecorder recorder(stretch);
    SetModalDialogHeartbeat([&recorder] { recorder.Beat(); });
    show();
    SetModalDialogHeartbeat({});
    return recorder.run();
}

double Percentile(std::vector<double> values, double fraction) {
    if (values.empty()) {
        return 0.0;
    }
    auto const rank = static_cast<std::size_t>(std::ceil(fraction * values.size()));
    std::size_t const index = std::min(values.size() - 1, rank > 0 ? rank - 1 : 0);
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(index),
                     values.end());
    return values[index];
}

}  // namespace zbench
