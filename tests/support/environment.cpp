#include "tests/support/environment.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace {
void setVariable(const std::string& name, const char* value)
{
    if (value == nullptr) {
        unsetenv(name.c_str());
    } else {
        setenv(name.c_str(), value, 1);
    }
    tzset();
}

// An empty variable counts as none.
std::optional<std::string> valueOf(const char* name)
{
    const char* value = std::getenv(name);
    if (value == nullptr || *value == '\0') return std::nullopt;
    return value;
}
}  // namespace

test::ScopedVariable::ScopedVariable(std::string name, const char* value) : name_(std::move(name))
{
    if (const char* earlier = std::getenv(name_.c_str())) earlier_ = earlier;
    setVariable(name_, value);
}

test::ScopedVariable::~ScopedVariable()
{
    setVariable(name_, earlier_ ? earlier_->c_str() : nullptr);
}

test::TemporaryFolder::TemporaryFolder()
{
    std::string pattern =
        (std::filesystem::temp_directory_path() / "pinorama-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = pattern;
}

test::TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string test::TemporaryFolder::file(std::string_view name) const
{
    return path_ + "/" + std::string(name);
}

std::string test::TemporaryFolder::write(std::string_view name, std::string_view bytes) const
{
    const std::string path = file(name);
    std::ofstream(path, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path;
}

std::string test::readFile(const std::string& path)
{
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

std::optional<std::string> test::pictureCollection()
{
    return valueOf("PINORAMA_PICTURE_COLLECTION");
}

std::optional<std::string> test::formatCollection()
{
    return valueOf("PINORAMA_FORMAT_COLLECTION");
}
