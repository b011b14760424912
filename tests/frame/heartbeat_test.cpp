// The heartbeat: changed from inside itself, set from another thread, and throwing.
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

TEST_F(Heartbeat, ReplacedOrClearedFromInsideItselfFinishesItsCall) {
    PumpModalDialogHeartbeat();  // nothing registered yet
    auto token = std::make_shared<int>(7);
    std::weak_ptr<int> const watch = token;
    int seen = 0;
    int second = 0;
    SetModalDialogHeartbeat([token, &seen, &second] {
        SetModalDialogHeartbeat([&second] {
            ++second;
            SetModalDialogHeartbeat(nullptr);
        });
        seen = *token;  // the running callable is still alive
    });
    token.reset();
    for (int i = 0; i < 3; ++i) {
        PumpModalDialogHeartbeat();
    }
    EXPECT_EQ(seen, 7);
    EXPECT_TRUE(watch.expired()) << "the replaced heartbeat is destroyed after its call";
    EXPECT_EQ(second, 1) << "the one that cleared itself ran once";
}

TEST_F(Heartbeat, AnExceptionPassesThroughAndTheNextPumpWorks) {
    int calls = 0;
    SetModalDialogHeartbeat([&calls] {
        ++calls;
        throw std::runtime_error("emulation fault");
    });
    EXPECT_THROW(PumpModalDialogHeartbeat(), std::runtime_error);
    EXPECT_THROW(PumpModalDialogHeartbeat(), std::runtime_error) << "it stays registered";
    SetModalDialogHeartbeat([&calls] { calls += 10; });
    EXPECT_NO_THROW(PumpModalDialogHeartbeat());
    EXPECT_EQ(calls, 12);
}

TEST_F(Heartbeat, SetFromAnotherThreadWhileOnePumps) {
    std::atomic<int> calls{0};
    std::atomic<bool> stop{false};
    SetModalDialogHeartbeat([&] { ++calls; });
    std::thread setter([&] {
        for (int i = 0; i < 20000; ++i) {
            auto token = std::make_shared<int>(i);
            SetModalDialogHeartbeat([&calls, token] { calls += *token >= 0 ? 1 : 0; });
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
