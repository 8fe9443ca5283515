#include "reader/sandboxed_properties.h"

#include "base/user_language.h"
#include "pictures/more_properties.h"
#include "pictures/packed_part.h"
#include "pictures/picture_properties.h"
#include "reader/reader_protocol.h"
#include "reader/reader_service.h"
#include "reader/sandbox.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <unistd.h>

namespace pinorama {
namespace {
// Bytes of address space, fixed because asking how many are in use takes longer than the work. The
// program itself takes a few megabytes of it, a test some more.
constexpr std::uint64_t kMemory = std::uint64_t{512} << 20;
// Standard streams, the socket, and a request's files.
constexpr std::uint32_t kDescriptors = 4 + kMaxDescriptors;

// Whatever file the program has by now, even if a newer version has replaced it.
constexpr const char* kRunningProgram = "/proc/self/exe";
constexpr std::string_view kReaderArgument = "--property-reader";

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

ReaderProcess startPropertyReader(bool readsMore)
{
    std::vector<std::string> arguments = {std::string(kReaderArgument)};
    if (readsMore) arguments.emplace_back(kMoreKindsArgument);
    ReaderProcess reader = startReaderProgram(kRunningProgram, arguments);
    return reader ? std::move(reader) : forkPropertyReader();
}

bool isPropertyReader(int argc, const char* const* argv)
{
    return argc > 1 && argv[1] == kReaderArgument && hasReaderSocket();
}

void servePropertyReader(int argc, const char* const* argv)
{
    if (argc > 2 && std::string_view(argv[2]) == kMoreKindsArgument) loadUnpackers();
    serveSandboxedProperties(kReaderSocket);
    _exit(EXIT_SUCCESS);
}

}  // namespace pinorama
