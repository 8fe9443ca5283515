// The environment of a test: variables that are restored, and folders that are removed.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace test {

// Sets an environment variable (null: removes it) until the end of the scope. The time zone and the
// locale of the C library are read again at both times.
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

// A new empty folder, which is removed with everything in it at the end of the scope.
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
// nothing if it is unset; tests are then skipped.
std::optional<std::string> pictureCollection();

// The same for the collection of further formats (PINORAMA_FORMAT_COLLECTION).
std::optional<std::string> formatCollection();

}  // namespace test
