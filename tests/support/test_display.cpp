// SDL start-up for the tests, with a private Xvfb when the x11 driver has no display.
#include "support/test_display.h"

#include "gui/frame.h"
#include "support/sdl_recorder.h"

#include <SDL.h>
#include <SDL_ttf.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace ztest {

namespace {

#ifdef _WIN32
// Windows has no X server: a suite that asks for the x11 driver runs its tests as
// skipped, with the reason, on the dummy driver. GoogleTest counts tests skipped by
// the environment as passed, so the line that CTest reads as a skip is printed too.
class SkipEverySuite : public ::testing::Environment {
public:
    void SetUp() override {
        char const* const reason = "needs an X server and XTest for a real pointer";
        std::printf("[  SKIPPED ] on Windows: %s\n", reason);
        GTEST_SKIP() << reason;
    }
};

bool StartXvfb() {
    return false;
}
void PrintXvfbLog() {}
void setenv(char const* name, char const* value, int) {
    _putenv_s(name, value);
}
void usleep(unsigned microseconds) {
    Sleep(microseconds / 1000);
}
#else
pid_t g_xvfb_pid = -1;
int g_xvfb_log = -1;  // the server's own messages: an unlinked file, read when a start fails

// Starts Xvfb on a free display number, which it writes to a pipe once it is ready.
bool StartXvfb() {
    if (g_xvfb_log < 0) {
        char path[] = "/tmp/zorvane_xvfb_log_XXXXXX";
        g_xvfb_log = mkostemp(path, O_CLOEXEC);
        if (g_xvfb_log >= 0) {
            unlink(path);
        }
    }
    if (g_xvfb_log >= 0 && (ftruncate(g_xvfb_log, 0) != 0 || lseek(g_xvfb_log, 0, SEEK_SET) != 0)) {
        return false;
    }
    int fds[2];
    if (pipe(fds) != 0) {
        return false;
    }
    pid_t const pid = fork();
    if (pid < 0) {
        return false;
    }
    if (pid == 0) {
        close(fds[0]);
        dup2(g_xvfb_log >= 0 ? g_xvfb_log : open("/dev/null", O_WRONLY), STDERR_FILENO);
        std::string const fd = std::to_string(fds[1]);
        execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", "1280x1024x24",
               "-nolisten", "tcp", "-noreset", static_cast<char*>(nullptr));
        _exit(127);
    }
    close(fds[1]);
    g_xvfb_pid = pid;
    // The server writes its number and the newline in two writes, and dies if the pipe
    // is gone before the second: read the whole line before closing it.
    std::string number;
    for (char c = 0;;) {
        ssize_t const n = read(fds[0], &c, 1);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n != 1 || c == '\n') {
            break;
        }
        number += c;
    }
    close(fds[0]);
    if (number.empty()) {
        return false;
    }
    setenv("DISPLAY", (":" + number).c_str(), 1);
    return true;
}

// Copies what the last server printed, up to its exit, to our stderr.
void PrintXvfbLog() {
    char buffer[4096];
    ssize_t n = 0;
    for (off_t at = 0; g_xvfb_log >= 0 && (n = pread(g_xvfb_log, buffer, sizeof(buffer), at)) > 0;
         at += n) {
        std::fwrite(buffer, 1, static_cast<size_t>(n), stderr);
    }
}
#endif

}  // namespace

std::string VideoDriver() {
    char const* driver = SDL_GetCurrentVideoDriver();
    return driver != nullptr ? driver : "";
}

void StopXvfb() {
#ifndef _WIN32
    if (g_xvfb_pid > 0) {
        kill(g_xvfb_pid, SIGTERM);
        waitpid(g_xvfb_pid, nullptr, 0);
        g_xvfb_pid = -1;
    }
#endif
}

void StartTestDisplay() {
    char const* requested = std::getenv("SDL_VIDEODRIVER");
    if (requested == nullptr || requested[0] == '\0') {
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        requested = "dummy";
    }
#ifdef _WIN32
    if (std::strcmp(requested, "x11") == 0) {
        ::testing::AddGlobalTestEnvironment(new SkipEverySuite);
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        requested = "dummy";
    }
#endif
    char const* display = std::getenv("DISPLAY");
    bool const own_server =
        std::strcmp(requested, "x11") == 0 && (display == nullptr || display[0] == '\0');
    for (int attempt = 0; attempt < 8; ++attempt) {
        if (own_server && !StartXvfb()) {
            StopXvfb();
            PrintXvfbLog();
            usleep(100000u * static_cast<unsigned>(attempt + 1));
            continue;
        }
        if (SDL_Init(SDL_INIT_VIDEO) == 0) {
            return;
        }
        std::fprintf(stderr, "SDL_Init: %s\n", SDL_GetError());
        if (!own_server) {
            break;
        }
        // No SDL_Quit here: it would unload libraries whose allocations the leak
        // checker could then no longer place.
        StopXvfb();
        PrintXvfbLog();
    }
    std::fprintf(stderr, "cannot start the %s video driver for the tests\n", requested);
    std::exit(1);
}

void StopTestDisplay() {
    zorvane::frontend::gui::ShutdownSdlUiCachedFonts();
    if (TTF_WasInit() != 0) {
        TTF_Quit();
    }
    // SDL's X11 driver unloads libX11 on quit, which leaves the leak checker with
    // allocations of an unknown module; under X the process simply ends instead.
    if (VideoDriver() != "x11") {
        SDL_Quit();
    }
    StopXvfb();
}

void DialogTest::SetUp() {
    ResetRecorder();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
}

void DialogTest::TearDown() {
    zorvane::frontend::gui::SetModalDialogHeartbeat(nullptr);
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
}

}  // namespace ztest
