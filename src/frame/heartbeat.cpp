// The modal heartbeat: one callable, registered by the host, run once per dialog frame.
#include "gui/frame.h"

#include <mutex>
#include <utility>

namespace zorvane::frontend::gui {

namespace {

// Declared in this order so that at exit the callable goes first and the mutex after it.
std::mutex g_modal_heartbeat_mutex;
std::function<void()> g_modal_heartbeat;

}  // namespace

void SetModalDialogHeartbeat(std::function<void()> heartbeat) {
    std::function<void()> previous;
    {
        std::lock_guard<std::mutex> lock(g_modal_heartbeat_mutex);
        previous = std::exchange(g_modal_heartbeat, std::move(heartbeat));
    }
    // `previous` is destroyed here, outside the lock, before the call returns.
}

void PumpModalDialogHeartbeat() {
    std::function<void()> heartbeat;
    {
        std::lock_guard<std::mutex> lock(g_modal_heartbeat_mutex);
        heartbeat = g_modal_heartbeat;
    }
    // The copy runs with no lock held, so it may replace or clear the stored one.
    if (heartbeat) {
        heartbeat();
    }
}

}  // namespace zorvane::frontend::gui
