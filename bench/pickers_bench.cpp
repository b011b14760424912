// Reading directories into picker rows against a bare directory_iterator loop over
// the same directory, and one picker frame with a huge list against a short one.
#include "bench_support.h"
#include "pickers/picker_dialog.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;
using namespace zorvane::frontend::gui;

// A folder of `count` entries: one in ten a directory, the files alternating between
// accepted images and other files. Made once per size and removed at exit.
class BenchFolder {
public:
    explicit BenchFolder(int count) : path_(zbench::MakeScratchFolder("zorvane_bench")) {
        for (int i = 0; i < count; ++i) {
            std::string const stem = "Entry_" + std::to_string((i * 7919) % count);
            if (i % 10 == 0) {
                fs::create_directory(path_ / stem);
            } else {
                std::ofstream(path_ / (stem + (i % 2 == 0 ? ".IMG" : ".txt")));
            }
        }
        // One listing first, so that no reader is measured against a cold cache.
        for (fs::directory_entry const& entry : fs::directory_iterator(path_)) {
            benchmark::DoNotOptimize(entry);
        }
    }
    ~BenchFolder() {
        std::error_code error;
        fs::remove_all(path_, error);
    }
    fs::path const& path() const { return path_; }

private:
    fs::path path_;
};

fs::path const& FolderOf(int count) {
    if (count == 10000) {
        static BenchFolder const small(10000);
        return small.path();
    }
    static BenchFolder const large(100000);
    return large.path();
}

void BM_DirectoryIteratorFloor(benchmark::State& state) {
    fs::path const& folder = FolderOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        std::size_t count = 0;
        for (fs::directory_entry const& entry : fs::directory_iterator(folder)) {
            benchmark::DoNotOptimize(entry);
            ++count;
        }
        benchmark::DoNotOptimize(count);
    }
}

void BM_ReadFilteredPickerEntries(benchmark::State& state) {
    fs::path const& folder = FolderOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(ReadFilteredPickerEntries(folder, IsAllowedImagePickerEntry));
    }
}

void BM_ReadFolderPickerEntries(benchmark::State& state) {
    fs::path const& folder = FolderOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(ReadFolderPickerEntries(folder));
    }
}

BENCHMARK(BM_DirectoryIteratorFloor)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadFilteredPickerEntries)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadFolderPickerEntries)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

// One frame of a 760 x 520 floppy picker over `range(0)` rows, the selection on row 5.
// Ten rows fill part of the list; a thousand and a hundred thousand fill all 17.
void BM_PickerFrame(benchmark::State& state) {
    SdlPickerDialogOptions options;
    options.heading = "Select floppy image (*.ima, *.img)";
    options.label_entry = LabelFloppyPickerEntry;
    options.accept_label = "Open";
    options.cancel_label = "Cancel";
    options.footer_height = 46;
    options.button_width = 70;
    options.button_height = 30;
    PickerDialogState picker;
    picker.current_directory = "/home/user/floppies";
    for (long long i = 0; i < state.range(0); ++i) {
        std::string name = "disk_" + std::to_string(i) + ".img";
        picker.entries.push_back({name, picker.current_directory / name, false});
    }
    picker.selected_index = 5;
    zbench::SoftwareWindow window(760, 520);
    PickerDialogLayout const layout = BuildPickerDialogLayout(options, 760, 520);
    for (auto _ : state) {
        RenderPickerDialogFrame(window.renderer(), options, picker, layout);
        SDL_RenderPresent(window.renderer());
    }
}
BENCHMARK(BM_PickerFrame)->Arg(10)->Arg(1000)->Arg(100000);

}  // namespace

int main(int argc, char** argv) {
    return zbench::RunWithRatios(
        argc, argv,
        {{"BM_ReadFilteredPickerEntries/10000", "BM_DirectoryIteratorFloor/10000"},
         {"BM_ReadFilteredPickerEntries/100000", "BM_DirectoryIteratorFloor/100000"},
         {"BM_ReadFolderPickerEntries/10000", "BM_DirectoryIteratorFloor/10000"},
         {"BM_ReadFolderPickerEntries/100000", "BM_DirectoryIteratorFloor/100000"},
         {"BM_PickerFrame/100000", "BM_PickerFrame/10"},
         {"BM_PickerFrame/100000", "BM_PickerFrame/1000"}});
}
