// The file calls of the process, noted when they could change the disk and then
// passed on. They are defined here, so that they win over the C library's for every
// caller, and reach it through dlsym(RTLD_NEXT, ...). Windows programs reach theirs
// through their import tables instead; there the watch sees nothing (file_watch.h).
#include "file_watch.h"

#include <fcntl.h>
#include <stdarg.h>
#include <stdio.h>
#include <sys/stat.h>

#ifndef _WIN32
#include <dlfcn.h>
#include <unistd.h>
#endif

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <vector>

namespace ztest {
namespace {

std::atomic<bool> g_watching{false};
std::mutex g_mutex;
std::vector<std::string>& Noted() {
    static std::vector<std::string> noted;
    return noted;
}

void Note(char const* call, char const* path) {
    if (!g_watching.load()) {
        return;
    }
    std::lock_guard<std::mutex> lock(g_mutex);
    Noted().push_back(std::string(call) + " " + (path != nullptr ? path : "(null)"));
}

bool Writes(int flags) {
    return (flags & (O_WRONLY | O_RDWR)) != 0 || (flags & (O_CREAT | O_TRUNC)) != 0;
}

bool Writes(char const* mode) {
    return mode != nullptr && std::strpbrk(mode, "wa+") != nullptr;
}

#ifndef _WIN32
template <typename Fn>
Fn Next(char const* name) {
    void* symbol = dlsym(RTLD_NEXT, name);
    if (symbol == nullptr) {
        std::abort();
    }
    return reinterpret_cast<Fn>(symbol);
}

// O_CREAT and O_TMPFILE are the flags that carry a mode.
mode_t ModeOf(int flags, va_list args) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? static_cast<mode_t>(va_arg(args, unsigned)) : 0;
}
#endif

}  // namespace

FileWriteWatch::FileWriteWatch() {
    std::lock_guard<std::mutex> lock(g_mutex);
    Noted().clear();
    g_watching = true;
}

FileWriteWatch::~FileWriteWatch() {
    g_watching = false;
}

std::vector<std::string> FileWriteWatch::Writes() const {
    std::lock_guard<std::mutex> lock(g_mutex);
    return Noted();
}

}  // namespace ztest

using ztest::Note;

#ifndef _WIN32
using ztest::Next;

extern "C" {

// The opens: noted when their flags may write, then made with the same mode.
#define ZTEST_OPEN(name, params, args)                       \
    int name params {                                        \
        static auto const next = Next<int(*) params>(#name); \
        va_list list;                                        \
        va_start(list, flags);                               \
        mode_t const mode = ztest::ModeOf(flags, list);      \
        va_end(list);                                        \
        if (ztest::Writes(flags)) {                          \
            Note(#name, path);                               \
        }                                                    \
        return next args;                                    \
    }
ZTEST_OPEN(open, (char const* path, int flags, ...), (path, flags, mode))
ZTEST_OPEN(open64, (char const* path, int flags, ...), (path, flags, mode))
ZTEST_OPEN(openat, (int dir, char const* path, int flags, ...), (dir, path, flags, mode))
ZTEST_OPEN(openat64, (int dir, char const* path, int flags, ...), (dir, path, flags, mode))

#define ZTEST_FOPEN(name)                                                          \
    FILE* name(char const* path, char const* mode) {                               \
        static auto const next = Next<FILE* (*)(char const*, char const*)>(#name); \
        if (ztest::Writes(mode)) {                                                 \
            Note(#name, path);                                                     \
        }                                                                          \
        return next(path, mode);                                                   \
    }
ZTEST_FOPEN(fopen)
ZTEST_FOPEN(fopen64)

// Calls that always change the disk when they succeed.
#define ZTEST_CHANGE(name, params, args, path)               \
    int name params noexcept {                               \
        static auto const next = Next<int(*) params>(#name); \
        Note(#name, path);                                   \
        return next args;                                    \
    }
ZTEST_CHANGE(rename, (char const* from, char const* to), (from, to), from)
ZTEST_CHANGE(renameat, (int from_dir, char const* from, int to_dir, char const* to),
             (from_dir, from, to_dir, to), from)
ZTEST_CHANGE(remove, (char const* path), (path), path)
ZTEST_CHANGE(unlink, (char const* path), (path), path)
ZTEST_CHANGE(unlinkat, (int dir, char const* path, int flags), (dir, path, flags), path)
ZTEST_CHANGE(rmdir, (char const* path), (path), path)
ZTEST_CHANGE(mkdir, (char const* path, mode_t mode), (path, mode), path)
ZTEST_CHANGE(mkdirat, (int dir, char const* path, mode_t mode), (dir, path, mode), path)

}  // extern "C"
#endif
