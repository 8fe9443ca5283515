#include "lib/debug/debug_log.h"

#include "lib/debug/debug_log_file.h"
#include "lib/files/catalogue_facts.h"
#include "lib/files/file_reference.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"
#include "lib/text/point_locale.h"

#include <charconv>
#include <cinttypes>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <string_view>

using namespace pinorama;

namespace {
constexpr std::size_t kMaxPathLength = 1024;     // bytes
constexpr std::size_t kFormatBufferSize = 2048;  // 2047 bytes and a terminator

// The log while one entry is written.
class LogEntry {
public:
    LogEntry() : fork_(debugOpenLogfile()) {}
    ~LogEntry() { debugCloseLogFile(fork_); }
    LogEntry(const LogEntry&) = delete;
    LogEntry& operator=(const LogEntry&) = delete;

    explicit operator bool() const { return fork_ != 0; }
    ForkRef fork() const { return fork_; }

private:
    ForkRef fork_;
};

std::string_view bytesOf(const std::uint8_t* pString)
{
    if (pString == nullptr) return {};
    return {reinterpret_cast<const char*>(pString + 1), pString[0]};
}

void addDigits(std::uint32_t value, int base)
{
    const LogEntry entry;
    if (!entry) return;
    char text[16];
    char* const end = std::to_chars(text, text + sizeof text - 1, value, base).ptr;
    *end = '\n';
    debugWriteBytes(entry.fork(), text, static_cast<std::uint32_t>(end + 1 - text));
}

void addProtocol(std::string_view detail, const char* label, std::int32_t number)
{
    const LogEntry entry;
    if (!entry) return;
    debugWriteDateTime(entry.fork());
    debugWriteCString(entry.fork(), label);
    debugWriteTab(entry.fork());
    debugWriteSInt32(entry.fork(), number);
    debugWriteTab(entry.fork());
    debugWriteBytes(entry.fork(), detail.data(), static_cast<std::uint32_t>(detail.size()));
    debugWriteReturn(entry.fork());
}
}  // namespace

std::int16_t debugAddToLog(const std::uint8_t* pString)
{
    const LogEntry entry;
    if (!entry) return 0;
    const std::string_view bytes = bytesOf(pString);
    debugWriteBytes(entry.fork(), bytes.data(), static_cast<std::uint32_t>(bytes.size()));
    return 0;
}

std::int16_t debugAddLong(std::int32_t value)
{
    const LogEntry entry;
    if (entry) debugWriteSInt32(entry.fork(), value);
    return 0;
}

std::int16_t debugAddLongLong(std::uint64_t value)
{
    const LogEntry entry;
    if (entry) debugWriteUInt64(entry.fork(), value);
    return 0;
}

std::int16_t debugAddLongHex(std::uint32_t value)
{
    addDigits(value, 16);
    return 0;
}

std::int16_t debugAddUInt16Hex(std::uint16_t value)
{
    addDigits(value, 16);
    return 0;
}

std::int16_t debugAddUInt16Octal(std::uint16_t value)
{
    addDigits(value, 8);
    return 0;
}

std::int16_t debugFormat(const char* format, ...)
{
    char text[kFormatBufferSize] = "";
    {
        const PointLocale point;
        std::va_list arguments;
        va_start(arguments, format);
        // A conversion that fails leaves an empty entry. The template is the caller's.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
        if (std::vsnprintf(text, sizeof text, format, arguments) < 0) text[0] = '\0';
#pragma GCC diagnostic pop
        va_end(arguments);
    }

    const LogEntry entry;
    if (!entry) return 0;
    debugWriteCString(entry.fork(), text);
    debugWriteReturn(entry.fork());
    return 0;
}

std::int16_t debugLogCFString(TovStringRef string)
{
    const LogEntry entry;
    if (!entry) return 0;
    debugWriteDateTime(entry.fork());
    debugWriteAndReleaseCFString(entry.fork(), string);
    debugWriteReturn(entry.fork());
    return 0;
}

std::int16_t debugAssertFailed(std::int16_t code, const char* text, std::int32_t number)
{
    const LogEntry entry;
    if (!entry) return 0;
    debugWriteDateTime(entry.fork());
    debugWriteCString(entry.fork(), text);
    char numbers[32];
    (void)std::snprintf(numbers, sizeof numbers, "\t%" PRId32 "\t%d\n", number, int{code});
    debugWriteCString(entry.fork(), numbers);
    return 0;
}

std::int16_t debugLogFilePath(const FSRef* ref, const char* text, std::int32_t number)
{
    const LogEntry entry;
    if (!entry) return 0;
    debugWriteDateTime(entry.fork());
    if (text != nullptr) {
        debugWriteCString(entry.fork(), text);
        debugWriteTab(entry.fork());
    }
    if (number != 0) {
        debugWriteSInt32(entry.fork(), number);
        debugWriteTab(entry.fork());
    }
    const StringHolder path(ref == nullptr ? nullptr : feGetPathFromFSRef(ref, 0));
    const std::string bytes = pathBytes(path.get());
    if (bytes.size() <= kMaxPathLength)
        debugWriteBytes(entry.fork(), bytes.data(), static_cast<std::uint32_t>(bytes.size()));
    debugWriteReturn(entry.fork());
    return 0;
}

std::int16_t debugLogFileInformation(const FSRef* ref, const char* text, std::int32_t number)
{
    (void)debugLogFilePath(ref, text, number);

    CatalogueFacts facts{};
    if (ref != nullptr) facts = catalogueFactsOf(ref->path);
    (void)debugAddUInt16Hex(facts.nodeFlags);
    (void)debugAddUInt16Hex(facts.userPrivileges);
    (void)debugAddLongHex(facts.ownerID);
    (void)debugAddLongHex(facts.groupID);
    (void)debugAddUInt16Hex(facts.userAccess);
    (void)debugAddUInt16Octal(facts.mode);
    return 0;
}

std::int16_t debugProtocoll(const char* detail, const char* label, std::int32_t number)
{
    addProtocol(detail == nullptr ? "" : detail, label, number);
    return 0;
}

std::int16_t debugProtocolLongString(const char* bytes, std::uint32_t byteCount, const char* label,
                                     std::int32_t number)
{
    addProtocol(bytes == nullptr ? std::string_view() : std::string_view(bytes, byteCount), label,
                number);
    return 0;
}

std::int16_t debugProtocollPString(const std::uint8_t* pString, const char* label,
                                   std::int32_t number)
{
    addProtocol(bytesOf(pString), label, number);
    return 0;
}
