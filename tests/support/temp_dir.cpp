// Temporary folders and working-directory guards for the tests.
#include "support/temp_dir.h"

#include <cstdlib>
#include <fstream>
#include <system_error>

namespace ztest {

TempDir::TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zorvane_test_XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        std::abort();
    }
    path_ = pattern;
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
    std::filesystem::path const file = path_ / name;
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
