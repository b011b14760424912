// SDL start-up, software windows and the ratio report of the benchmark programs.
#include "bench_support.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "gui/frame.h"

namespace zbench {

namespace {

// Keeps each run's CPU time per iteration, the least of its repetitions, and prints
// the runs as the console reporter does, in colour on a terminal only, so that a log
// written to a file stays plain; or prints nothing. Every benchmark runs on one
// thread, so its CPU time is its work, which other processes on a loaded machine
// change far less than its wall time.
class RecordingReporter : public benchmark::ConsoleReporter {
public:
    explicit RecordingReporter(bool print)
        : ConsoleReporter(isatty(STDOUT_FILENO) != 0 ? OO_Defaults : OO_Tabular), print_(print) {}

    bool ReportContext(Context const& context) override {
        return !print_ || ConsoleReporter::ReportContext(context);
    }

    void ReportRuns(std::vector<Run> const& runs) override {
        for (Run const& run : runs) {
            if (run.run_type == Run::RT_Iteration && run.iterations > 0) {
                double const ns =
                    run.GetAdjustedCPUTime() * (run.time_unit == benchmark::kMillisecond   ? 1e6
                                                : run.time_unit == benchmark::kMicrosecond ? 1e3
                                                                                           : 1.0);
                auto const [kept, first] = ns_per_iteration.emplace(run.benchmark_name(), ns);
                kept->second = first ? ns : std::min(kept->second, ns);
            }
        }
        if (print_) {
            ConsoleReporter::ReportRuns(runs);
        }
    }

    NsPerIteration ns_per_iteration;

private:
    bool print_ = true;
};

}  // namespace

SoftwareWindow::SoftwareWindow(int width, int height) {
    window_ = SDL_CreateWindow("bench", 0, 0, width, height, SDL_WINDOW_HIDDEN);
    renderer_ =
        window_ != nullptr ? SDL_CreateRenderer(window_, -1, SDL_RENDERER_SOFTWARE) : nullptr;
    if (renderer_ == nullptr) {
        std::fprintf(stderr, "no software renderer: %s\n", SDL_GetError());
        std::exit(1);
    }
}

SoftwareWindow::~SoftwareWindow() {
    SDL_DestroyRenderer(renderer_);
    SDL_DestroyWindow(window_);
}

std::filesystem::path MakeScratchFolder(char const* prefix) {
    std::string pattern =
        (std::filesystem::temp_directory_path() / (std::string(prefix) + "_XXXXXX")).string();
    if (mkdtemp(pattern.data()) == nullptr) {
        std::abort();
    }
    return pattern;
}

void ClearAndPresent(SDL_Renderer* renderer) {
    SDL_SetRenderDrawColor(renderer, 18, 21, 27, 255);
    SDL_RenderClear(renderer);
    SDL_RenderPresent(renderer);
}

bool StartSdlVideo() {
    setenv("SDL_VIDEODRIVER", "dummy", 0);
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        std::fprintf(stderr, "SDL_Init: %s\n", SDL_GetError());
        return false;
    }
    return true;
}

void StopSdlVideo() {
    zorvane::frontend::gui::ShutdownSdlUiCachedFonts();
    SDL_Quit();
}

NsPerIteration RunRecordedBenchmarks(int* argc, char** argv, bool print) {
    benchmark::Initialize(argc, argv);
    RecordingReporter reporter(print);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return reporter.ns_per_iteration;
}

double RatioOf(NsPerIteration const& times, std::string const& name, std::string const& floor) {
    auto const c = times.find(name);
    auto const f = times.find(floor);
    if (c == times.end() || f == times.end() || f->second <= 0.0) {
        return -1.0;
    }
    return c->second / f->second;
}

int RunWithRatios(int argc, char** argv,
                  std::vector<std::pair<std::string, std::string>> const& case_and_floor) {
    if (!StartSdlVideo()) {
        return 1;
    }
    NsPerIteration const times = RunRecordedBenchmarks(&argc, argv);
    for (auto const& [name, floor] : case_and_floor) {
        double const ratio = RatioOf(times, name, floor);
        if (ratio >= 0.0) {
            std::printf("ratio %s / %s = %.2f\n", name.c_str(), floor.c_str(), ratio);
        }
    }
    StopSdlVideo();
    return 0;
}

}  // namespace zbench
