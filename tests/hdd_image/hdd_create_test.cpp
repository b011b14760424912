// The disk image dialog's size and path rules.
#include "hdd_image/hdd_create_dialog.h"
#include "support/test_display.h"

namespace {

using namespace zorvane::frontend::gui;

TEST(HddCreateRules, SizeTextsAndTargetPaths) {
    std::pair<char const*, unsigned int> const sizes[] = {{"", 10},
                                                          {"0", 1},
                                                          {"007", 7},
                                                          {"9999999999", 4294967295u},
                                                          {"12a", 10},
                                                          {"-5", 10},
                                                          {"123456789012345678901", 10}};
    for (auto const& [text, mb] : sizes) {
        EXPECT_EQ(ParseHddCreateSizeMbOrDefault(text, 10), mb) << text;
    }
    EXPECT_EQ(BuildHddCreateTargetPath("", ""), "./disk.img");
    EXPECT_EQ(BuildHddCreateTargetPath("/srv/images/", "c.img"), "/srv/images/c.img");
    EXPECT_EQ(BuildHddCreateTargetPath("/srv", "/abs/d.img"), "/abs/d.img");
}

}  // namespace
