// A child process without root for the tests that need permission bits to bind.
#include "support/unprivileged.h"

#include <grp.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

namespace ztest {

namespace {

constexpr uid_t kNobodyId = 65534;

void WriteAll(int fd, std::string const& text) {
    std::size_t done = 0;
    while (done < text.size()) {
        ssize_t const n = write(fd, text.data() + done, text.size() - done);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n <= 0) {
            return;
        }
        done += static_cast<std::size_t>(n);
    }
}

std::string ReadAll(int fd) {
    std::string text;
    char buffer[4096];
    while (true) {
        ssize_t const n = read(fd, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n <= 0) {
            return text;
        }
        text.append(buffer, static_cast<std::size_t>(n));
    }
}

// The child's side: drop root, run, report. The first byte says whether the body
// ran without root.
[[noreturn]] void RunChild(int fd, std::function<std::string()> const& body) {
    if (geteuid() == 0) {
        if (setgroups(0, nullptr) != 0 || setgid(kNobodyId) != 0 || setuid(kNobodyId) != 0) {
            _exit(3);
        }
    }
    std::string report(1, geteuid() != 0 ? '1' : '0');
    try {
        report += body();
    } catch (...) {
        _exit(2);
    }
    WriteAll(fd, report);
    close(fd);
    _exit(0);
}

}  // namespace

ChildOutcome RunAsUnprivilegedUser(std::function<std::string()> const& body) {
    ChildOutcome outcome;
    int fds[2];
    if (pipe(fds) != 0) {
        return outcome;
    }
    pid_t const pid = fork();
    if (pid == 0) {
        close(fds[0]);
        RunChild(fds[1], body);
    }
    close(fds[1]);
    std::string const report = pid > 0 ? ReadAll(fds[0]) : std::string();
    close(fds[0]);
    int status = 0;
    if (pid > 0 && waitpid(pid, &status, 0) == pid && WIFEXITED(status)) {
        outcome.exit_code = WEXITSTATUS(status);
    }
    if (!report.empty()) {
        outcome.unprivileged = report[0] == '1';
        outcome.output = report.substr(1);
    }
    return outcome;
}

}  // namespace ztest
