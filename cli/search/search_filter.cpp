#include "cli/search/search_filter.h"

#include "base/descriptor.h"
#include "cli/diagnostic.h"
#include "cli/file_reporter.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr std::size_t kReadSize = 65536;

std::optional<double> numberOf(std::string_view text)
{
    double number = 0.0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = problem == std::errc() && end == text.data() + text.size();
    return isWhole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::vector<std::string_view> partsOf(std::string_view text)
{
    std::vector<std::string_view> parts;
    for (std::size_t comma = text.find(','); comma != text.npos; comma = text.find(',')) {
        parts.push_back(text.substr(0, comma));
        text.remove_prefix(comma + 1);
    }
    parts.push_back(text);
    return parts;
}

bool isThere(const std::string& path)
{
    return access(path.c_str(), F_OK) == 0;
}

std::optional<Position> positionOfPicture(const std::string& path, std::string* outError)
{
    FileReporter reporter({.output = Output::nothing});
    const FileReport report = reporter.report(std::span(&path, 1)).front();
    if (report.position) return report.position;
    *outError = shownPath(path) + ": " + (report.error.empty() ? "no position" : report.error);
    return std::nullopt;
}

// The whole content of a file that is no longer than an area may be. A pipe is one as well.
std::optional<std::string> contentOf(const std::string& path, std::string* outError)
{
    const DescriptorHolder file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    std::string content;
    ssize_t count = file ? 1 : -1;
    while (count > 0 && content.size() <= kMaxAreaBytes) {
        const std::size_t before = content.size();
        content.resize(before + kReadSize);
        count = read(file.get(), content.data() + before, kReadSize);
        content.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    if (count == 0) return content;
    *outError = shownPath(path) + ": " + (count < 0 ? std::strerror(errno) : "is too large");
    return std::nullopt;
}

bool readArea(const std::string& path, PlaceArea* outArea, std::string* outError)
{
    const auto text = contentOf(path, outError);
    if (!text) return false;
    std::string reason;
    auto area = PlaceArea::read(*text, &reason);
    if (!area) {
        *outError = shownPath(path) + ": " + reason;
        return false;
    }
    *outArea = *std::move(area);
    return true;
}
}  // namespace

std::optional<PlaceCircle> readNearPlace(const std::string& value, std::string* outError)
{
    const std::vector<std::string_view> parts = partsOf(value);
    const auto latitude = numberOf(parts[0]);
    const auto longitude = parts.size() > 1 ? numberOf(parts[1]) : std::nullopt;
    std::optional<Position> centre;
    std::optional<double> radius = kDefaultRadius;
    if (latitude && longitude && parts.size() <= 3) {
        centre = Position{*latitude, *longitude};
        if (parts.size() == 3) radius = numberOf(parts[2]);
        if (std::abs(*latitude) > 90.0 || std::abs(*longitude) > 180.0) {
            *outError = "--near: there is no place " + value + " on the Earth";
            return std::nullopt;
        }
    } else {
        std::string path = value;
        if (!isThere(path) && parts.size() > 1 && numberOf(parts.back())) {
            radius = numberOf(parts.back());
            path.resize(path.size() - parts.back().size() - 1);
        }
        centre = positionOfPicture(path, outError);
        if (!centre) return std::nullopt;
    }
    if (!radius || *radius < 0.0 || *radius > kMaxRadius) {
        *outError = "--near needs a distance of 0 to 20100000 metres, not '" +
                    std::string(parts.back()) + '\'';
        return std::nullopt;
    }
    return PlaceCircle(*centre, *radius);
}

std::optional<SearchFilter> SearchFilter::make(const Options& options, std::string* outError)
{
    SearchFilter filter;
    filter.withoutPosition_ = options.withoutPosition;
    if (!options.nearPlace.empty()) {
        filter.circle_ = readNearPlace(options.nearPlace, outError);
        if (!filter.circle_) return std::nullopt;
    }
    if (!options.areaPath.empty() &&
        !readArea(options.areaPath, &filter.area_.emplace(), outError)) {
        return std::nullopt;
    }
    return filter;
}

bool SearchFilter::matches(const std::optional<Position>& position) const
{
    if (withoutPosition_) return !position;
    if (!position || (area_ && !area_->contains(*position))) return false;
    return !circle_ || circle_->measure(*position).has_value();
}

bool SearchFilter::operator()(FileReport* report) const
{
    if (withoutPosition_ && (!report->isAccepted || !report->error.empty())) return false;
    if (!matches(report->position)) return false;
    if (circle_) report->nearness = circle_->measure(*report->position);
    return true;
}

}  // namespace pinorama
