// Format labels and extensions, the time-stamped default name, the extension rule
// and the numeric option of a format.
#include "screenshot/screenshot_names.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "zorvane/utils.h"

namespace zorvane::frontend::gui {

namespace {

std::time_t SystemClock() {
    return std::time(nullptr);
}

ScreenshotClock g_screenshot_clock = &SystemClock;

// Local time of `when`; a record of zeros when the conversion fails.
std::tm LocalTime(std::time_t when) {
    std::tm local{};
#if defined(_WIN32)
    if (localtime_s(&local, &when) != 0) {
        local = std::tm{};
    }
#else
    if (localtime_r(&when, &local) == nullptr) {
        local = std::tm{};
    }
#endif
    return local;
}

bool IsAllDigits(std::string const& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

char const* ScreenshotSaveFormatExtension(ScreenshotSaveFormat format) {
    switch (format) {
        case ScreenshotSaveFormat::Jpeg:
            return "jpg";
        case ScreenshotSaveFormat::Bmp:
            return "bmp";
        case ScreenshotSaveFormat::Png:
        default:
            return "png";
    }
}

std::string MakeDefaultScreenshotFilename(ScreenshotSaveFormat format) {
    std::tm const local = LocalTime(g_screenshot_clock());
    char buffer[64] = {};
    std::snprintf(buffer, sizeof(buffer), "zorvane_capture_%04d_%02d_%02d_%02d_%02d_%02d",
                  local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                  local.tm_min, local.tm_sec);
    return std::string(buffer) + "." + ScreenshotSaveFormatExtension(format);
}

ScreenshotClock SetScreenshotClock(ScreenshotClock clock) {
    ScreenshotClock const previous = g_screenshot_clock;
    g_screenshot_clock = clock != nullptr ? clock : &SystemClock;
    return previous;
}

std::string FormatLabel(ScreenshotSaveFormat format) {
    switch (format) {
        case ScreenshotSaveFormat::Jpeg:
            return "JPEG (*.jpg)";
        case ScreenshotSaveFormat::Bmp:
            return "BMP (*.bmp)";
        case ScreenshotSaveFormat::Png:
        default:
            return "PNG (*.png)";
    }
}

char const* FormatValueLabel(ScreenshotSaveFormat format) {
    switch (format) {
        case ScreenshotSaveFormat::Png:
            return "PNG compression (0-9):";
        case ScreenshotSaveFormat::Jpeg:
            return "JPEG quality (1-100):";
        case ScreenshotSaveFormat::Bmp:
        default:
            return "BMP options:";
    }
}

std::string ReplaceFilenameExtension(std::string const& name, ScreenshotSaveFormat format) {
    return zorvane::utils::stem_or_filename_from_path(name, "zorvane_capture") + "." +
           ScreenshotSaveFormatExtension(format);
}

int ClampFormatValue(ScreenshotSaveFormat format, std::string const& text, int fallback) {
    if (text.empty() || !IsAllDigits(text)) {
        return fallback;
    }
    int value = 0;
    try {
        value = std::stoi(text, nullptr, 10);
    } catch (std::out_of_range const&) {
        return fallback;
    }
    switch (format) {
        case ScreenshotSaveFormat::Jpeg:
            return std::clamp(value, 1, 100);
        case ScreenshotSaveFormat::Png:
            return std::clamp(value, 0, 9);
        case ScreenshotSaveFormat::Bmp:
        default:
            return fallback;
    }
}

}  // namespace zorvane::frontend::gui
