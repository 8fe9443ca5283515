// Batches and their results as bytes between the program and its lanes, which are copies of the
// program itself: numbers are as they lie in memory, and each side believes the other.

#pragma once

#include "cli/batch_work.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pinorama {

// A request: the paths of a batch.
std::string encodePaths(std::span<const std::string> paths);

// Waits for a request and takes it from the socket. Nothing when the other side is gone.
std::optional<std::vector<std::string>> receivePaths(int socket);

// Sends a result, waiting while the other side does not read. False when it is gone.
bool sendResult(int socket, const BatchResult& result);

// Takes the first result out of what has been received so far; nothing when it is not whole yet.
std::optional<BatchResult> takeResult(std::string* received);

}  // namespace pinorama
