// Entry point of every test executable: SDL video up before the tests, down after.
#include "support/test_display.h"

#include <gtest/gtest.h>

#include <cstdio>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (::testing::GTEST_FLAG(list_tests)) {
        return RUN_ALL_TESTS();
    }
    if (!ztest::StartTestDisplay()) {
        // The marker CTest reads as a skip, in GoogleTest's own words.
        std::printf("[  SKIPPED ] no private X server could be reached\n");
        return 0;
    }
    int const result = RUN_ALL_TESTS();
    ztest::StopTestDisplay();
    return result;
}
