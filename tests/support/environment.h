// The surroundings of a test: environment variables that are put back, and folders that go away
// again.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace test {

// Sets an environment variable (null: removes it) until the end of the scope. The time zone and the
// locale that the C library keeps are read anew on both occasions.
class ScopedVariable {
public:
    ScopedVariable(std::string name, const char* value);
    ~ScopedVariable();
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    std::string name_;
    std::optional<std::string> earlier_;
};

// An empty folder of its own that is removed with everything in it at the end of the scope.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return path_; }

    // The path of an item in the folder: "<folder>/<name>".
    std::string file(std::string_view name) const;

    // Writes a file in the folder and returns its path.
    std::string write(std::string_view name, std::string_view bytes) const;

private:
    std::string path_;
};

// The whole content of a file; empty when it cannot be read.
std::string readFile(const std::string& path);

// The folder of the picture collection (environment variable PINORAMA_PICTURE_COLLECTION), or
// nothing when it is unset; tests then say so and count as skipped.
std::optional<std::string> pictureCollection();

}  // namespace test
