// Pictures that somebody has damaged: well-formed ones of every container, changed by a seeded
// generator. The same numbers give the same bytes on every machine.

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

// The picture with bits turned, bytes overwritten with extreme values, blocks moved, doubled and
// cut out, or its end cut off, one to a dozen times.
std::string damaged(std::string bytes, std::uint32_t seed);

}  // namespace test
