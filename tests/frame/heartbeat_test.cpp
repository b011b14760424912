// The heartbeat: replaced or cleared from inside itself, throwing, and set from another thread.
#include "gui/frame.h"

#include "support/test_display.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <thread>

namespace {
using namespace zorvane::frontend::gui;

class Heartbeat : public ztest::DialogTest {};

TEST_F(Heartbeat, ReplacesOrClearsItselfAndItsExceptionPassesWithoutHarm) {
    bool destroyed = false;
    int second = 0;
    std::shared_ptr<bool> guard(&destroyed, [](bool* flag) { *flag = true; });
    SetModalDialogHeartbeat([guard, &second] {
        SetModalDialogHeartbeat([&second] {
            if (++second == 1) {
                throw std::runtime_error("emulation fault");
            }
            SetModalDialogHeartbeat(nullptr);
        });
        EXPECT_FALSE(*guard) << "a running heartbeat outlives its replacement";
    });
    guard.reset();
    PumpModalDialogHeartbeat();
    EXPECT_TRUE(destroyed) << "the replaced heartbeat is destroyed after its call";
    EXPECT_THROW(PumpModalDialogHeartbeat(), std::runtime_error);
    PumpModalDialogHeartbeat();
    PumpModalDialogHeartbeat();
    EXPECT_EQ(second, 2) << "it stayed registered after throwing, then cleared itself";
}

TEST_F(Heartbeat, SetFromAnotherThreadWhileOnePumps) {
    std::atomic<int> calls{0};
    std::atomic<bool> stop{false};
    SetModalDialogHeartbeat([&] { ++calls; });
    std::thread setter([&] {
        for (int i = 0; i < 20000; ++i) {
            SetModalDialogHeartbeat([&, token = std::make_shared<int>(1)] { calls += *token; });
        }
        stop = true;
    });
    int pumps = 0;
    for (; !stop; ++pumps) {
        PumpModalDialogHeartbeat();
    }
    setter.join();
    EXPECT_EQ(calls, pumps) << "every pump ran exactly one whole heartbeat";
}
}  // namespace
