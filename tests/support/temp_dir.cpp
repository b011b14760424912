// Temporary folders and working-directory guards for the tests.
#include "support/temp_dir.h"

#include "zorvane/utils.h"

#include <cstdlib>
#include <fstream>
#include <random>
#include <system_error>

namespace ztest {

TempDir::TempDir() {
#ifdef _WIN32
    // No mkdtemp: the first fresh random name that can be made is ours.
    std::random_device random;
    for (int attempt = 0; attempt < 100 && path_.empty(); ++attempt) {
        std::filesystem::path const candidate =
            std::filesystem::temp_directory_path() / ("zorvane_test_" + std::to_string(random()));
        if (std::filesystem::create_directory(candidate)) {
            path_ = candidate;
        }
    }
    if (path_.empty()) {
        std::abort();
    }
#else
    std::string pattern = (std::filesystem::temp_directory_path() / "zorvane_test_XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        std::abort();
    }
    path_ = pattern;
#endif
}

TempDir::~TempDir() {
    std::error_code ec;
    // Give back any permission a test took away, so that everything can go.
    for (auto it = std::filesystem::recursive_directory_iterator(
             path_, std::filesystem::directory_options::skip_permission_denied, ec);
         !ec && it != std::filesystem::recursive_directory_iterator(); it.increment(ec)) {
        std::filesystem::permissions(it->path(), std::filesystem::perms::owner_all,
                                     std::filesystem::perm_options::add, ec);
    }
    std::filesystem::remove_all(path_, ec);
}

std::filesystem::path TempDir::Write(std::string const& name, std::string const& content) const {
    std::filesystem::path const file = path_ / zorvane::utils::path_from_utf8(name);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
    return file;
}

ScopedWorkingDirectory::ScopedWorkingDirectory(std::filesystem::path const& directory)
    : previous_(std::filesystem::current_path()) {
    std::filesystem::current_path(directory);
}

ScopedWorkingDirectory::~ScopedWorkingDirectory() {
    std::error_code ec;
    std::filesystem::current_path(previous_, ec);
}

}  // namespace ztest
