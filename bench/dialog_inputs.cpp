// The scratch folder, message box text and settings record of the dialog report.
#include "dialog_inputs.h"

#include "bench_support.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>

namespace zbench {

namespace fs = std::filesystem;
using zorvane::frontend::gui::SdlMessageBox;
using zorvane::frontend::gui::SettingsDialogValues;

namespace {

constexpr int kSubfolders = 20;
constexpr int kImages = 40;

void WriteShaderSource(fs::path const& path) {
    std::ofstream shader(path);
    shader << "#pragma parameter SCANLINE \"Scanline strength\" 0.35 0.0 1.0 0.05\n"
              "#pragma parameter MASK \"Mask strength\" 0.3 0.0 1.0 0.05\n"
              "#pragma parameter BLOOM \"Bloom\" 0.15 0.0 1.0 0.01\n"
              "#pragma parameter CURVATURE \"Curvature\" 0.02 0.0 0.2 0.01\n"
              "#pragma parameter GAMMA_IN \"Input gamma\" 2.4 1.0 3.0 0.1\n"
              "#pragma parameter GAMMA_OUT \"Output gamma\" 2.2 1.0 3.0 0.1\n"
              "void main() { gl_FragColor = vec4(1.0); }\n";
}

}  // namespace

ReportFolder::ReportFolder() : path_(MakeScratchFolder("zorvane_report")) {
    for (int i = 0; i < kSubfolders; ++i) {
        fs::create_directory(path_ / ("folder_" + std::to_string(i)));
    }
    for (int i = 0; i < kImages; ++i) {
        std::ofstream(path_ / ("disk_" + std::to_string(i) + ".img"));
    }
    WriteShaderSource(ShaderPath());
}

ReportFolder::~ReportFolder() {
    std::error_code error;
    fs::remove_all(path_, error);
}

std::string ReportFolder::ShaderPath() const {
    return (path_ / "crt_soft.glsl").string();
}

SdlMessageBox::Config ReportMessageBoxConfig() {
    SdlMessageBox::Config config;
    config.title = "Low speed";
    config.message = "The host cannot keep up with 30 MHz.\nThe guest clock will run slow.";
    config.type = SdlMessageBox::Type::Warning;
    config.width = kReportMessageBoxWidth;
    config.buttons = {{0, "Cancel", false, true, nullptr}, {1, "OK", true, false, nullptr}};
    return config;
}

SettingsDialogValues ReportSettingsValues() {
    SettingsDialogValues values;
    values.font_mode = "ttf-custom";
    values.custom_font_path = "data/ttf/IBMPlexSans-Regular.ttf";
    return values;
}

}  // namespace zbench
