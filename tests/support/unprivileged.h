// Runs part of a test in a child process without root, so that permission bits bind
// it as they bind an ordinary user even when the suite runs as root.
#pragma once

#include <functional>
#include <string>

namespace ztest {

struct ChildOutcome {
    bool unprivileged = false;  // the body ran with an effective user other than root
    int exit_code = -1;         // -1 when the child did not exit normally
    std::string output;         // the text that the body returned
};

// Forks; a child of root first becomes group and user nobody (65534). The child runs
// `body`, sends its text back through a pipe and leaves with _exit, touching nothing
// of the parent's state (SDL, windows, atexit handlers).
ChildOutcome RunAsUnprivilegedUser(std::function<std::string()> const& body);

}  // namespace ztest
