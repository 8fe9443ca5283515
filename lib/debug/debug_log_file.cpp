#include "lib/debug/debug_log_file.h"

#include "base/block_holder.h"
#include "base/descriptor.h"
#include "base/status.h"
#include "lib/debug/machine_facts.h"
#include "lib/files/file_reference.h"
#include "lib/files/folders.h"
#include "lib/files/fork_io.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_bytes.h"
#include "lib/strings/tov_string.h"
#include "lib/text/date_time_stamp.h"

#include <charconv>
#include <cinttypes>
#include <cstdio>
#include <ctime>
#include <string_view>

using namespace pinorama;

namespace {
constexpr std::string_view kLogFileName = "KVL Log.txt";
constexpr std::int32_t kDesktopFolder = 13;
constexpr std::uint32_t kTextFile = 0x54455854;  // 'TEXT'

// The processor that the program was built for.
#if defined(__i386__) || defined(__x86_64__)
#define PINORAMA_PROCESSOR "Intel"
#elif defined(__powerpc__) || defined(__powerpc64__)
#define PINORAMA_PROCESSOR "PowerPC"
#elif defined(__arm__) || defined(__aarch64__)
#define PINORAMA_PROCESSOR "ARM"
#elif defined(__riscv)
#define PINORAMA_PROCESSOR "RISC-V"
#else
#define PINORAMA_PROCESSOR "native"
#endif

void writeText(ForkRef refNum, std::string_view text)
{
    debugWriteBytes(refNum, text.data(), static_cast<std::uint32_t>(text.size()));
}

void writeBanner(ForkRef refNum)
{
    const MachineFacts facts = machineFacts();
    writeText(refNum, "Skallion " PINORAMA_PROCESSOR " code running\n");
    char line[64];
    (void)std::snprintf(line, sizeof line, "Mac OS X  %" PRId32 ".%" PRId32 ".%" PRId32 "\n",
                        facts.systemMajor, facts.systemMinor, facts.systemFix);
    writeText(refNum, line);
    (void)std::snprintf(line, sizeof line, "RAM:   %" PRId32 "  MB\n", facts.memory);
    writeText(refNum, line);
    (void)std::snprintf(line, sizeof line, "%" PRId32 " CPUs with %" PRId32 " MHz\n",
                        facts.processors, facts.clock);
    writeText(refNum, line);
    writeText(refNum, "\n\n");
}

template <typename Number>
void writeNumber(ForkRef refNum, Number value)
{
    char text[24];
    char* const end = std::to_chars(text, text + sizeof text - 2, value).ptr;
    end[0] = end[1] = ' ';
    writeText(refNum, {text, static_cast<std::size_t>(end + 2 - text)});
}

void writeUnits(ForkRef refNum, std::u16string_view units)
{
    if (!units.empty()) debugWriteAndReleaseCFString(refNum, createString(units));
}
}  // namespace

ForkRef debugOpenLogfile()
{
    const StringHolder name(
        TovStringFromCString(kLogFileName.data(), static_cast<std::int32_t>(kLogFileName.size())));
    const StringHolder path(feGetPathOfSpecialFolder(kDesktopFolder));
    FSRef desktop;
    if (!name || !path || feMakeFSRefFromPath(path.get(), &desktop) != 0) return 0;

    ForkRef fork = 0;
    FSRef log;
    std::int32_t status = feMakeFSRefFromParent(&desktop, name.get(), &log);
    if (status == kErrNotFound) {
        status = feCreateAndOpenDataFileUnicode(&desktop, name.get(), kTextFile, 0, nullptr, &fork);
        if (status == 0) {
            writeBanner(fork);
            return fork;
        }
        // Another process may have made it meanwhile; the banner is that one's.
        if (status == kErrExists) status = feMakeFSRefFromParent(&desktop, name.get(), &log);
    }
    if (status != 0 || feOpenExistingFileRef(&log, &fork, 1, 1) != 0) return 0;
    return fork;
}

void debugCloseLogFile(ForkRef refNum)
{
    if (refNum == 0) return;
    (void)flushDescriptor(refNum);
    (void)feCloseFork(refNum);
}

void debugWriteTab(ForkRef refNum)
{
    writeText(refNum, "\t");
}

void debugWriteReturn(ForkRef refNum)
{
    writeText(refNum, "\r");
}

void debugWriteCString(ForkRef refNum, const char* text)
{
    if (text != nullptr) writeText(refNum, text);
}

void debugWriteBytes(ForkRef refNum, const void* bytes, std::uint32_t byteCount)
{
    // A log that cannot be written to is nobody's concern.
    if (byteCount > 0) (void)feAppendToFile(refNum, byteCount, bytes);
}

void debugWriteAndReleaseCFString(ForkRef refNum, TovStringRef string)
{
    if (TovStringGetLength(string) == 0) return;
    StringHolder text(string);
    std::uint32_t size = TovStringGetMacRomanSize(string);
    if (size == 0) return;
    const BlockHolder bytes(baseAllocate(size));
    if (!bytes) return;
    TovStringCopyToMacRoman(string, static_cast<char*>(bytes.get()), &size);
    debugWriteBytes(refNum, bytes.get(), size);
}

void debugWriteUInt64(ForkRef refNum, std::uint64_t value)
{
    writeNumber(refNum, value);
}

void debugWriteSInt32(ForkRef refNum, std::int32_t value)
{
    writeNumber(refNum, value);
}

void debugWriteDateTime(ForkRef refNum)
{
    const std::int64_t now = std::time(nullptr);
    writeUnits(refNum, shortDate(now));
    debugWriteTab(refNum);
    writeUnits(refNum, timeWithSeconds(now));
    debugWriteTab(refNum);
}
