// A file that never stays the same.

#pragma once

#include <sys/types.h>

#include <string>

namespace test {

// Lets another process cut the file short, let it grow, replace it, take it away and put it back,
// over and over, until the end of the scope. `bytes` is what it is now and then.
class RestlessFile {
public:
    RestlessFile(std::string path, const std::string& bytes);
    ~RestlessFile();
    RestlessFile(const RestlessFile&) = delete;
    RestlessFile& operator=(const RestlessFile&) = delete;

private:
    pid_t process_;
};

}  // namespace test
