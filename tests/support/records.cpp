// Result records as text: every field, in declaration order.
#include "support/records.h"

#include <sstream>

namespace ztest {

std::string Describe(gui::SettingsDialogValues const& v) {
    std::ostringstream out;
    out << v.fps << "fps " << v.font_mode << " " << v.renderer_mode << " " << v.cpu_mhz
        << "MHz gain" << v.mouse_capture_gain << " text" << v.allow_mouse_capture_in_text_mode
        << " hdd" << v.hdd_sounds_enabled << " vol" << v.hdd_sounds_volume << " font'"
        << v.custom_font_path << "' shaders" << v.screenshot_capture_with_opengl_shaders << " size"
        << v.screenshot_capture_size_mode;
    return out.str();
}

std::string Describe(std::vector<gui::ShaderParameterSpec> const& specs) {
    std::ostringstream out;
    for (gui::ShaderParameterSpec const& s : specs) {
        out << s.name << " [" << s.label << "] " << s.default_value << " " << s.min_value << " "
            << s.max_value << " " << s.step << ";";
    }
    return out.str();
}

std::string Describe(std::vector<gui::ShaderParameterValue> const& values) {
    std::ostringstream out;
    for (gui::ShaderParameterValue const& v : values) {
        out << v.name << "=" << v.value << ";";
    }
    return out.str();
}

std::string Describe(gui::ShaderDialogResult const& r) {
    return (r.accepted ? "accepted " : "not accepted ") + Describe(r.values);
}

std::string Describe(gui::ScreenshotSaveDialogResult const& r) {
    std::ostringstream out;
    out << (r.accepted ? "saved " : "not saved ") << r.folder << " " << r.file_name << " "
        << gui::ScreenshotSaveFormatExtension(r.format) << " q" << r.jpeg_quality << " c"
        << r.png_compression << " rle" << r.bmp_rle;
    return out.str();
}

std::string Describe(gui::HddCreateDialogResult const& r) {
    return (r.accepted ? "create " : "no image ") + std::to_string(r.size_mb) + "MB " + r.folder +
           " " + r.file_name;
}

}  // namespace ztest
