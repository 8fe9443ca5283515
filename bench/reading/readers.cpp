#include "bench/reading/readers.h"

#include "location/picture_source.h"

#ifdef PINORAMA_BENCH_EXIV2
#include <exiv2/exiv2.hpp>
#endif
#ifdef PINORAMA_BENCH_LIBEXIF
#include <libexif/exif-data.h>
#endif

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

namespace {
void readOurs(const std::string& path)
{
    (void)propertiesOf(PictureFile(path));
}

#ifdef PINORAMA_BENCH_EXIV2
void readExiv2(const std::string& path)
{
    Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
    try {
        Exiv2::ImageFactory::open(path)->readMetadata();
    } catch (const std::exception&) {
        // A damaged file; the time counts all the same.
    }
}
#endif

#ifdef PINORAMA_BENCH_LIBEXIF
void readLibexif(const std::string& path)
{
    if (ExifData* data = exif_data_new_from_file(path.c_str())) exif_data_unref(data);
}
#endif
}  // namespace

void bench::readFloor(const std::string& path)
{
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return;
    struct stat status;
    char buffer[65536];
    if (fstat(descriptor, &status) == 0) {
        (void)!read(descriptor, buffer, sizeof buffer);  // nobody uses the bytes
    }
    close(descriptor);
}

std::vector<bench::Reader> bench::readers()
{
    return {
        {"floor: open, fstat, one read of 64 KiB, close", readFloor, true},
        {"Pinorama", readOurs, true},
#ifdef PINORAMA_BENCH_EXIV2
        {"Exiv2 " + std::string(Exiv2::versionString()) + " readMetadata", readExiv2, true},
#endif
#ifdef PINORAMA_BENCH_LIBEXIF
        {"libexif exif_data_new_from_file", readLibexif, false},
#endif
    };
}

std::vector<std::string> bench::missingReaders()
{
    std::vector<std::string> missing;
#ifndef PINORAMA_BENCH_EXIV2
    missing.emplace_back("Exiv2");
#endif
#ifndef PINORAMA_BENCH_LIBEXIF
    missing.emplace_back("libexif");
#endif
    return missing;
}
