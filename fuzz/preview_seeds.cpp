// Writes the seeds of the preview and reader fuzzers, one file per case, into FOLDER/fuzz_X/.

#include "reader/reader_protocol.h"
#include "tests/support/heif_pictures.h"
#include "tests/support/icc_profiles.h"
#include "tests/support/jpeg_pictures.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

using namespace pinorama;

namespace {
template <typename Bytes>
void write(const std::filesystem::path& folder, const char* name, const Bytes& bytes)
{
    std::filesystem::create_directories(folder);
    std::ofstream(folder / name, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
}

void writeJpegs(const std::filesystem::path& folder)
{
    const std::string thumbnail = test::jpegOfQuarters(24, 16);
    write(folder, "baseline", test::jpegOfQuarters(40, 24));
    write(folder, "progressive",
          test::jpegOfQuarters(40, 24, {.kind = test::JpegKind::progressive}));
    write(folder, "gray", test::jpegOfQuarters(40, 24, {.kind = test::JpegKind::gray}));
    write(folder, "cmyk", test::jpegOfQuarters(40, 24, {.kind = test::JpegKind::cmykOfAdobe}));
    write(folder, "thumbnail",
          test::jpegOfQuarters(60, 40, {.exif = test::exifWithThumbnail(6, thumbnail)}));
    write(folder, "tiff", test::exifWithThumbnail(8, thumbnail));
}

void writeImages(const std::filesystem::path& folder)
{
    const std::string jpeg = test::jpegOfQuarters(24, 16);
    const test::HeifPart tile = test::hevcPart();
    write(folder, "hevc", test::heifPicture({tile, {"jpeg", jpeg, {}, "thmb", {1}}}));
    test::HeifPart grid = {"grid", test::heifGrid(1, 2, 100, 60), {}, "dimg", {2, 3}};
    grid.properties = {test::heifSize(100, 60), test::heifRotation(1), test::heifColours(1, true)};
    write(folder, "av1", test::heifPicture({test::av1Part()}));
    write(folder, "part", test::heifPicture({{"jpeg", jpeg, {test::heifPart(12, 8, 3, -2)}}}));
    write(folder, "grid", test::heifPicture({grid, tile, tile}));
    write(folder, "cr3", test::cr3Picture(test::exifWithThumbnail(6, ""), jpeg, jpeg));
}

void writeMorePictures(const std::filesystem::path& folder)
{
    const std::string jpeg = test::jpegOfQuarters(24, 16);
    test::HeifPart image = {"jpeg", jpeg};
    image.properties = {test::heifProfile(test::iccDisplayP3()), test::heifPart(12, 16, 6, 0)};
    write(folder, "heif", test::heifPicture({image}));
    write(folder, "hevc", test::heifPicture({test::hevcPart()}));
    write(folder, "av1", test::heifPicture({test::av1Part()}));
    write(folder, "jxl", test::jxlQuarters());
    write(folder, "profile", test::withJpegProfile(jpeg, test::iccDisplayP3(), 300));
}

void writeProfiles(const std::filesystem::path& folder)
{
    write(folder, "formula", test::iccDisplayP3());
    write(folder, "exponent", test::iccAdobeRgb());
    write(folder, "table",
          test::iccProfile(test::kSrgbPrimaries, std::string("curv\0\0\0\0\0\0\0\3"
                                                             "\0\0\x30\0\xff\xff",
                                                             18)));
}

void writeRequests(const std::filesystem::path& folder)
{
    write(folder, "properties", encodeRequest({ReaderTask::properties, 1, 64, {}}));
    write(folder, "preview", encodeRequest({ReaderTask::picturePreview, 2, 1, {128, 128}}));
    write(folder, "thumbnail", encodeRequest({ReaderTask::cachedThumbnail, 3, 1, {1, 2048}}));
}

void writeReplies(const std::filesystem::path& folder)
{
    PictureProperties properties;
    properties.hasGps = properties.hasIptc = true;
    properties.latitude = 48.1;
    properties.altitudeReference = 1;
    properties.latitudeReference = u"N";
    properties.city = u"Rome";
    PreviewReply preview;
    preview.image = {2, 1, {0xff102030, 0x80402000}};
    write(folder, "header",
          encodeReplyHeader({ReaderTask::properties, ReplyOutcome::found, 1, 40}));
    write(folder, "properties", encodeProperties(properties));
    write(folder, "preview", encodePreview(preview));
    preview.uri = "file:///a.jpg";
    preview.mtime = "1";
    write(folder, "thumbnail", encodePreview(preview));
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: preview_seeds FOLDER\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    writeJpegs(folder / "fuzz_jpeg_preview");
    writeImages(folder / "fuzz_iso_images");
    writeMorePictures(folder / "fuzz_picture_preview");
    writeProfiles(folder / "fuzz_colour_profile");
    writeRequests(folder / "fuzz_reader_request");
    writeReplies(folder / "fuzz_reader_reply");
    return 0;
}
