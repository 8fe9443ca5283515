#include "cli/list_entry.h"

#include "cli/report_fields.h"

#include <charconv>
#include <cmath>
#include <optional>

#include <sys/stat.h>

namespace pinorama {
namespace {
void appendNumber(const std::optional<double>& number, std::string* out)
{
    if (number && std::isfinite(*number)) {
        char digits[32];
        out->append(digits, std::to_chars(digits, digits + sizeof digits, *number).ptr);
    }
    *out += '\0';
}

// Nothing for a file that is gone meanwhile.
void appendFile(const std::string& path, std::string* out)
{
    struct stat status;
    if (stat(path.c_str(), &status) == 0) {
        out->append(std::to_string(status.st_dev)).append(1, ':');
        out->append(std::to_string(status.st_ino));
    }
    *out += '\0';
}
}  // namespace

void appendListEntry(const FileReport& report, std::string_view path, std::string* out)
{
    if (!report.error.empty()) return;
    out->append(path).append(1, '\0');
    appendNumber(latitudeOf(report), out);
    appendNumber(longitudeOf(report), out);
    appendNumber(report.nearness ? std::optional(report.nearness->metres) : std::nullopt, out);
    appendNumber(report.nearness ? std::optional(report.nearness->bearing) : std::nullopt, out);
    appendFile(std::string(path), out);
}

}  // namespace pinorama
