// One settings frame of each panel (navigation, panel, bottom bar, present) against
// the floor of a clear and present of the 820 x 492 window, on the software
// renderer; the same frames without fonts show what text drawing costs.
#include "bench_support.h"
#include "dialog_frames.h"
#include "settings/settings_internal.h"

#include <string>

namespace {

using namespace zorvane::frontend::gui;

constexpr int kWidth = 820;
constexpr int kHeight = 492;
constexpr int kPanels[] = {0, 1, 2, 7, 3, 4, 5, 6};

void BM_ClearPresentFloor(benchmark::State& state) {
    zbench::SoftwareWindow window(kWidth, kHeight);
    for (auto _ : state) {
        zbench::ClearAndPresent(window.renderer());
    }
}
BENCHMARK(BM_ClearPresentFloor);

void RunSettingsFrames(benchmark::State& state, bool with_text) {
    zbench::SoftwareWindow window(kWidth, kHeight);
    SdlUiFontHandle const title = OpenSdlUiFontHandle(15, true, kSemiBold);
    SdlUiFontHandle const body = OpenSdlUiFontHandle(15, false, kSemiBold);
    std::vector<NavItem> const items = BuildSettingsNavItems();
    SettingsDialogValues const values = zbench::ReportSettingsValues();
    for (auto _ : state) {
        // The pointer over the panel's first control.
        zbench::DrawSettingsFrame(window.renderer(), with_text ? title.get() : nullptr,
                                  with_text ? body.get() : nullptr, items, values,
                                  static_cast<int>(state.range(0)), 300, 100);
    }
}

void BM_SettingsFrame(benchmark::State& state) {
    RunSettingsFrames(state, true);
}
void BM_SettingsFrameNoText(benchmark::State& state) {
    RunSettingsFrames(state, false);
}

void PanelArgs(benchmark::internal::Benchmark* b) {
    for (int panel : kPanels) {
        b->Arg(panel);
    }
}
BENCHMARK(BM_SettingsFrame)->Apply(PanelArgs);
BENCHMARK(BM_SettingsFrameNoText)->Apply(PanelArgs);

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::pair<std::string, std::string>> ratios;
    for (int panel : kPanels) {
        std::string const arg = "/" + std::to_string(panel);
        ratios.push_back({"BM_SettingsFrame" + arg, "BM_ClearPresentFloor"});
        ratios.push_back({"BM_SettingsFrame" + arg, "BM_SettingsFrameNoText" + arg});
    }
    return zbench::RunWithRatios(argc, argv, ratios);
}
