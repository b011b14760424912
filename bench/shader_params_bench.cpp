// The shader parameter parsers against a bare getline scan of the same file, and one
// frame of the parameter dialog with 6 and with 500 parameters against the floor of
// a clear and present of a window of the same size.
#include "bench_support.h"
#include "dialog_frames.h"
#include "frame/ui_fonts.h"
#include "shader_params/shader_dialog.h"
#include "shader_params/shader_param_parsers.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

using namespace zorvane::frontend::gui;

constexpr int kWidth = 900;
constexpr int kHeight = 500;

std::string WriteBenchFile(char const* name, std::string const& text) {
    std::filesystem::path const path = std::filesystem::temp_directory_path() / name;
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
}

// About 10 MB of shader source with 50 000 declarations spread through it.
std::string const& LargeShaderPath() {
    static std::string const path = [] {
        std::string text;
        text.reserve(10'100'000);
        for (int i = 0; i < 100'000; ++i) {
            if (i % 2 == 0) {
                text += "#pragma parameter P" + std::to_string(i) + " \"Parameter " +
                        std::to_string(i) + "\" 0.5 0.0 1.0 0.01\n";
            }
            text += "    vec4 c = texture(Source, vTexCoord) * vec4(0.25, 0.5, 0.75, 1.0);\n";
        }
        while (text.size() < 10'000'000) {
            text += "// blend the neighbours\n";
        }
        return WriteBenchFile("zorvane_bench_large.glsl", text);
    }();
    return path;
}

// A preset that lists and sets 5 000 parameters.
std::string const& LargePresetPath() {
    static std::string const path = [] {
        std::string list;
        std::string values;
        for (int i = 0; i < 5'000; ++i) {
            list += "P" + std::to_string(i) + ";";
            values += "P" + std::to_string(i) + " = \"0." + std::to_string(i % 10) + "\"\n";
        }
        return WriteBenchFile("zorvane_bench_large.glslp",
                              "shaders = 1\nshader0 = large.glsl\n"
                              "parameters = \"" +
                                  list + "\"\n" + values);
    }();
    return path;
}

void GetlineScan(benchmark::State& state, std::string const& path) {
    for (auto _ : state) {
        std::ifstream file(path, std::ios::binary);
        std::string line;
        std::size_t lines = 0;
        while (std::getline(file, line)) {
            ++lines;
        }
        benchmark::DoNotOptimize(lines);
    }
}

void BM_GetlineScanShader(benchmark::State& state) {
    GetlineScan(state, LargeShaderPath());
}
BENCHMARK(BM_GetlineScanShader)->Unit(benchmark::kMillisecond);

void BM_ParseShaderParameterSpecs(benchmark::State& state) {
    for (auto _ : state) {
        auto const specs = ParseShaderParameterSpecs(LargeShaderPath());
        if (specs.size() != 50'000) {
            state.SkipWithError("wrong number of declarations");
        }
    }
}
BENCHMARK(BM_ParseShaderParameterSpecs)->Unit(benchmark::kMillisecond);

// The same two without the file read: the parse against a getline scan of the text.
std::string const& LargeShaderText() {
    static std::string const text = [] {
        std::ifstream file(LargeShaderPath(), std::ios::binary);
        std::ostringstream all;
        all << file.rdbuf();
        return all.str();
    }();
    return text;
}

void BM_GetlineScanShaderText(benchmark::State& state) {
    for (auto _ : state) {
        std::istringstream lines(LargeShaderText());
        std::string line;
        std::size_t count = 0;
        while (std::getline(lines, line)) {
            ++count;
        }
        benchmark::DoNotOptimize(count);
    }
}
BENCHMARK(BM_GetlineScanShaderText)->Unit(benchmark::kMillisecond);

void BM_ParseShaderParameterSpecsText(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(ParseShaderParameterSpecsFromText(LargeShaderText()));
    }
}
BENCHMARK(BM_ParseShaderParameterSpecsText)->Unit(benchmark::kMillisecond);

void BM_GetlineScanPreset(benchmark::State& state) {
    GetlineScan(state, LargePresetPath());
}
BENCHMARK(BM_GetlineScanPreset)->Unit(benchmark::kMicrosecond);

void BM_ParseGlslpParameterOverrides(benchmark::State& state) {
    for (auto _ : state) {
        auto const values = ParseGlslpParameterOverrides(LargePresetPath());
        if (values.size() != 5'000) {
            state.SkipWithError("wrong number of values");
        }
    }
}
BENCHMARK(BM_ParseGlslpParameterOverrides)->Unit(benchmark::kMicrosecond);

void BM_ClearPresentFloor(benchmark::State& state) {
    zbench::SoftwareWindow window(kWidth, kHeight);
    for (auto _ : state) {
        zbench::ClearAndPresent(window.renderer());
    }
}
BENCHMARK(BM_ClearPresentFloor);

// One frame scrolled to the middle of the list, fonts and all, as the loop draws it.
void BM_ShaderDialogFrame(benchmark::State& state) {
    zbench::SoftwareWindow window(kWidth, kHeight);
    std::vector<ShaderParameterSpec> const specs(
        static_cast<std::size_t>(state.range(0)),
        ShaderParameterSpec{"P", "Parameter", 0.5f, 0.0f, 1.0f, 0.01f});
    ShaderDialogResult result = InitializeShaderDialogResult(specs, {});
    ShaderDialogGeometry const geometry =
        BuildShaderDialogGeometry(static_cast<int>(specs.size()), 1.0f);
    SdlUiFontHandle const title_font = OpenSdlUiFontHandle(16, true, kSemiBold);
    SdlUiFontHandle const body_font = OpenSdlUiFontHandle(15, false, kRegular);
    std::string const path = "shaders/crt_soft.glslp";
    ShaderDialogSession session =
        zbench::ShaderSession(window.window(), window.renderer(), title_font.get(), body_font.get(),
                              path, specs, geometry, result);
    session.scroll_y = BuildShaderDialogLayout(session, kWidth, kHeight).max_scroll / 2;
    ShaderDialogLayout const layout = BuildShaderDialogLayout(session, kWidth, kHeight);
    for (auto _ : state) {
        RenderShaderDialog(&session, layout, kWidth, kHeight);
    }
}
BENCHMARK(BM_ShaderDialogFrame)->Arg(6)->Arg(500);

}  // namespace

int main(int argc, char** argv) {
    return zbench::RunWithRatios(argc, argv,
                                 {{"BM_ParseShaderParameterSpecs", "BM_GetlineScanShader"},
                                  {"BM_ParseShaderParameterSpecsText", "BM_GetlineScanShaderText"},
                                  {"BM_ParseGlslpParameterOverrides", "BM_GetlineScanPreset"},
                                  {"BM_ShaderDialogFrame/6", "BM_ClearPresentFloor"},
                                  {"BM_ShaderDialogFrame/500", "BM_ClearPresentFloor"},
                                  {"BM_ShaderDialogFrame/500", "BM_ShaderDialogFrame/6"}});
}
