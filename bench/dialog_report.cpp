// A report of every exported dialog on the dummy video driver: one frame's cost on
// the software renderer against a clear and present of a window of the same size,
// the heartbeat's cadence while the dialog is open, and the share of one core that
// the open dialog takes while idle. --quick makes it a short smoke run.
#include "bench_support.h"
#include "dialog_cadence.h"
#include "dialog_frames.h"
#include "dialog_inputs.h"
#include "gui/about.h"
#include "gui/frame.h"
#include "gui/hdd_image.h"
#include "gui/message_box.h"
#include "gui/pickers.h"
#include "gui/screenshot.h"
#include "gui/settings.h"
#include "gui/shader_params.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace {

using namespace zorvane::frontend::gui;

// One exported dialog: its row's name, the sleep of its loop and how it is opened.
struct ReportDialog {
    std::string name;
    int delay_ms = 0;
    std::function<void()> show;
};

std::vector<ReportDialog> ReportDialogs(zbench::ReportFolder const& folder) {
    std::string const dir = folder.path().string();
    std::string const shader = folder.ShaderPath();
    FolderPickerOptions folders;
    folders.start_directory = dir;
    return {
        {"message box", 12,
         [] { SdlMessageBox(zbench::ReportMessageBoxConfig()).Show(nullptr, 1.0f); }},
        {"folder picker", 8, [folders] { ShowSimpleFolderPicker(nullptr, folders); }},
        {"file picker", 8, [dir] { ShowSimpleFloppyFilePicker(nullptr, dir); }},
        {"settings", 12,
         [] { ShowSettingsDialog(nullptr, 1.0f, zbench::ReportSettingsValues(), {}); }},
        {"shader parameters", 12,
         [shader] { ShowShaderParameterDialog(nullptr, shader, 1.0f, {}, {}); }},
        {"screenshot", 8,
         [dir] {
             ShowScreenshotSaveDialog(nullptr, dir, "capture.png", ScreenshotSaveFormat::Png, 90, 2,
                                      true);
         }},
        {"disk image", 8, [dir] { ShowSimpleHddCreateDialog(nullptr, dir, 10); }},
        {"About", 12, [] { ShowSimpleAboutDialog(nullptr, 1.0f); }},
    };
}

// Removes `flag` from the arguments; true when it was there.
bool TakeFlag(int* argc, char** argv, char const* flag) {
    for (int i = 1; i < *argc; ++i) {
        if (std::strcmp(argv[i], flag) == 0) {
            for (int j = i; j + 1 < *argc; ++j) {
                argv[j] = argv[j + 1];
            }
            --*argc;
            return true;
        }
    }
    return false;
}

double LoadAverage() {
    double load = -1.0;
    getloadavg(&load, 1);
    return load;
}

void PrintHeader(double load_before, bool quick) {
    std::printf("\nDialog report (software renderer, dummy video driver; 1-minute load %.2f)\n",
                load_before);
    if (quick) {
        std::printf("--quick: runs too short to compare; cold glyph caches weigh on the frames\n");
    }
    std::printf("%-18s %9s %8s   %-34s %6s\n", "dialog", "frame ms", "x floor",
                "heartbeat interval median / p99", "CPU");
}

// `value` in a column of `width` with `decimals`, or "-" when it was not measured.
std::string Cell(double value, int width, int decimals) {
    char text[32];
    if (value < 0.0) {
        std::snprintf(text, sizeof text, "%*s", width, "-");
    } else {
        std::snprintf(text, sizeof text, "%*.*f", width, decimals, value);
    }
    return text;
}

void PrintRow(ReportDialog const& dialog, zbench::NsPerIteration const& times,
              zbench::FrameCase const& frame, zbench::IdleDialogRun const& run) {
    auto const found = times.find(frame.frame);
    double const frame_ms = found != times.end() ? found->second * 1e-6 : -1.0;
    double const ratio = zbench::RatioOf(times, frame.frame, frame.floor);
    char cadence[64];
    std::snprintf(cadence, sizeof cadence, "%.1f / %.1f ms (delay %d ms)",
                  zbench::Percentile(run.intervals_ms, 0.5),
                  zbench::Percentile(run.intervals_ms, 0.99), dialog.delay_ms);
    std::printf("%-18s %s %s   %-34s %5.1f%%\n", dialog.name.c_str(), Cell(frame_ms, 9, 3).c_str(),
                Cell(ratio, 8, 1).c_str(), cadence, run.cpu_share * 100.0);
}

// Notes a dialog that did not run its stretch or that turned again after the quit.
bool CheckRun(ReportDialog const& dialog, zbench::IdleDialogRun const& run) {
    if (!run.completed) {
        std::printf("  %s: closed before its idle stretch ended\n", dialog.name.c_str());
        return false;
    }
    if (run.beats_after_quit > 0) {
        std::printf("  %s: %d more turn(s) after SDL_QUIT\n", dialog.name.c_str(),
                    run.beats_after_quit);
        return false;
    }
    return true;
}

std::vector<zbench::IdleDialogRun> RunIdleDialogs(std::vector<ReportDialog> const& dialogs,
                                                  bool quick) {
    zbench::IdleStretch const stretch =
        quick ? zbench::IdleStretch{3, 10, 0.1} : zbench::IdleStretch{10, 200, 2.0};
    std::vector<zbench::IdleDialogRun> runs;
    for (ReportDialog const& dialog : dialogs) {
        runs.push_back(zbench::RunIdleDialog(dialog.show, stretch));
    }
    return runs;
}

// Prints the rows, then any dialog that misbehaved; false if one did.
bool PrintRows(std::vector<ReportDialog> const& dialogs, zbench::NsPerIteration const& times,
               std::map<std::string, zbench::FrameCase> const& frames,
               std::vector<zbench::IdleDialogRun> const& runs) {
    for (std::size_t i = 0; i < dialogs.size(); ++i) {
        PrintRow(dialogs[i], times, frames.at(dialogs[i].name), runs[i]);
    }
    bool ok = true;
    for (std::size_t i = 0; i < dialogs.size(); ++i) {
        ok = CheckRun(dialogs[i], runs[i]) && ok;
    }
    return ok;
}

int RunReport(int argc, char** argv, bool quick) {
    zbench::ReportFolder const folder;
    std::map<std::string, zbench::FrameCase> const frames =
        zbench::RegisterDialogFrameBenchmarks(folder);
    zbench::NsPerIteration const times = zbench::RunRecordedBenchmarks(&argc, argv);
    double const load_before = LoadAverage();
    std::vector<ReportDialog> const dialogs = ReportDialogs(folder);
    std::vector<zbench::IdleDialogRun> const runs = RunIdleDialogs(dialogs, quick);
    PrintHeader(load_before, quick);
    bool const ok = PrintRows(dialogs, times, frames, runs);
    std::printf("1-minute load after the timed runs: %.2f\n", LoadAverage());
    return ok ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    bool const quick = TakeFlag(&argc, argv, "--quick");
    std::vector<char*> args(argv, argv + argc);
    std::string short_runs = "--benchmark_min_time=0.01";
    if (quick) {
        args.insert(args.begin() + 1, short_runs.data());
    }
    args.push_back(nullptr);
    if (!zbench::StartSdlVideo()) {
        return 1;
    }
    int count = static_cast<int>(args.size()) - 1;
    int const status = RunReport(count, args.data(), quick);
    zbench::StopSdlVideo();
    return status;
}
