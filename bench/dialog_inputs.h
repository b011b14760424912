// What the dialog report opens each dialog with, shared by its frame benchmarks and
// its timed runs: a scratch folder, a message box's text and a settings record.
#pragma once

#include "gui/message_box.h"
#include "gui/settings.h"

#include <filesystem>
#include <string>

namespace zbench {

inline constexpr int kReportMessageBoxWidth = 460;

// A scratch folder of sub-folders, floppy images and a shader source with six
// parameters, made in the temporary directory and removed on destruction.
class ReportFolder {
public:
    ReportFolder();
    ~ReportFolder();
    ReportFolder(ReportFolder const&) = delete;
    ReportFolder& operator=(ReportFolder const&) = delete;

    std::filesystem::path const& path() const { return path_; }
    std::string ShaderPath() const;

private:
    std::filesystem::path path_;
};

// A two-button warning with two lines of text, 460 pixels wide.
zorvane::frontend::gui::SdlMessageBox::Config ReportMessageBoxConfig();

// The settings record as a host hands it over, a custom font among them.
zorvane::frontend::gui::SettingsDialogValues ReportSettingsValues();

}  // namespace zbench
