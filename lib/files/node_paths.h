// From node numbers back to paths. The system has no such call for ordinary users, so the nodes
// that this process has met are remembered, and the well-known places are searched for the others.

#pragma once

#include <cstdint>
#include <string>

namespace pinorama {

// A file or folder as the system counts them: st_dev and st_ino.
struct Node {
    std::uint64_t volume;
    std::uint64_t number;

    friend bool operator==(const Node&, const Node&) = default;
};

// The node of what is at `path` itself, remembered for later. False with errno set when there is
// nothing. The last few hundred nodes are remembered.
bool nodeAt(const std::string& path, Node* node);

// A path of a node: one that nodeAt has seen, when the node is still there, else one found among
// the roots of its volume and near the working folder, the home folder and the folder of temporary
// files (the folders above them and a bounded number of items below). Empty with errno set to
// ENOENT when the node is in none of these places.
std::string pathOfNode(const Node& node);

}  // namespace pinorama
