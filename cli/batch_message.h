// Requests and replies between the program and its workers: batches of paths, and their results. A
// worker is a forked copy of the program, so both sides trust each other. Numbers are little
// endian, of 8 bytes.

#pragma once

#include "cli/batch_work.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pinorama {

// Makes a request with the paths of a batch.
std::string encodePaths(std::span<const std::string> paths);

// Waits for a request and reads it from the socket. Nothing if the other side has closed it.
std::optional<std::vector<std::string>> receivePaths(int socket);

// Sends a reply and waits until the socket has taken it. False if the other side has closed it.
bool sendResult(int socket, const BatchResult& result);

// Removes the first reply from what has been received so far; nothing if it is incomplete.
std::optional<BatchResult> takeResult(std::string* received);

}  // namespace pinorama
