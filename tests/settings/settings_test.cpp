// The topic the settings dialog opens on, for any navigation table.
#include "settings/settings_internal.h"

#include <gtest/gtest.h>

namespace {

using namespace zorvane::frontend::gui;

// The first selectable row's topic, or none.
TEST(SettingsNavigation, OpensOnTheFirstSelectableTopic) {
    EXPECT_EQ(FindInitialSettingsPanel({{0, "Audio", -1}, {1, "HDD Sounds", 5}, {1, "CPU", 3}}), 5);
    EXPECT_EQ(FindInitialSettingsPanel({{0, "Audio", -1}}), -1);
}

}  // namespace
