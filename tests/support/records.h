// Result records as one line of text each, so that a test compares every field at once
// and a mismatch shows which field differs.
#pragma once

#include "gui/hdd_image.h"
#include "gui/screenshot.h"
#include "gui/settings.h"
#include "gui/shader_params.h"

#include <string>
#include <vector>

namespace ztest {

namespace gui = zorvane::frontend::gui;

// "60fps pixel hardware 4.77MHz gain1.5 text0 hdd1 vol0.35 font'' shaders0 size1"
std::string Describe(gui::SettingsDialogValues const& values);
// "NAME [Label] default min max step;" for each spec
std::string Describe(std::vector<gui::ShaderParameterSpec> const& specs);
// "NAME=value;" for each value
std::string Describe(std::vector<gui::ShaderParameterValue> const& values);
// "accepted NAME=value;..." or "not accepted ..."
std::string Describe(gui::ShaderDialogResult const& result);
// "saved FOLDER NAME jpeg q90 c2 rle1" or "not saved ..."
std::string Describe(gui::ScreenshotSaveDialogResult const& result);
// "create 10MB FOLDER NAME" or "no image ..."
std::string Describe(gui::HddCreateDialogResult const& result);

}  // namespace ztest
