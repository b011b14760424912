// A report of every exported dialog on the dummy video driver. For one idle frame on
// the software renderer: its time; the time of the same frame's SDL and SDL_ttf calls
// replayed alone on a window of the same size, the floor that the drawing itself
// needs; a clear and present of that window; and the part spent making text. Then
// the heartbeat's cadence and the idle CPU share of each open dialog, and of the demo
// host when --demo-host names it. --instructions counts the frames' instructions
// under callgrind instead; --quick makes a short smoke run.
#include "bench_support.h"
#include "dialog_cadence.h"
#include "dialog_frames.h"
#include "dialog_inputs.h"
#include "frame_replay.h"
#include "gui/about.h"
#include "gui/frame.h"
#include "gui/hdd_image.h"
#include "gui/message_box.h"
#include "gui/pickers.h"
#include "gui/screenshot.h"
#include "gui/settings.h"
#include "gui/shader_params.h"
#include "instruction_counts.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

// In namespace zbench, so that the instruction counts tell this program's functions
// from the library's.
namespace zbench {
namespace {

using namespace zorvane::frontend::gui;

// One exported dialog: its row's name, the sleep of its loop and how it is opened.
struct ReportDialog {
    std::string name;
    int delay_ms = 0;
    std::function<void()> show;
};

std::vector<ReportDialog> ReportDialogs(ReportFolder const& folder) {
    std::string const dir = folder.path().string();
    std::string const shader = folder.ShaderPath();
    FolderPickerOptions folders;
    folders.start_directory = dir;
    return {
        {"message box", 12, [] { SdlMessageBox(ReportMessageBoxConfig()).Show(nullptr, 1.0f); }},
        {"folder picker", 8, [folders] { ShowSimpleFolderPicker(nullptr, folders); }},
        {"file picker", 8, [dir] { ShowSimpleFloppyFilePicker(nullptr, dir); }},
        {"settings", 12, [] { ShowSettingsDialog(nullptr, 1.0f, ReportSettingsValues(), {}); }},
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

// Removes `flag` from the arguments; true when it was there. With `value`, the
// argument after it is taken too and stored there.
bool TakeFlag(int* argc, char** argv, char const* flag, std::string* value = nullptr) {
    for (int i = 1; i < *argc; ++i) {
        int const taken = value != nullptr ? 2 : 1;
        if (std::strcmp(argv[i], flag) == 0 && i + taken <= *argc) {
            if (value != nullptr) {
                *value = argv[i + 1];
            }
            for (int j = i; j + taken < *argc; ++j) {
                argv[j] = argv[j + taken];
            }
            *argc -= taken;
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

// [SECTION] Recording and replay

// Opens the dialog's frame and draws two, so that the font and glyph caches are as
// warm as in an open dialog, then records the third.
RecordedFrame RecordIdleFrame(DialogFrame const& dialog) {
    FrameDrawing const draw = dialog.open();
    draw();
    draw();
    StartRecording();
    draw();
    return StopRecording();
}

// A dialog's recorded idle frame, replayed on a software window of its own.
struct Replay {
    explicit Replay(DialogFrame const& dialog)
        : window(dialog.width, dialog.height), calls(RecordIdleFrame(dialog), window.renderer()) {
        calls.Run();  // its own fonts' glyph caches warm, as the recorded frame's were
        calls.Run();
    }

    SoftwareWindow window;
    FrameReplay calls;
};

// Notes a recording that met objects made before it, whose calls the replay lacks,
// and a replay that does not make the recorded calls again, recorded in its turn.
bool CheckRecording(DialogFrame const& dialog) {
    Replay replay(dialog);
    StartRecording();
    replay.calls.Run();
    RecordedFrame const again = StopRecording();
    RecordedFrame const& frame = replay.calls.frame();
    if (frame.skipped > 0) {
        std::printf("  %s: %d call(s) on objects made before the frame, not replayed\n",
                    dialog.dialog.c_str(), frame.skipped);
    }
    if (!SameCalls(frame, again)) {
        std::printf("  %s: the replay's %zu calls differ from the frame's %zu\n",
                    dialog.dialog.c_str(), again.calls.size(), frame.calls.size());
    }
    return frame.skipped == 0 && SameCalls(frame, again);
}

// [SECTION] Timed frames

// The benchmarks of one dialog: its frame, the replay, the text alone, and the floor.
struct FrameNames {
    std::string frame;
    std::string replay;
    std::string text;
    std::string floor;
};

FrameNames NamesOf(DialogFrame const& dialog) {
    std::string const stem = "BM_" + dialog.stem;
    return {stem + "Frame", stem + "Replay", stem + "Text",
            "BM_ClearPresentFloor/" + std::to_string(dialog.width) + "x" +
                std::to_string(dialog.height)};
}

void RegisterFrameBenchmarks(std::vector<DialogFrame> const& dialogs) {
    std::set<std::string> floors;
    for (DialogFrame const& dialog : dialogs) {
        FrameNames const names = NamesOf(dialog);
        if (floors.insert(names.floor).second) {
            benchmark::RegisterBenchmark(names.floor.c_str(), [dialog](benchmark::State& state) {
                SoftwareWindow window(dialog.width, dialog.height);
                for (auto _ : state) {
                    ClearAndPresent(window.renderer());
                }
            });
        }
        benchmark::RegisterBenchmark(names.frame.c_str(), [dialog](benchmark::State& state) {
            FrameDrawing const draw = dialog.open();
            for (auto _ : state) {
                draw();
            }
        });
        benchmark::RegisterBenchmark(names.replay.c_str(), [dialog](benchmark::State& state) {
            Replay replay(dialog);
            for (auto _ : state) {
                replay.calls.Run();
            }
        });
        benchmark::RegisterBenchmark(names.text.c_str(), [dialog](benchmark::State& state) {
            Replay replay(dialog);
            for (auto _ : state) {
                replay.calls.RunText();
            }
        });
    }
}

void PrintHeader(double load_before, bool quick) {
    std::printf("\nDialog report (software renderer, dummy video driver; 1-minute load %.2f)\n",
                load_before);
    if (quick) {
        std::printf("--quick: runs too short to compare; cold glyph caches weigh on the frames\n");
    }
    std::printf("%-18s %8s %9s %8s %7s %5s   %-30s %6s\n", "dialog", "frame ms", "replay ms",
                "x replay", "x clear", "text", "heartbeat median / p99", "CPU");
}

void PrintRow(ReportDialog const& dialog, FrameNames const& names, NsPerIteration const& times,
              IdleDialogRun const& run) {
    auto const ms = [&times](std::string const& name) {
        auto const found = times.find(name);
        return found != times.end() ? found->second * 1e-6 : -1.0;
    };
    double const text = RatioOf(times, names.text, names.frame);
    char cadence[64];
    std::snprintf(cadence, sizeof cadence, "%.1f / %.1f ms (delay %d ms)",
                  Percentile(run.intervals_ms, 0.5), Percentile(run.intervals_ms, 0.99),
                  dialog.delay_ms);
    std::printf("%-18s %s %s %s %s %s%%   %-30s %5.1f%%\n", dialog.name.c_str(),
                Cell(ms(names.frame), 8, 3).c_str(), Cell(ms(names.replay), 9, 3).c_str(),
                Cell(RatioOf(times, names.frame, names.replay), 8, 2).c_str(),
                Cell(RatioOf(times, names.frame, names.floor), 7, 1).c_str(),
                Cell(text < 0.0 ? text : text * 100.0, 4, 0).c_str(), cadence,
                run.cpu_share * 100.0);
}

void PrintLegend() {
    std::printf(
        "x replay: the frame against the same SDL and SDL_ttf calls replayed alone, with the\n"
        "          same arguments on a window of the same size: 1.00 means no cost of its own\n"
        "x clear:  the frame against clearing and presenting that window\n"
        "text:     the part of the frame that makes text: TTF_RenderUTF8_Blended and the\n"
        "          texture made from its surface, replayed alone\n"
        "CPU:      the share of one core that the open dialog takes while idle\n");
}

// Notes a dialog that did not run its stretch or that turned again after the quit.
bool CheckRun(ReportDialog const& dialog, IdleDialogRun const& run) {
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

std::vector<IdleDialogRun> RunIdleDialogs(std::vector<ReportDialog> const& dialogs, bool quick) {
    IdleStretch const stretch = quick ? IdleStretch{3, 10, 0.1} : IdleStretch{10, 200, 2.0};
    std::vector<IdleDialogRun> runs;
    for (ReportDialog const& dialog : dialogs) {
        runs.push_back(RunIdleDialog(dialog.show, stretch));
    }
    return runs;
}

void PrintDemoHost(std::string const& program, bool quick) {
    if (program.empty()) {
        return;
    }
    double const share = ProgramIdleCpuShare(program, quick ? 1.0 : 2.0, quick ? 1.0 : 5.0);
    if (share < 0.0) {
        std::printf("demo host: did not run on DISPLAY=%s\n", std::getenv("DISPLAY"));
    } else {
        std::printf("demo host under Xvfb, no dialog open, at 60 Hz: %.1f%% of one core\n",
                    share * 100.0);
    }
}

int RunReport(int argc, char** argv, bool quick, std::string const& demo_host) {
    ReportFolder const folder;
    std::vector<DialogFrame> const frames = DialogFrames(folder);
    RegisterFrameBenchmarks(frames);
    NsPerIteration const times = RunRecordedBenchmarks(&argc, argv, false);
    double const load_before = LoadAverage();
    std::vector<ReportDialog> const dialogs = ReportDialogs(folder);
    std::vector<IdleDialogRun> const runs = RunIdleDialogs(dialogs, quick);
    PrintHeader(load_before, quick);
    for (std::size_t i = 0; i < dialogs.size(); ++i) {
        PrintRow(dialogs[i], NamesOf(frames[i]), times, runs[i]);
    }
    bool ok = true;
    for (std::size_t i = 0; i < dialogs.size(); ++i) {
        ok = CheckRun(dialogs[i], runs[i]) && CheckRecording(frames[i]) && ok;
    }
    PrintLegend();
    PrintDemoHost(demo_host, quick);
    std::printf("1-minute load after the timed runs: %.2f\n", LoadAverage());
    return ok ? 0 : 1;
}

// [SECTION] Instruction counts

constexpr int kCountedFrames = 4;
constexpr int kStretchesPerDialog = 3;

// Under callgrind: for each dialog, after two warm-up rounds, three measured
// stretches: the frame, its replay, the clear-and-present floor.
int RunInstructionStretches() {
    ReportFolder const folder;
    for (DialogFrame const& dialog : DialogFrames(folder)) {
        FrameDrawing const draw = dialog.open();
        Replay replay(dialog);
        SoftwareWindow floor(dialog.width, dialog.height);
        std::vector<std::function<void()>> const stretches = {
            draw,
            [&replay] { replay.calls.Run(); },
            [&floor] { ClearAndPresent(floor.renderer()); },
        };
        for (auto const& stretch : stretches) {
            stretch();
            stretch();
        }
        for (auto const& stretch : stretches) {
            MeasureStretch(stretch, kCountedFrames);
        }
    }
    return 0;
}

double Share(double part, double total) {
    return total > 0.0 ? part / total * 100.0 : -1.0;
}

void PrintInstructionRow(std::string const& dialog, InstructionSplit const* split) {
    InstructionSplit const& f = split[0];
    double const per_frame = 1e-3 / kCountedFrames;
    double const parts[] = {f.library, f.harness, f.text, f.sdl, f.fonts, f.runtime, f.other};
    std::string shares;
    for (double part : parts) {
        shares += Cell(Share(part, f.total), 7, part < 0.1 * f.total ? 2 : 1) + "%";
    }
    std::printf("%-18s %s %s %s %s%s\n", dialog.c_str(), Cell(f.total * per_frame, 6, 0).c_str(),
                Cell(split[1].total * per_frame, 6, 0).c_str(),
                Cell(f.total / split[1].total, 8, 3).c_str(),
                Cell(f.total / split[2].total, 7, 1).c_str(), shares.c_str());
}

void PrintInstructionLegend() {
    std::printf(
        "frame, replay: thousands of instructions per frame, and per replay of its calls\n"
        "library: the dialog library's own functions; harness: this program's frame set-up\n"
        "         and the call recorder that every SDL call passes through\n"
        "text:    TTF_RenderUTF8_Blended and SDL_CreateTextureFromSurface with all they run,\n"
        "         also counted in the parts that follow\n"
        "SDL2, fonts (SDL_ttf, FreeType, HarfBuzz), runtime (libc, libstdc++), other: the\n"
        "         instructions of their own code; with library and harness, the whole frame\n"
        "SDL2 runs the queued drawing of the software renderer when a texture is destroyed\n"
        "or the frame presented, so its part is the fills, lines, copies and clear\n");
}

int RunInstructionReport() {
    ReportFolder const folder;
    std::vector<DialogFrame> const frames = DialogFrames(folder);
    std::vector<InstructionSplit> const splits = RunUnderCallgrind("--instructions-child");
    if (splits.size() != frames.size() * kStretchesPerDialog) {
        std::printf("callgrind gave %zu measured stretches, not %zu\n", splits.size(),
                    frames.size() * kStretchesPerDialog);
        return 1;
    }
    std::printf(
        "\nInstructions per idle frame under callgrind (software renderer, dummy video "
        "driver)\n%-18s %6s %6s %8s %7s %8s%8s%8s%8s%8s%8s%8s\n",
        "dialog", "frame", "replay", "x replay", "x clear", "library", "harness", "text", "SDL2",
        "fonts", "runtime", "other");
    std::set<std::string> unrecorded;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        InstructionSplit const* split = &splits[i * kStretchesPerDialog];
        PrintInstructionRow(frames[i].dialog, split);
        unrecorded.insert(split->unrecorded.begin(), split->unrecorded.end());
    }
    PrintInstructionLegend();
    for (std::string const& name : unrecorded) {
        std::printf("  the library called %s past the recorder; the replay lacks it\n",
                    name.c_str());
    }
    return unrecorded.empty() ? 0 : 1;
}

}  // namespace
}  // namespace zbench

int main(int argc, char** argv) {
    using namespace zbench;
    bool const quick = TakeFlag(&argc, argv, "--quick");
    bool const instructions = TakeFlag(&argc, argv, "--instructions");
    bool const stretches = TakeFlag(&argc, argv, "--instructions-child");
    std::string demo_host;
    TakeFlag(&argc, argv, "--demo-host", &demo_host);
    // Frames and replays are read against each other, so their repetitions run
    // interleaved and each counts by its fastest, the least disturbed by the machine.
    std::vector<std::string> runs = {"--benchmark_min_time=0.01"};
    if (!quick) {
        runs = {"--benchmark_min_time=0.1", "--benchmark_repetitions=5",
                "--benchmark_enable_random_interleaving=true"};
    }
    std::vector<char*> args(argv, argv + argc);
    for (std::string& run : runs) {
        args.insert(args.begin() + 1, run.data());
    }
    args.push_back(nullptr);
    if (!StartSdlVideo()) {
        return 1;
    }
    int count = static_cast<int>(args.size()) - 1;
    int const status = stretches      ? RunInstructionStretches()
                       : instructions ? RunInstructionReport()
                                      : RunReport(count, args.data(), quick, demo_host);
    StopSdlVideo();
    return status;
}
