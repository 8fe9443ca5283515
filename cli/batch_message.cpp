#include "cli/batch_message.h"

#include <cerrno>
#include <cstring>
#include <string_view>

#include <sys/socket.h>

namespace pinorama {
namespace {
struct RequestHeader {
    std::uint64_t length;  // bytes of the paths, each with its zero byte
};

struct ResultHeader {
    std::uint64_t outputLength;
    std::uint64_t placemarksLength;
    std::uint64_t diagnosticsLength;
    std::uint64_t files;
    std::uint64_t located;
    std::uint64_t failed;
};

template <typename Header>
std::string_view bytesOf(const Header& header)
{
    return {reinterpret_cast<const char*>(&header), sizeof header};
}

bool receiveAll(int socket, char* bytes, std::size_t count)
{
    while (count > 0) {
        const ssize_t received = recv(socket, bytes, count, MSG_WAITALL);
        if (received < 0 && errno == EINTR) continue;
        if (received <= 0) return false;
        bytes += received;
        count -= static_cast<std::size_t>(received);
    }
    return true;
}
}  // namespace

std::string encodePaths(std::span<const std::string> paths)
{
    RequestHeader header{};
    for (const std::string& path : paths) header.length += path.size() + 1;
    std::string message(bytesOf(header));
    message.reserve(sizeof header + header.length);
    for (const std::string& path : paths) message.append(path.c_str(), path.size() + 1);
    return message;
}

std::optional<std::vector<std::string>> receivePaths(int socket)
{
    RequestHeader header{};
    if (!receiveAll(socket, reinterpret_cast<char*>(&header), sizeof header)) return std::nullopt;
    std::string bytes(header.length, '\0');
    if (!receiveAll(socket, bytes.data(), bytes.size())) return std::nullopt;
    std::vector<std::string> paths;
    for (std::size_t at = 0; at < bytes.size(); at += paths.back().size() + 1) {
        paths.emplace_back(bytes.c_str() + at);
    }
    return paths;
}

bool sendResult(int socket, const BatchResult& result)
{
    const ResultHeader header = {
        result.output.size(), result.placemarks.size(), result.diagnostics.size(),
        result.files,         result.located,           result.failed};
    std::string message(bytesOf(header));
    message.append(result.output).append(result.placemarks).append(result.diagnostics);
    std::string_view rest = message;
    while (!rest.empty()) {
        const ssize_t sent = send(socket, rest.data(), rest.size(), MSG_NOSIGNAL);
        if (sent < 0 && errno == EINTR) continue;
        if (sent < 0) return false;
        rest.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

std::optional<BatchResult> takeResult(std::string* received)
{
    ResultHeader header{};
    if (received->size() < sizeof header) return std::nullopt;
    std::memcpy(&header, received->data(), sizeof header);
    const std::size_t length =
        sizeof header + header.outputLength + header.placemarksLength + header.diagnosticsLength;
    if (received->size() < length) return std::nullopt;

    const std::string_view texts = std::string_view(*received).substr(sizeof header);
    BatchResult result;
    result.output = texts.substr(0, header.outputLength);
    result.placemarks = texts.substr(header.outputLength, header.placemarksLength);
    result.diagnostics =
        texts.substr(header.outputLength + header.placemarksLength, header.diagnosticsLength);
    result.files = header.files;
    result.located = header.located;
    result.failed = header.failed;
    received->erase(0, length);
    return result;
}

}  // namespace pinorama
