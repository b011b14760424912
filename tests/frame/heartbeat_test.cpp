// The heartbeat: replaced and cleared from inside itself, set from another thread
// while one pumps, and exceptions that pass through without breaking the next pump.
#include "gui/frame.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <thread>

namespace {

using zorvane::frontend::gui::PumpModalDialogHeartbeat;
using zorvane::frontend::gui::SetModalDialogHeartbeat;

class Heartbeat : public ::testing::Test {
protected:
    void TearDown() override { SetModalDialogHeartbeat(nullptr); }
};

TEST_F(Heartbeat, PumpsTheRegisteredCallableAndDropsTheReplacedOneAtOnce) {
    PumpModalDialogHeartbeat();  // nothing registered yet
    auto token = std::make_shared<int>(1);
    std::weak_ptr<int> watch = token;
    int calls = 0;
    SetModalDialogHeartbeat([token, &calls] { ++calls; });
    token.reset();
    PumpModalDialogHeartbeat();
    PumpModalDialogHeartbeat();
    EXPECT_FALSE(watch.expired());
    SetModalDialogHeartbeat({});
    EXPECT_TRUE(watch.expired()) << "the replaced callable is gone when Set returns";
    PumpModalDialogHeartbeat();
    EXPECT_EQ(calls, 2);
}

TEST_F(Heartbeat, ReplacedOrClearedFromInsideItselfFinishesItsCall) {
    // The running heartbeat owns a token; it must outlive the call that replaces it.
    auto token = std::make_shared<int>(7);
    std::weak_ptr<int> watch = token;
    int seen = 0;
    int second = 0;
    SetModalDialogHeartbeat([token, &seen, &second] {
        SetModalDialogHeartbeat([&second] { ++second; });
        seen = *token;  // still valid: the pump runs a copy
    });
    token.reset();
    PumpModalDialogHeartbeat();
    EXPECT_EQ(seen, 7);
    EXPECT_TRUE(watch.expired()) << "the replaced heartbeat and its copy are destroyed";
    PumpModalDialogHeartbeat();
    EXPECT_EQ(second, 1);

    int cleared_calls = 0;
    SetModalDialogHeartbeat([&cleared_calls] {
        ++cleared_calls;
        SetModalDialogHeartbeat(nullptr);
    });
    PumpModalDialogHeartbeat();
    PumpModalDialogHeartbeat();
    EXPECT_EQ(cleared_calls, 1);
}

TEST_F(Heartbeat, ExceptionPassesThroughAndTheNextPumpWorks) {
    auto token = std::make_shared<int>(1);
    std::weak_ptr<int> watch = token;
    int calls = 0;
    SetModalDialogHeartbeat([token, &calls] {
        ++calls;
        throw std::runtime_error("emulation fault");
    });
    token.reset();
    EXPECT_THROW(PumpModalDialogHeartbeat(), std::runtime_error);
    EXPECT_FALSE(watch.expired()) << "the stored heartbeat stays registered";
    EXPECT_THROW(PumpModalDialogHeartbeat(), std::runtime_error);
    EXPECT_EQ(calls, 2);
    SetModalDialogHeartbeat([&calls] { calls += 10; });
    EXPECT_TRUE(watch.expired());
    EXPECT_NO_THROW(PumpModalDialogHeartbeat());
    EXPECT_EQ(calls, 12);
}

TEST_F(Heartbeat, SetFromAnotherThreadWhilePumping) {
    std::atomic<int> a_calls{0};
    std::atomic<int> b_calls{0};
    std::atomic<bool> stop{false};
    SetModalDialogHeartbeat([&] { ++a_calls; });

    std::thread setter([&] {
        for (int i = 0; i < 20000; ++i) {
            if (i % 2 == 0) {
                SetModalDialogHeartbeat([&] { ++b_calls; });
            } else {
                auto token = std::make_shared<int>(i);
                SetModalDialogHeartbeat([&, token] { a_calls += (*token > 0) ? 1 : 0; });
            }
        }
        stop = true;
    });
    int pumps = 0;
    while (!stop) {
        PumpModalDialogHeartbeat();
        ++pumps;
    }
    setter.join();
    PumpModalDialogHeartbeat();
    ++pumps;
    EXPECT_EQ(a_calls + b_calls, pumps);
}

}  // namespace
