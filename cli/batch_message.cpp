#include "cli/batch_message.h"

#include "base/descriptor.h"
#include "base/message_bytes.h"

#include <array>
#include <cerrno>
#include <cmath>
#include <limits>
#include <string_view>

#include <sys/socket.h>

namespace pinorama {
namespace {
using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t kRequestHeaderSize = 8;  // the length of the paths that follow

constexpr std::size_t kPointSize = 34;
constexpr double kNoAltitude = std::numeric_limits<double>::quiet_NaN();

std::string textOf(Bytes bytes)
{
    return std::string(bytes.begin(), bytes.end());
}

void putText(const std::string& text, MessageWriter* message)
{
    message->put64(text.size());
    message->putBytes(text);
}

std::string getText(MessageReader* message)
{
    const std::uint64_t length = message->get64();
    return textOf(message->getBytes(length));
}

bool receiveAll(int socket, std::span<std::uint8_t> buffer)
{
    while (!buffer.empty()) {
        const ssize_t received = recv(socket, buffer.data(), buffer.size(), MSG_WAITALL);
        if (received < 0 && errno == EINTR) continue;
        if (received <= 0) return false;
        buffer = buffer.subspan(static_cast<std::size_t>(received));
    }
    return true;
}
}  // namespace

std::string encodePaths(std::span<const std::string> paths)
{
    std::uint64_t length = 0;
    for (const std::string& path : paths) length += path.size() + 1;
    MessageWriter header;
    header.put64(length);
    std::string message = textOf(header.bytes());
    message.reserve(message.size() + length);
    for (const std::string& path : paths) message.append(path.c_str(), path.size() + 1);
    return message;
}

std::optional<std::vector<std::string>> receivePaths(int socket)
{
    std::array<std::uint8_t, kRequestHeaderSize> header;
    if (!receiveAll(socket, header)) return std::nullopt;
    std::vector<std::uint8_t> bytes(MessageReader(header).get64());
    if (!receiveAll(socket, bytes)) return std::nullopt;
    const std::string_view texts(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    std::vector<std::string> paths;
    for (std::size_t at = 0; at < texts.size(); at += paths.back().size() + 1) {
        paths.emplace_back(texts.data() + at);
    }
    return paths;
}

bool sendResult(int socket, const BatchResult& result)
{
    MessageWriter message;
    message.put64(result.output.size());
    message.put64(result.placemarks.size());
    message.put64(result.diagnostics.size());
    message.put64(result.items);
    message.put64(result.files);
    message.put64(result.located);
    message.put64(result.failed);
    message.put64(result.track.size());
    for (const TrackPoint& point : result.track) {
        message.put64(static_cast<std::uint64_t>(point.instant));
        message.put16(point.isInUTC ? 1 : 0);
        message.putDouble(point.position.latitude);
        message.putDouble(point.position.longitude);
        message.putDouble(point.altitude.value_or(kNoAltitude));
    }
    message.put64(result.hits.size());
    for (const Hit& hit : result.hits) {
        message.putDouble(hit.metres);
        putText(hit.path, &message);
        putText(hit.text, &message);
    }
    message.put64(result.subfolders.size());
    for (const std::string& folder : result.subfolders) putText(folder, &message);
    message.put64(result.changes.size());
    for (const auto& [folder, block] : result.changes) {
        putText(folder, &message);
        putText(block, &message);
    }
    message.putBytes(result.output);
    message.putBytes(result.placemarks);
    message.putBytes(result.diagnostics);
    MessageWriter length;
    length.put64(message.bytes().size());
    return sendAll(socket, length.bytes()) && sendAll(socket, message.bytes());
}

std::optional<BatchResult> takeResult(std::string* received)
{
    MessageReader message(
        Bytes(reinterpret_cast<const std::uint8_t*>(received->data()), received->size()));
    const std::uint64_t length = message.get64();
    if (message.hasFailed() || length > message.bytesLeft()) return std::nullopt;  // not whole yet
    const std::uint64_t outputLength = message.get64();
    const std::uint64_t placemarksLength = message.get64();
    const std::uint64_t diagnosticsLength = message.get64();
    BatchResult result;
    result.items = message.get64();
    result.files = message.get64();
    result.located = message.get64();
    result.failed = message.get64();
    const std::uint64_t points = message.get64();
    if (message.hasFailed() || points > message.bytesLeft() / kPointSize) return std::nullopt;
    for (std::uint64_t i = 0; i < points; i++) {
        TrackPoint& point = result.track.emplace_back();
        point.instant = static_cast<std::int64_t>(message.get64());
        point.isInUTC = message.get16() != 0;
        point.position.latitude = message.getDouble();
        point.position.longitude = message.getDouble();
        const double altitude = message.getDouble();
        if (!std::isnan(altitude)) point.altitude = altitude;
    }
    const std::uint64_t hits = message.get64();
    for (std::uint64_t i = 0; i < hits && !message.hasFailed(); i++) {
        Hit& hit = result.hits.emplace_back();
        hit.metres = message.getDouble();
        hit.path = getText(&message);
        hit.text = getText(&message);
    }
    const std::uint64_t subfolders = message.get64();
    for (std::uint64_t i = 0; i < subfolders && !message.hasFailed(); i++) {
        result.subfolders.push_back(getText(&message));
    }
    const std::uint64_t changes = message.get64();
    for (std::uint64_t i = 0; i < changes && !message.hasFailed(); i++) {
        std::string folder = getText(&message);
        result.changes.emplace_back(std::move(folder), getText(&message));
    }
    const Bytes output = message.getBytes(outputLength);
    const Bytes placemarks = message.getBytes(placemarksLength);
    const Bytes diagnostics = message.getBytes(diagnosticsLength);
    if (message.hasFailed()) return std::nullopt;
    result.output = textOf(output);
    result.placemarks = textOf(placemarks);
    result.diagnostics = textOf(diagnostics);
    received->erase(0, received->size() - message.bytesLeft());
    return result;
}

}  // namespace pinorama
