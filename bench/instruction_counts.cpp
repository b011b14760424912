// The callgrind run of the dialog report and the reading of its dumps. This program
// holds the static library (a shared build has it in libzorvane_sdl_ui.so); its
// functions are told apart by name: the harness's are in namespace zbench, the
// interposed entry points are named SDL_ and TTF_, all others are the library's.
#include "instruction_counts.h"

#include "bench_support.h"

#include <unistd.h>

#include <cctype>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace zbench {

namespace fs = std::filesystem;

namespace {

bool Has(std::string const& text, char const* part) {
    return text.find(part) != std::string::npos;
}

bool StartsWith(std::string const& text, char const* prefix) {
    return text.rfind(prefix, 0) == 0;
}

bool IsSdlCall(std::string const& function) {
    return StartsWith(function, "SDL_") || StartsWith(function, "TTF_");
}

bool IsOurs(std::string const& object, std::string const& program) {
    return object == program || Has(object, "libzorvane_sdl_ui");
}

// The part that the own instructions of `function` in `object` belong to.
double* PartOf(InstructionSplit& split, std::string const& object, std::string const& function,
               std::string const& program) {
    if (IsOurs(object, program)) {
        if (StartsWith(function, "(below main)")) {
            return &split.other;
        }
        bool const harness =
            IsSdlCall(function) || Has(function, "zbench") || StartsWith(function, "benchmark::");
        return harness ? &split.harness : &split.library;
    }
    if (Has(object, "libSDL2_ttf") || Has(object, "libfreetype") || Has(object, "libharfbuzz") ||
        Has(object, "libpng") || Has(object, "libz.so") || Has(object, "libbrotli") ||
        Has(object, "libbz2") || Has(object, "libgraphite2") || Has(object, "libglib")) {
        return &split.fonts;
    }
    if (Has(object, "libSDL2-2.0")) {
        return &split.sdl;
    }
    if (Has(object, "libc.so") || Has(object, "libstdc++") || Has(object, "libm.so") ||
        Has(object, "ld-linux") || Has(object, "libgcc_s")) {
        return &split.runtime;
    }
    return &split.other;
}

// A call's inclusive cost: counted as text when an interposed entry point forwards
// one of the two text calls, and noted when library code calls SDL past the recorder.
void AddCall(InstructionSplit& split, double const* caller_part, bool target_ours,
             std::string const& target, double cost) {
    if (target_ours || !IsSdlCall(target)) {
        return;
    }
    if (caller_part == &split.harness &&
        (target == "TTF_RenderUTF8_Blended" || target == "SDL_CreateTextureFromSurface")) {
        split.text += cost;
    } else if (caller_part == &split.library) {
        split.unrecorded.insert(target);
    }
}

// The instruction count of a cost line: its second number, 0 when the line has none.
double CostOf(std::string const& line) {
    std::istringstream fields(line);
    std::string position;
    double count = 0.0;
    fields >> position >> count;
    return count;
}

std::string ThisProgram() {
    char path[PATH_MAX] = {};
    ssize_t const length = readlink("/proc/self/exe", path, sizeof path - 1);
    return length > 0 ? std::string(path, static_cast<std::size_t>(length)) : std::string();
}

}  // namespace

extern "C" __attribute__((noinline)) void zbench_measured_stretch(std::function<void()> const& draw,
                                                                  int frames) {
    for (int i = 0; i < frames; ++i) {
        draw();
    }
}

void MeasureStretch(std::function<void()> const& draw, int frames) {
    zbench_measured_stretch(draw, frames);
}

// The format: "ob=" and "fn=" name the object and function whose costs follow;
// "cob=" and "cfn=" name a call's target, "calls=" starts it, and the cost line after
// it is the call's inclusive cost. Every other cost line is the function's own.
InstructionSplit ReadCallgrindDump(std::string const& path, std::string const& program) {
    InstructionSplit split;
    std::ifstream in(path);
    std::string line;
    std::string object;
    std::string call_object;
    std::string call_function;
    double* part = &split.other;
    bool is_call = false;
    while (std::getline(in, line)) {
        if (StartsWith(line, "ob=")) {
            object = line.substr(3);
        } else if (StartsWith(line, "fn=")) {
            part = PartOf(split, object, line.substr(3), program);
        } else if (StartsWith(line, "cob=")) {
            call_object = line.substr(4);
        } else if (StartsWith(line, "cfn=")) {
            call_function = line.substr(4);
        } else if (StartsWith(line, "calls=")) {
            is_call = true;
        } else if (StartsWith(line, "totals:")) {
            split.total = CostOf(line);
        } else if (!line.empty() && (std::isdigit(static_cast<unsigned char>(line[0])) != 0 ||
                                     line[0] == '+' || line[0] == '-' || line[0] == '*')) {
            if (is_call) {
                bool const target_ours =
                    IsOurs(call_object.empty() ? object : call_object, program);
                AddCall(split, part, target_ours, call_function, CostOf(line));
            } else {
                *part += CostOf(line);
            }
            is_call = false;
            call_object.clear();
        }
    }
    return split;
}

std::vector<InstructionSplit> RunUnderCallgrind(std::string const& arguments) {
    std::string const program = ThisProgram();
    fs::path const folder = MakeScratchFolder("zorvane_callgrind");
    std::string const command =
        "valgrind --tool=callgrind -q --collect-atstart=no"
        " --toggle-collect=zbench_measured_stretch --dump-after=zbench_measured_stretch"
        " --compress-strings=no --compress-pos=no --callgrind-out-file='" +
        (folder / "frames").string() + "' '" + program + "' " + arguments;
    std::vector<InstructionSplit> splits;
    if (std::system(command.c_str()) != 0) {
        std::printf("valgrind could not run the frames: %s\n", command.c_str());
    } else {
        for (int dump = 1; fs::exists(folder / ("frames." + std::to_string(dump))); ++dump) {
            splits.push_back(
                ReadCallgrindDump((folder / ("frames." + std::to_string(dump))).string(), program));
        }
    }
    std::error_code error;
    fs::remove_all(folder, error);
    return splits;
}

}  // namespace zbench
