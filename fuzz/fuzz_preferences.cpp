// Preference files of arbitrary bytes: every value can be requested, a stored value can be read
// back, and the other values stay, either in the file or, if that was damaged, in a copy of it.

#include "base/utf8.h"
#include "lib/prefs/preference_file.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <stdlib.h>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;
using nlohmann::json;

constexpr char16_t kOurKey[] = u"ours";
constexpr int kMaxDepth = 64;  // objects and lists within each other
constexpr std::size_t kMaxKeys = 16;

void expect(bool isTrue)
{
    if (!isTrue) __builtin_trap();
}

// A folder in memory, where files need no disk. It is removed when the program ends.
class FolderInMemory {
public:
    FolderInMemory()
    {
        char name[] = "/dev/shm/fuzz_preferences.XXXXXX";
        expect(mkdtemp(name) != nullptr);
        path_ = name;
    }
    ~FolderInMemory()
    {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    FolderInMemory(const FolderInMemory&) = delete;
    FolderInMemory& operator=(const FolderInMemory&) = delete;
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

void writeFile(const std::string& path, const std::string& bytes)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    expect(file.good());
}

std::string readFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    expect(file.good());
    return std::string(std::istreambuf_iterator<char>(file), {});
}

int depthOf(const json& value)
{
    int deepest = 0;
    for (const json& item : value) {
        if (item.is_structured()) deepest = std::max(deepest, depthOf(item));
    }
    return deepest + 1;
}

std::u16string unitsOf(const std::string& text)
{
    std::u16string units(static_cast<std::size_t>(countUnitsOfUTF8(text)), u'\0');
    units.resize(decodeUTF8(text, units));
    return units;
}

void loadAll(const PreferenceFile& file, const json& values)
{
    std::size_t count = 0;
    for (const auto& [key, value] : values.items()) {
        if (++count > kMaxKeys) return;
        const auto loaded = file.load(unitsOf(key));
        expect(loaded.has_value());
        if (value.is_string()) {
            expect(loaded == PreferenceValue(unitsOf(value.get<std::string>())));
        } else if (!value.is_number()) {
            expect(loaded == PreferenceValue(ForeignPreference()));
        }
    }
}

// Stores `value` and compares the file with `expected`, which contains everything but our key.
void storeAndCompare(const PreferenceFile& file, const std::string& path,
                     const std::optional<PreferenceValue>& value, json expected)
{
    expect(file.store(kOurKey, value));
    expect(file.load(kOurKey) == value);
    json stored = json::parse(readFile(path));
    expect(stored.contains("ours") == value.has_value());
    stored.erase("ours");
    expect(stored == expected);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const FolderInMemory folder;
    static const std::string path = folder.path() + "/preferences.json";
    static const std::string aside = path + ".damaged";
    const std::string bytes(data, data + size);
    writeFile(path, bytes);
    fs::remove(aside);

    json values = json::parse(bytes, nullptr, false);
    const bool isGood = values.is_object() && depthOf(values) <= kMaxDepth;
    if (!isGood) values = json::object();
    const PreferenceFile file(folder.path());
    loadAll(file, values);
    expect(readFile(path) == bytes);
    values.erase("ours");

    std::u16string text(size / 2, u'\0');
    std::memcpy(text.data(), data, text.size() * 2);
    text = unitsOf(displayUTF8(text));  // lone surrogates are replaced
    storeAndCompare(file, path, text, values);
    expect(fs::exists(aside) == !isGood);
    if (!isGood) expect(readFile(aside) == bytes);
    storeAndCompare(file, path, static_cast<std::int32_t>(size), values);
    storeAndCompare(file, path, std::nullopt, values);
    return 0;
}
