#include "reader/sandboxed_properties.h"

#include "base/user_language.h"
#include "pictures/more_properties.h"
#include "pictures/picture_properties.h"
#include "reader/reader_protocol.h"
#include "reader/reader_service.h"
#include "reader/sandbox.h"

#include <cstdint>

namespace pinorama {
namespace {
// Bytes of address space, fixed because asking how many are in use takes longer than the work. The
// program itself takes a few megabytes of it, a test some more.
constexpr std::uint64_t kMemory = std::uint64_t{512} << 20;
// Standard streams, the socket, and a request's files.
constexpr std::uint32_t kDescriptors = 4 + kMaxDescriptors;

void serveSandboxedProperties(int socket)
{
    if (!enterSandbox({socket, kMemory, kDescriptors})) return;
    serveReader(socket, {readPictureProperties, {}, moreReaderFor(userLanguage())});
}
}  // namespace

ReaderProcess forkPropertyReader()
{
    return forkReader(serveSandboxedProperties);
}

}  // namespace pinorama
