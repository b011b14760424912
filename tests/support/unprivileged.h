// Runs part of a test in a child process that has given up root, so that permission
// bits bind it as they bind an ordinary user even when the suite runs as root.
#pragma once

#include <functional>
#include <string>

namespace ztest {

struct ChildOutcome {
    bool unprivileged = false;  // the body ran with an effective user other than root
    int exit_code = -1;         // -1 when the child did not exit normally
    std::string output;         // the text that the body returned
};

// Forks. A child of a root process switches to the group and user nobody (65534)
// first; a child of any other user keeps it. The child runs `body`, hands its text
// back through a pipe and leaves with _exit, so nothing of the parent's state (SDL,
// open windows, atexit handlers) is touched twice.
ChildOutcome RunAsUnprivilegedUser(std::function<std::string()> const& body);

}  // namespace ztest
