// A child process without root for the tests that need permission bits to bind.
#include "support/unprivileged.h"

#ifdef _WIN32
namespace ztest {

// Windows has neither fork nor permission bits; the callers skip there.
ChildOutcome RunAsUnprivilegedUser(std::function<std::string()> const&) {
    return {};
}

}  // namespace ztest
#else
#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ztest {

ChildOutcome RunAsUnprivilegedUser(std::function<std::string()> const& body) {
    constexpr uid_t kNobody = 65534;
    ChildOutcome outcome;
    int fds[2];
    if (pipe(fds) != 0) {
        return outcome;
    }
    pid_t const pid = fork();
    if (pid == 0) {
        close(fds[0]);
        if (geteuid() == 0 &&
            (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0)) {
            _exit(3);
        }
        // The first byte tells whether root was really given up.
        std::string const report = (geteuid() != 0 ? "1" : "0") + body();
        bool const sent =
            write(fds[1], report.data(), report.size()) == static_cast<ssize_t>(report.size());
        _exit(sent ? 0 : 4);
    }
    close(fds[1]);
    std::string report;
    char buffer[4096];
    for (ssize_t n = 0; pid > 0 && (n = read(fds[0], buffer, sizeof buffer)) > 0;) {
        report.append(buffer, static_cast<std::size_t>(n));
    }
    close(fds[0]);
    int status = 0;
    if (pid > 0 && waitpid(pid, &status, 0) == pid && WIFEXITED(status)) {
        outcome.exit_code = WEXITSTATUS(status);
    }
    outcome.unprivileged = !report.empty() && report[0] == '1';
    outcome.output = report.empty() ? report : report.substr(1);
    return outcome;
}

}  // namespace ztest
#endif
