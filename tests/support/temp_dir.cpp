// Temporary folders and working-directory guards for the tests.
#include "support/temp_dir.h"

#include "zorvane/utils.h"

#include <fstream>
#include <random>
#include <system_error>

namespace ztest {

TempDir::TempDir() {
    std::random_device random;  // the first fresh random name that can be made is ours
    while (path_.empty()) {
        std::filesystem::path const candidate =
            std::filesystem::temp_directory_path() / ("zorvane_test_" + std::to_string(random()));
        if (std::filesystem::create_directory(candidate)) {
            path_ = candidate;
        }
    }
}

TempDir::~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
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
