// One turn of the message box (layout, drawing, present) against the floor of a
// clear and present of a window of the same size, both on the software renderer.
#include "bench_support.h"
#include "dialog_inputs.h"
#include "message_box/message_box_internal.h"

namespace {

using namespace zorvane::frontend::gui;

constexpr int kWidth = zbench::kReportMessageBoxWidth;
constexpr int kHeight = 226;

void BM_ClearPresentFloor(benchmark::State& state) {
    zbench::SoftwareWindow window(kWidth, kHeight);
    for (auto _ : state) {
        zbench::ClearAndPresent(window.renderer());
    }
}
BENCHMARK(BM_ClearPresentFloor);

void BM_MessageBoxTurn(benchmark::State& state) {
    zbench::SoftwareWindow window(kWidth, kHeight);
    SdlMessageBox const box(zbench::ReportMessageBoxConfig());
    SdlMessageBoxFonts const fonts = OpenSdlMessageBoxFonts(1.0f);
    MessageBoxTypeVisual const visual = VisualForMessageBoxType(box.config().type);
    for (auto _ : state) {
        SdlMessageBoxLayout const layout = BuildSdlMessageBoxLayout(
            box.config(), 1.0f, kWidth, kHeight, fonts.title.get(), fonts.message.get());
        RenderSdlMessageBoxFrame(window.renderer(), box.config(), visual, layout, fonts.icon.get(),
                                 fonts.title.get(), fonts.message.get(), fonts.button.get(), 300,
                                 200);
        SDL_RenderPresent(window.renderer());
    }
}
BENCHMARK(BM_MessageBoxTurn);

}  // namespace

int main(int argc, char** argv) {
    return zbench::RunWithRatios(argc, argv, {{"BM_MessageBoxTurn", "BM_ClearPresentFloor"}});
}
