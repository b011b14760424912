// The file calls of the process, noted when they could change the disk and then
// passed on. On Linux they are defined here, so that they win over the C library's
// for every caller, and reach it through dlsym(RTLD_NEXT, ...). On Windows the
// executable's import table, which holds the file calls of everything linked into it
// (the library and the C++ runtime), is pointed at wrappers of the same calls.
#include "file_watch.h"

#include <fcntl.h>
#include <stdarg.h>
#include <stdio.h>
#include <sys/stat.h>

#ifdef _WIN32
#include <direct.h>
#include <io.h>
#include <windows.h>
#else
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

#ifdef _WIN32
void PatchImports();
#else
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
#ifdef _WIN32
    static std::once_flag patched;
    std::call_once(patched, PatchImports);
#endif
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
#else
namespace ztest {
namespace {

std::string Utf8(wchar_t const* path) {
    if (path == nullptr) {
        return "(null)";
    }
    int const size = WideCharToMultiByte(CP_UTF8, 0, path, -1, nullptr, 0, nullptr, nullptr);
    std::string text(size > 0 ? size - 1 : 0, '\0');
    WideCharToMultiByte(CP_UTF8, 0, path, -1, text.data(), size, nullptr, nullptr);
    return text;
}
void Note(char const* call, wchar_t const* path) {
    Note(call, Utf8(path).c_str());
}

bool Writes(wchar_t const* mode) {
    return mode != nullptr && std::wcspbrk(mode, L"wa+") != nullptr;
}
bool Writes(DWORD access, DWORD disposition) {
    DWORD const writing = GENERIC_WRITE | GENERIC_ALL | FILE_WRITE_DATA | FILE_APPEND_DATA | DELETE;
    return (access & writing) != 0 || disposition != OPEN_EXISTING;
}

// The import slots to point elsewhere: each call's name, its wrapper and where the
// wrapper finds the function that the slot held before.
struct Patch {
    char const* name;
    void* wrapper;
    void** next;
};
std::vector<Patch>& Patches() {
    static std::vector<Patch> patches;
    return patches;
}

// One wrapper per call that can change the disk and that the executable imports (or
// might: the C runtime's remove and rename), listed among the patches as it is defined.
#define ZTEST_WATCH(ret, name, params, args, noted)                          \
    decltype(&name) next_##name = nullptr;                                   \
    ret WINAPI Watch_##name params {                                         \
        if (noted) {                                                         \
            Note(#name, path);                                               \
        }                                                                    \
        return next_##name args;                                             \
    }                                                                        \
    bool const listed_##name =                                               \
        (Patches().push_back({#name, reinterpret_cast<void*>(&Watch_##name), \
                              reinterpret_cast<void**>(&next_##name)}),      \
         true);
ZTEST_WATCH(HANDLE, CreateFileW,
            (LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
             DWORD disposition, DWORD flags, HANDLE model),
            (path, access, share, security, disposition, flags, model), Writes(access, disposition))
ZTEST_WATCH(FILE*, _wfopen, (wchar_t const* path, wchar_t const* mode), (path, mode), Writes(mode))
ZTEST_WATCH(FILE*, fopen, (char const* path, char const* mode), (path, mode), Writes(mode))
ZTEST_WATCH(int, _wopen, (wchar_t const* path, int flags, int mode), (path, flags, mode),
            Writes(flags))
ZTEST_WATCH(BOOL, RemoveDirectoryW, (LPCWSTR path), (path), true)
ZTEST_WATCH(BOOL, DeleteFileW, (LPCWSTR path), (path), true)
ZTEST_WATCH(BOOL, MoveFileExW, (LPCWSTR path, LPCWSTR to, DWORD f), (path, to, f), true)
ZTEST_WATCH(int, _wmkdir, (wchar_t const* path), (path), true)
ZTEST_WATCH(int, _mkdir, (char const* path), (path), true)
ZTEST_WATCH(int, _wremove, (wchar_t const* path), (path), true)
ZTEST_WATCH(int, remove, (char const* path), (path), true)
ZTEST_WATCH(int, _wrename, (wchar_t const* path, wchar_t const* to), (path, to), true)
ZTEST_WATCH(int, rename, (char const* path, char const* to), (path, to), true)

// Points every import of a watched call in the executable at its wrapper.
void PatchImports() {
    auto* const base = reinterpret_cast<BYTE*>(GetModuleHandleW(nullptr));
    auto const* nt = reinterpret_cast<IMAGE_NT_HEADERS const*>(
        base + reinterpret_cast<IMAGE_DOS_HEADER const*>(base)->e_lfanew);
    IMAGE_DATA_DIRECTORY const& imports =
        nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto const* dll =
             reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR const*>(base + imports.VirtualAddress);
         imports.VirtualAddress != 0 && dll->Name != 0; ++dll) {
        auto const* names =
            reinterpret_cast<IMAGE_THUNK_DATA const*>(base + dll->OriginalFirstThunk);
        auto* slot = reinterpret_cast<IMAGE_THUNK_DATA*>(base + dll->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++slot) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) {
                continue;
            }
            char const* name =
                reinterpret_cast<IMAGE_IMPORT_BY_NAME const*>(base + names->u1.AddressOfData)->Name;
            for (Patch const& patch : Patches()) {
                DWORD protection = 0;
                if (std::strcmp(name, patch.name) == 0 &&
                    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection)) {
                    *patch.next = reinterpret_cast<void*>(slot->u1.Function);
                    slot->u1.Function = reinterpret_cast<ULONG_PTR>(patch.wrapper);
                    VirtualProtect(slot, sizeof *slot, protection, &protection);
                }
            }
        }
    }
}

}  // namespace
}  // namespace ztest
#endif
