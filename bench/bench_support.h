// Shared pieces of the benchmark programs: SDL on the dummy video driver, a hidden
// window with a software renderer, and a main that prints each measured case as a
// ratio to the floor measured in the same run.
#pragma once

#include <SDL.h>
#include <benchmark/benchmark.h>

#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zbench {

// A hidden window of the given size with a software renderer, released on destruction.
class SoftwareWindow {
public:
    SoftwareWindow(int width, int height);
    ~SoftwareWindow();
    SoftwareWindow(SoftwareWindow const&) = delete;
    SoftwareWindow& operator=(SoftwareWindow const&) = delete;

    SDL_Window* window() const { return window_; }
    SDL_Renderer* renderer() const { return renderer_; }

private:
    SDL_Window* window_ = nullptr;
    SDL_Renderer* renderer_ = nullptr;
};

// Clears and presents `renderer`: the least that any dialog turn costs.
void ClearAndPresent(SDL_Renderer* renderer);

// A new empty folder in the temporary directory, named after `prefix`; aborts when
// none can be made. The caller removes it.
std::filesystem::path MakeScratchFolder(char const* prefix);

// Starts SDL video, on the dummy driver unless SDL_VIDEODRIVER names another one.
// Prints SDL's error and returns false when it cannot start.
bool StartSdlVideo();

// Closes the dialogs' cached fonts, then stops SDL.
void StopSdlVideo();

// CPU time per iteration in nanoseconds, by benchmark name.
using NsPerIteration = std::map<std::string, double>;

// Hands `argc` and `argv` to Google Benchmark, runs the registered benchmarks,
// printed as by the console reporter unless `print` is false, and returns what each
// one measured: with repetitions, the least of them.
NsPerIteration RunRecordedBenchmarks(int* argc, char** argv, bool print = true);

// `times[name] / times[floor]`, or a negative value when either is missing.
double RatioOf(NsPerIteration const& times, std::string const& name, std::string const& floor);

// Runs the registered benchmarks, then prints "case / floor" for each pair, by the
// benchmark names given. Starts SDL video on the dummy driver first.
int RunWithRatios(int argc, char** argv,
                  std::vector<std::pair<std::string, std::string>> const& case_and_floor);

}  // namespace zbench
