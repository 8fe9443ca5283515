#include "cli/batch_message.h"

#include <cerrno>
#include <cstring>
#include <string_view>

#include <sys/socket.h>

namespace pinorama {
namespace {
struct RequestHead {
    std::uint64_t length;  // bytes of the paths, each with a zero byte at its end
};

struct ResultHead {
    std::uint64_t outputLength;
    std::uint64_t placemarksLength;
    std::uint64_t complaintsLength;
    std::uint64_t files;
    std::uint64_t located;
    std::uint64_t failed;
};

template <typename Head>
std::string_view bytesOf(const Head& head)
{
    return {reinterpret_cast<const char*>(&head), sizeof head};
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
    RequestHead head{};
    for (const std::string& path : paths) head.length += path.size() + 1;
    std::string message(bytesOf(head));
    message.reserve(sizeof head + head.length);
    for (const std::string& path : paths) message.append(path.c_str(), path.size() + 1);
    return message;
}

std::optional<std::vector<std::string>> receivePaths(int socket)
{
    RequestHead head{};
    if (!receiveAll(socket, reinterpret_cast<char*>(&head), sizeof head)) return std::nullopt;
    std::string bytes(head.length, '\0');
    if (!receiveAll(socket, bytes.data(), bytes.size())) return std::nullopt;
    std::vector<std::string> paths;
    for (std::size_t at = 0; at < bytes.size(); at += paths.back().size() + 1) {
        paths.emplace_back(bytes.c_str() + at);
    }
    return paths;
}

bool sendResult(int socket, const BatchResult& result)
{
    const ResultHead head = {result.output.size(),     result.placemarks.size(),
                             result.complaints.size(), result.files,
                             result.located,           result.failed};
    std::string message(bytesOf(head));
    message.append(result.output).append(result.placemarks).append(result.complaints);
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
    ResultHead head{};
    if (received->size() < sizeof head) return std::nullopt;
    std::memcpy(&head, received->data(), sizeof head);
    const std::size_t length =
        sizeof head + head.outputLength + head.placemarksLength + head.complaintsLength;
    if (received->size() < length) return std::nullopt;

    const std::string_view texts = std::string_view(*received).substr(sizeof head);
    BatchResult result;
    result.output = texts.substr(0, head.outputLength);
    result.placemarks = texts.substr(head.outputLength, head.placemarksLength);
    result.complaints =
        texts.substr(head.outputLength + head.placemarksLength, head.complaintsLength);
    result.files = head.files;
    result.located = head.located;
    result.failed = head.failed;
    received->erase(0, length);
    return result;
}

}  // namespace pinorama
