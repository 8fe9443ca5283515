// A file that changes all the time.

#pragma once

#include <sys/types.h>

#include <string>

namespace test {

// Makes another process truncate, extend, replace, remove and restore the file, over and over,
// until the end of the scope. `bytes` is its content now and then.
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
