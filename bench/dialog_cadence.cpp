// Heartbeat timing and CPU accounting of an open dialog, from steady_clock stamps and
// getrusage of the whole process, and of a host program, from /proc.
#include "dialog_cadence.h"

#include "gui/frame.h"

#include <SDL.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <fstream>
#include <sstream>
#include <thread>

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

// User and system time of the running process `pid` so far, in seconds, from fields
// 14 and 15 of its stat line; negative when it has ended.
double ChildCpuSeconds(pid_t pid) {
    int status = 0;
    if (waitpid(pid, &status, WNOHANG) != 0) {
        return -1.0;
    }
    std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
    std::string line;
    std::getline(stat, line);
    std::size_t const name_end = line.rfind(')');
    if (name_end == std::string::npos) {
        return -1.0;
    }
    std::istringstream fields(line.substr(name_end + 1));
    std::string skipped;
    for (int field = 3; field <= 13; ++field) {
        fields >> skipped;
    }
    double user_ticks = 0.0;
    double system_ticks = 0.0;
    fields >> user_ticks >> system_ticks;
    return (user_ticks + system_ticks) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

void SleepSeconds(double seconds) {
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

}  // namespace

double ProgramIdleCpuShare(std::string const& program, double settle_seconds, double seconds) {
    pid_t const child = fork();
    if (child == 0) {
        unsetenv("SDL_VIDEODRIVER");
        int const quiet = open("/dev/null", O_WRONLY);
        dup2(quiet, STDOUT_FILENO);
        dup2(quiet, STDERR_FILENO);
        execl(program.c_str(), program.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    if (child < 0) {
        return -1.0;
    }
    SleepSeconds(settle_seconds);
    double const cpu_before = ChildCpuSeconds(child);
    Clock::time_point const start = Clock::now();
    SleepSeconds(seconds);
    double const cpu_after = ChildCpuSeconds(child);
    double const wall = Seconds(Clock::now() - start);
    if (cpu_after < 0.0) {
        return -1.0;  // ended, and already waited for
    }
    kill(child, SIGTERM);
    int status = 0;
    waitpid(child, &status, 0);
    return cpu_before < 0.0 ? -1.0 : (cpu_after - cpu_before) / wall;
}

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
