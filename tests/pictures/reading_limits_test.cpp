// What reading a large file costs, in numbers that do not depend on the machine: system calls,
// bytes and memory. The kernel counts the first two.

#include "bench/reading/system_calls.h"
#include "pictures/more_properties.h"
#include "pictures/picture_file.h"
#include "tests/support/container_builder.h"
#include "tests/support/environment.h"
#include "tests/support/other_process.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>

#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace pinorama;
using namespace std::string_literals;

namespace {
constexpr std::uint64_t kMegabyte = 1 << 20;
constexpr std::uint64_t kFourGigabytes = std::uint64_t{4} << 30;
constexpr std::uint64_t kThreeGigabytes = std::uint64_t{3} << 30;

const test::PictureFields kFields{.lat = 48.5, .latRef = "N", .lon = 2.25, .lonRef = "E"};
const std::string kTiff = test::tiffWithGps(kFields);
const std::string kExif = test::heifExif(kTiff);
const std::string kXmp =
    test::xmpPacket("exif:GPSLatitude='48,30N' exif:GPSLongitude='2,15E' photoshop:City='Rome'");

// A file whose place stands after a hole that takes no room on the disk.
struct LargeFile {
    const char* name;
    std::string start;
    std::uint64_t hole;
    std::string end;
    int maxCalls;  // to look at the file, open it, read and close it
};

std::string write(const test::TemporaryFolder& folder, const LargeFile& file)
{
    const std::string path = folder.write("large", file.start);
    std::filesystem::resize_file(path, file.start.size() + file.hole);
    std::ofstream(path, std::ios::binary | std::ios::app) << file.end;
    return path;
}

// A file of ISO boxes, the first of them at `at`, with 4 GB of pixels or film in front of that.
LargeFile withFilm(const char* name, const std::string& boxes, std::size_t at, int maxCalls)
{
    const std::string film = test::big32(1) + "mdat" + test::big64(16 + kFourGigabytes);
    return {name, boxes.substr(0, at) + film, kFourGigabytes, boxes.substr(at), maxCalls};
}

// A TIFF file whose first directory is at `offset`; what is in it counts from the start of the
// file.
std::string tiffPointingTo(std::uint32_t offset)
{
    return "II*\0"s + test::bytes32(test::ByteOrder::little, offset);
}

std::string directoryAt(std::uint32_t offset)
{
    const auto order = test::ByteOrder::little;
    const std::uint32_t gps = offset + 2 + 12 + 4;
    return test::tiffDirectory(order, offset, {test::longField(order, 0x8825, gps)}) +
           test::tiffDirectory(order, gps, test::gpsFields(kFields));
}

// Every container that says by offsets or lengths where its metadata is, with it at the end. Each
// stretch of the file that has to be looked at is one read: its start, and then mostly its end.
std::vector<LargeFile> largeFiles()
{
    const std::string heic = test::heifFile(
        {.items = {{"Exif", kExif}, {"mime", kXmp, "application/rdf+xml"}}, .isDataInMeta = true});
    const std::string riff = "RIFF\xff\xff\xff\xffWEBP";
    const std::string vp8 = "VP8 " + test::bytes32(test::ByteOrder::little, kThreeGigabytes);
    const std::string pngStart = test::pngFile({}).substr(0, 33);
    const std::string idat = test::big32(0x7ffffff0) + "IDAT";
    const std::string jpeg = test::jpegPicture({test::exifSegment(kTiff)});
    const std::string x3f = test::x3fFile(jpeg);
    const std::size_t x3fDirectory = x3f.rfind("SECd");
    const std::uint32_t far = 0xf0000000;
    std::vector<LargeFile> files = {
        withFilm("HEIC", heic, 24, 6),
        withFilm("CR3",
                 test::cr3File(kTiff, test::tiffBlock({.fields = test::gpsFields(kFields)}), kXmp),
                 24, 6),
        withFilm("JPEG XL", test::jxlFile(kTiff, kXmp), 32, 6),
        {"PNG", pngStart + idat, 0x7ffffff0,
         test::big32(0) + test::pngChunk("eXIf", kTiff) + test::pngChunk("IEND", ""), 6},
        {"WebP", riff + vp8, kThreeGigabytes,
         test::webpChunk("EXIF", kTiff) + test::webpChunk("XMP ", kXmp), 6},
        {"TIFF", tiffPointingTo(far), far - 8, directoryAt(far), 6},
        {"RAF", test::rafPicture("").substr(0, 84) + test::big32(far) + test::big32(100000),
         far - 92, jpeg, 6},
        {"X3F", x3f.substr(0, x3fDirectory), far - x3fDirectory,
         x3f.substr(x3fDirectory, x3f.size() - 4 - x3fDirectory) +
             test::bytes32(test::ByteOrder::little, far),
         6},
        {"MRW", test::mrwPicture(kTiff), kFourGigabytes, "", 5},
        {"BigTIFF", test::bigTiffFile(test::ByteOrder::little, 18, kXmp), kFourGigabytes, "", 5},
        {"sidecar", kXmp, kFourGigabytes, "", 5},
        {"JPEG", jpeg, kFourGigabytes, "", 5},
        {"PSD", test::psdFile(test::photoshopResource(0x0422, kTiff)), kFourGigabytes, "", 5},
        {"GIF", test::gifFile(kXmp), kFourGigabytes, "", 5},
    };
    for (const auto& [name, place] :
         {std::pair("MOV, a key", test::placeAsKey("+48.5+002.25/")),
          std::pair("MOV, user data", test::placeAsUserText("+48.5+002.25/")),
          std::pair("MP4, an item", test::placeAsItem("+48.5+002.25/")),
          std::pair("MP4, loci", test::placeAsLoci(48.5, 2.25, 0)),
          std::pair("MOV, XMP", test::isoBox("udta", test::isoBox("XMP_", kXmp)))}) {
        files.push_back(withFilm(
            name, test::isoBox("ftyp", "qt  \0\0\0\0qt  "s) + test::isoBox("moov", place), 20, 6));
    }
    return files;
}

// From now on this process may have so many bytes of address space more than it has now.
bool limitFurtherMemory(std::uint64_t bytes)
{
    unsigned long pages = 0;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen("/proc/self/statm", "r"),
                                                               std::fclose);
    if (!file || std::fscanf(file.get(), "%lu", &pages) != 1) return false;
    const rlim_t limit = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + bytes;
    const rlimit both = {limit, limit};
    return setrlimit(RLIMIT_AS, &both) == 0;
}

bool canAllocate(std::size_t bytes)
{
    return std::unique_ptr<char[]>(new (std::nothrow) char[bytes]) != nullptr;
}

std::optional<double> latitudeOf(const std::string& path)
{
    const PictureFile file(path);
    FileByteSource bytes(file.descriptor(), file.size());
    const auto properties = readMoreProperties(bytes, "en");
    return properties ? properties->latitude : std::nullopt;
}
}  // namespace

TEST(readMoreProperties, readsLittleOfALargeFile)
{
    const test::TemporaryFolder folder;
    for (const LargeFile& file : largeFiles()) {
        SCOPED_TRACE(file.name);
        const std::string path = write(folder, file);
        EXPECT_GT(std::filesystem::file_size(path), std::uint64_t{2} << 30);
        EXPECT_EQ(latitudeOf(path), 48.5);
        const auto calls = bench::systemCallsOf([&path] { (void)latitudeOf(path); });
        if (!calls) GTEST_SKIP() << "no process may be traced here";
        EXPECT_LE(calls->count, file.maxCalls);
        EXPECT_GE(calls->bytesRead, std::uint64_t{65536});  // its start
        EXPECT_LE(calls->bytesRead, kMegabyte);
    }
}

TEST(readMoreProperties, makesAtMostSixSystemCallsForAHeicPictureOf4MB)
{
    const test::TemporaryFolder folder;
    const test::HeifItem pixels{"hvc1", std::string(4 << 20, 'p')};
    const test::HeifItem exif{"Exif", kExif};
    const test::HeifItem xmp{"mime", kXmp, "application/rdf+xml"};
    const struct {
        const char* name;
        std::vector<test::HeifItem> items;
        bool isMetaLast;
    } rows[] = {
        {"Exif before the pixels", {exif, pixels}, false},
        {"Exif after them", {pixels, exif}, false},
        {"XMP after them", {pixels, xmp}, false},
        {"both before them", {exif, xmp, pixels}, false},
        {"both after them", {pixels, exif, xmp}, false},
        {"Exif before and XMP after them", {exif, pixels, xmp}, false},
        {"the list at the end", {exif, pixels}, true},
        {"the list and Exif at the end", {pixels, exif}, true},
        {"the list and both at the end", {pixels, exif, xmp}, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string path = folder.write(
            "a.heic", test::heifFile({.items = row.items, .isMetaLast = row.isMetaLast}));
        EXPECT_EQ(latitudeOf(path), 48.5);
        const auto calls = bench::systemCallsOf([&path] { (void)latitudeOf(path); });
        if (!calls) GTEST_SKIP() << "no process may be traced here";
        EXPECT_GE(calls->count, 4);
        EXPECT_LE(calls->count, 6);
    }
}

TEST(readMoreProperties, takesLittleMemoryForALargeFile)
{
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizers take terabytes of address space";
#endif
    const test::TemporaryFolder folder;
    for (const LargeFile& file : largeFiles()) {
        SCOPED_TRACE(file.name);
        const std::string path = write(folder, file);
        EXPECT_EQ(test::inChild([&path] {
                      (void)malloc_trim(0);  // what earlier tests have given back
                      if (!limitFurtherMemory(2 * kMegabyte)) return test::kCannotTest;
                      return latitudeOf(path) == 48.5 && !canAllocate(64 * kMegabyte) ? 0 : 1;
                  }),
                  0);
    }
}
