// Entry point of every test executable: SDL video up before the tests, down after.
#include "support/test_display.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (::testing::GTEST_FLAG(list_tests)) {
        return RUN_ALL_TESTS();
    }
    ztest::StartTestDisplay();
    int const result = RUN_ALL_TESTS();
    ztest::StopTestDisplay();
    return result;
}
