// Damaged pictures: well-formed ones of every container, changed by a seeded generator. The same
// seed gives the same bytes on every machine.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace test {

struct NamedPicture {
    std::string name;  // with an extension that is accepted
    std::string bytes;
};

// Well-formed pictures to start from: JPEG of several kinds with metadata and thumbnail, TIFF-based
// raw, RAF, MRW, CRW.
std::vector<NamedPicture> soundPictures();

// The picture after one to twelve changes: flipped bits, bytes overwritten with extreme values,
// blocks moved, duplicated or removed, the end cut off.
std::string damaged(std::string bytes, std::uint32_t seed);

}  // namespace test
