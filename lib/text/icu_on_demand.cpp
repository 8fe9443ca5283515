// ICU for a program that seldom needs it. Loading its libraries takes longer than all that
// pinorama-info does about a picture, so the functions that the rooms call are defined here and
// pass each call on to the library, which is loaded by the first one. A program that is linked with
// this has no need of ICU when it starts; the rooms do not know.

#include <unicode/uchar.h>
#include <unicode/udat.h>
#include <unicode/unorm.h>
#include <unicode/unorm2.h>
#include <unicode/unum.h>
#include <unicode/ustring.h>

#include <cerrno>
#include <cstdio>

#include <dlfcn.h>
#include <unistd.h>

// The name of an ICU function as its library has it, with the version.
#define PINORAMA_AS_TEXT(name) #name
#define PINORAMA_NAME(function) PINORAMA_AS_TEXT(function)

// Calls a function of a library.
#define PINORAMA_PASS_ON(library, function, ...)                                         \
    static const auto target =                                                           \
        reinterpret_cast<decltype(&function)>(find(library(), PINORAMA_NAME(function))); \
    return target(__VA_ARGS__)

namespace {
constexpr int kLibraryIsMissing = 127;  // the dynamic linker's status

// A program whose libraries are not all there does not start; this is the same, only later.
[[noreturn]] void giveUp()
{
    std::fprintf(stderr, "%s: error while loading shared libraries: %s\n",
                 program_invocation_short_name, dlerror());
    _exit(kLibraryIsMissing);
}

void* load(const char* name)
{
    void* library = dlopen(name, RTLD_NOW | RTLD_LOCAL);
    return library != nullptr ? library : (giveUp(), nullptr);
}

void* common()
{
    static void* const library = load("libicuuc.so." PINORAMA_NAME(U_ICU_VERSION_MAJOR_NUM));
    return library;
}

void* formats()
{
    static void* const library = load("libicui18n.so." PINORAMA_NAME(U_ICU_VERSION_MAJOR_NUM));
    return library;
}

void* find(void* library, const char* function)
{
    void* found = dlsym(library, function);
    return found != nullptr ? found : (giveUp(), nullptr);
}
}  // namespace

// Characters and texts.

int8_t u_charType(UChar32 character)
{
    PINORAMA_PASS_ON(common, u_charType, character);
}

int32_t u_strFoldCase(UChar* dest, int32_t capacity, const UChar* source, int32_t length,
                      uint32_t options, UErrorCode* status)
{
    PINORAMA_PASS_ON(common, u_strFoldCase, dest, capacity, source, length, options, status);
}

int32_t unorm_compare(const UChar* a, int32_t lengthOfA, const UChar* b, int32_t lengthOfB,
                      uint32_t options, UErrorCode* status)
{
    PINORAMA_PASS_ON(common, unorm_compare, a, lengthOfA, b, lengthOfB, options, status);
}

const UNormalizer2* unorm2_getNFCInstance(UErrorCode* status)
{
    PINORAMA_PASS_ON(common, unorm2_getNFCInstance, status);
}

const UNormalizer2* unorm2_getNFDInstance(UErrorCode* status)
{
    PINORAMA_PASS_ON(common, unorm2_getNFDInstance, status);
}

UBool unorm2_hasBoundaryBefore(const UNormalizer2* normalizer, UChar32 character)
{
    PINORAMA_PASS_ON(common, unorm2_hasBoundaryBefore, normalizer, character);
}

int32_t unorm2_normalize(const UNormalizer2* normalizer, const UChar* source, int32_t length,
                         UChar* dest, int32_t capacity, UErrorCode* status)
{
    PINORAMA_PASS_ON(common, unorm2_normalize, normalizer, source, length, dest, capacity, status);
}

// Dates and numbers.

UDateFormat* udat_open(UDateFormatStyle time, UDateFormatStyle date, const char* locale,
                       const UChar* zone, int32_t zoneLength, const UChar* pattern,
                       int32_t patternLength, UErrorCode* status)
{
    PINORAMA_PASS_ON(formats, udat_open, time, date, locale, zone, zoneLength, pattern,
                     patternLength, status);
}

void udat_close(UDateFormat* format)
{
    PINORAMA_PASS_ON(formats, udat_close, format);
}

int32_t udat_format(const UDateFormat* format, UDate date, UChar* dest, int32_t capacity,
                    UFieldPosition* position, UErrorCode* status)
{
    PINORAMA_PASS_ON(formats, udat_format, format, date, dest, capacity, position, status);
}

UDate udat_parse(const UDateFormat* format, const UChar* text, int32_t length, int32_t* position,
                 UErrorCode* status)
{
    PINORAMA_PASS_ON(formats, udat_parse, format, text, length, position, status);
}

void udat_setLenient(UDateFormat* format, UBool isLenient)
{
    PINORAMA_PASS_ON(formats, udat_setLenient, format, isLenient);
}

UNumberFormat* unum_open(UNumberFormatStyle style, const UChar* pattern, int32_t length,
                         const char* locale, UParseError* error, UErrorCode* status)
{
    PINORAMA_PASS_ON(formats, unum_open, style, pattern, length, locale, error, status);
}

void unum_close(UNumberFormat* format)
{
    PINORAMA_PASS_ON(formats, unum_close, format);
}

int32_t unum_formatDouble(const UNumberFormat* format, double number, UChar* dest, int32_t capacity,
                          UFieldPosition* position, UErrorCode* status)
{
    PINORAMA_PASS_ON(formats, unum_formatDouble, format, number, dest, capacity, position, status);
}

int32_t unum_formatInt64(const UNumberFormat* format, int64_t number, UChar* dest, int32_t capacity,
                         UFieldPosition* position, UErrorCode* status)
{
    PINORAMA_PASS_ON(formats, unum_formatInt64, format, number, dest, capacity, position, status);
}

void unum_setAttribute(UNumberFormat* format, UNumberFormatAttribute attribute, int32_t value)
{
    PINORAMA_PASS_ON(formats, unum_setAttribute, format, attribute, value);
}
