// Watches the file calls of the test process: while a watch is on, every call that
// could change the disk (an open for writing or creating, fopen in a writing mode,
// rename, remove, unlink, mkdir, rmdir) is noted with its path. On Windows, whose
// programs reach these calls through their import tables, the watch sees nothing: what
// the library writes is proved by the Linux runs, on the same code.
#pragma once

#include <string>
#include <vector>

namespace ztest {

class FileWriteWatch {
public:
    FileWriteWatch();   // starts with an empty list
    ~FileWriteWatch();  // stops watching
    FileWriteWatch(FileWriteWatch const&) = delete;
    FileWriteWatch& operator=(FileWriteWatch const&) = delete;

    // "call path" for each changing call seen so far.
    std::vector<std::string> Writes() const;
};

}  // namespace ztest
