// A temporary folder for one test, removed with everything in it afterwards, and a
// guard that moves the working directory for the length of a scope.
#pragma once

#include <filesystem>
#include <string>

namespace ztest {

class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(TempDir const&) = delete;
    TempDir& operator=(TempDir const&) = delete;

    std::filesystem::path const& path() const { return path_; }
    // Writes `content` to the relative UTF-8 path `name`, creating its folders.
    std::filesystem::path Write(std::string const& name, std::string const& content) const;

private:
    std::filesystem::path path_;
};

class ScopedWorkingDirectory {
public:
    explicit ScopedWorkingDirectory(std::filesystem::path const& directory);
    ~ScopedWorkingDirectory();
    ScopedWorkingDirectory(ScopedWorkingDirectory const&) = delete;
    ScopedWorkingDirectory& operator=(ScopedWorkingDirectory const&) = delete;

private:
    std::filesystem::path previous_;
};

}  // namespace ztest
