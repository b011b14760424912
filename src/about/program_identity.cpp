// The program's identity texts and the build facts of the About dialog, both fixed
// when this library is compiled.
#include "about/about_dialog.h"
#include "gui/about.h"

#include <array>

#include "about/about_build_facts.h"

#ifndef ZORVANE_ABOUT_LTO
#define ZORVANE_ABOUT_LTO 0
#endif
#ifndef ZORVANE_ABOUT_PGO
#define ZORVANE_ABOUT_PGO 0
#endif
#ifndef ZORVANE_ABOUT_O2
#define ZORVANE_ABOUT_O2 0
#endif
#ifndef ZORVANE_ABOUT_O3
#define ZORVANE_ABOUT_O3 0
#endif

namespace zorvane::frontend {

namespace {

constexpr char kCompilerDateTime[] = __DATE__ " " __TIME__;

// The compiler's date and time ("Apr  4 2026 10:06:43") with the day at two digits.
constexpr std::array<char, sizeof(kCompilerDateTime)> BuildDateText() {
    std::array<char, sizeof(kCompilerDateTime)> text{};
    for (std::size_t i = 0; i < text.size(); ++i) {
        text[i] = kCompilerDateTime[i];
    }
    if (text[4] == ' ') {
        text[4] = '0';
    }
    return text;
}

constexpr std::array<char, sizeof(kCompilerDateTime)> kBuildDate = BuildDateText();

}  // namespace

char const* const kProgramVersion = ZORVANE_ABOUT_VERSION;
char const* const kProgramBuildDate = kBuildDate.data();

}  // namespace zorvane::frontend

namespace zorvane::frontend::gui {

namespace {

std::string Switch(char const* name, bool on) {
    return std::string(name) + (on ? " ON" : " OFF");
}

}  // namespace

AboutDialogInfoRows BuildAboutDialogInfoRows() {
    AboutDialogInfoRows rows;
    rows.version = std::string("v") + kProgramVersion;
    rows.build_date = kProgramBuildDate;
    rows.compiler = ZORVANE_ABOUT_COMPILER;
    rows.platform = ZORVANE_ABOUT_PLATFORM;
    rows.arch = ZORVANE_ABOUT_ARCH;
    rows.flags = Switch("LTO", ZORVANE_ABOUT_LTO) + "  " + Switch("PGO", ZORVANE_ABOUT_PGO) + "  " +
                 Switch("O2", ZORVANE_ABOUT_O2) + "  " + Switch("O3", ZORVANE_ABOUT_O3);
    return rows;
}

}  // namespace zorvane::frontend::gui
