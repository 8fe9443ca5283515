// Writes the seeds of the picture fuzzers, one file per case, into FOLDER/fuzz_X/.

#include "tests/support/container_builder.h"
#include "tests/support/picture_builder.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

using namespace pinorama;

namespace {
using namespace std::string_literals;

class Writer {
public:
    explicit Writer(std::filesystem::path folder) : folder_(std::move(folder)) {}

    void write(const char* fuzzer, const char* name, const std::string& bytes) const
    {
        const std::filesystem::path folder = folder_ / fuzzer;
        std::filesystem::create_directories(folder);
        std::ofstream(folder / name, std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

private:
    std::filesystem::path folder_;
};

void writeSeeds(const Writer& writer, const std::string& suffix, test::ByteOrder order)
{
    const test::PictureFields fields = test::everyField(order);
    const std::string jpeg = test::pictureWithGps(fields);
    const std::string iptc = test::iptcRecord(fields);
    const test::TiffField iptcField{0x83bb, 7, static_cast<std::uint32_t>(iptc.size()), iptc};
    const std::string tiff =
        test::tiffBlock({.order = order, .fields = {iptcField}, .gps = test::gpsFields(fields)});
    const auto write = [&](const char* fuzzer, const char* name, const std::string& bytes) {
        writer.write(fuzzer, (name + suffix).c_str(), bytes);
    };
    for (const char* fuzzer : {"fuzz_picture_properties", "fuzz_jpeg"}) {
        write(fuzzer, "jpeg", jpeg);
    }
    for (const char* fuzzer : {"fuzz_picture_properties", "fuzz_tiff"}) {
        write(fuzzer, "tiff", tiff);
        write(fuzzer, "olympus", test::tiffBlock({.order = order, .number = 0x4f52}));
    }
    for (const char* fuzzer : {"fuzz_picture_properties", "fuzz_raf"}) {
        write(fuzzer, "raf", test::rafPicture(jpeg));
    }
    for (const char* fuzzer : {"fuzz_picture_properties", "fuzz_mrw"}) {
        write(fuzzer, "mrw", test::mrwPicture(tiff));
    }
}

// The further kinds of files; all of them are seeds of the fuzzer of whole files, too.
void writeMoreSeeds(const Writer& writer)
{
    const std::string tiff = test::tiffWithGps(test::everyField(test::ByteOrder::big));
    const std::string xmp = test::xmpPacket(
        "exif:GPSLatitude='33,51.4S' exif:GPSLongitude='151,12.9E' exif:GPSAltitude='125/10'"
        " exif:GPSAltitudeRef='1' photoshop:City='R&#xf4;me &amp; more'",
        "<dc:description><rdf:Alt><rdf:li xml:lang='x-default'>one</rdf:li>"
        "<rdf:li xml:lang='de'>eins</rdf:li></rdf:Alt></dc:description>"
        "<Iptc4xmpExt:LocationCreated><rdf:Bag><rdf:li rdf:parseType='Resource'>"
        "<Iptc4xmpExt:CountryName><![CDATA[Italy]]></Iptc4xmpExt:CountryName>"
        "</rdf:li></rdf:Bag></Iptc4xmpExt:LocationCreated>");
    const auto write = [&](const char* fuzzer, const char* name, const std::string& bytes) {
        writer.write(fuzzer, name, bytes);
        writer.write("fuzz_more_properties", name, bytes);
    };
    write("fuzz_tiff", "big", test::bigTiffFile(test::ByteOrder::little, 18, xmp));
    write("fuzz_tiff", "big-mm", test::bigTiffFile(test::ByteOrder::big, 4, xmp));
    const test::HeifItem exif{"Exif", test::heifExif(tiff)};
    const test::HeifItem mime{"mime", xmp, "application/rdf+xml"};
    write("fuzz_iso_media", "heic", test::heifFile({.items = {exif, mime}}));
    write("fuzz_iso_media", "heic-wide",
          test::heifFile({.items = {exif, mime},
                          .infoVersion = 3,
                          .locationVersion = 2,
                          .baseOffsetSize = 8,
                          .isMetaLast = true}));
    write("fuzz_iso_media", "heic-idat", test::heifFile({.items = {exif}, .isDataInMeta = true}));
    write("fuzz_iso_media", "cr3", test::cr3File(tiff, tiff, xmp));
    write("fuzz_iso_media", "jxl", test::jxlFile(tiff, xmp));
    const std::string place = "+48.8584+002.2945+330.0/";
    write("fuzz_iso_media", "mov-key", test::quickTimeFile(test::placeAsKey(place)));
    write("fuzz_iso_media", "mov-text", test::quickTimeFile(test::placeAsUserText(place)));
    write("fuzz_iso_media", "mov-item", test::quickTimeFile(test::placeAsItem(place)));
    write("fuzz_iso_media", "mov-loci", test::quickTimeFile(test::placeAsLoci(48.5, -2.5, 3)));
    write("fuzz_png", "png", test::pngFile({test::pngChunk("eXIf", tiff), test::pngXmpChunk(xmp)}));
    write("fuzz_webp", "webp",
          test::webpFile({test::webpChunk("EXIF", tiff), test::webpChunk("XMP ", xmp)}));
    write("fuzz_gif", "gif", test::gifFile(xmp, true));
    write(
        "fuzz_psd", "psd",
        test::psdFile(test::photoshopResource(0x0422, tiff) + test::photoshopResource(0x0424, xmp) +
                      test::photoshopResource(
                          0x0404, test::iptcRecord(test::everyField(test::ByteOrder::big)))));
    write("fuzz_x3f", "x3f", test::x3fFile(test::jpegPicture({test::exifSegment(tiff)})));
    const std::string name(32, 'A');
    const std::string packet = test::xmpPacket(
        "xmlns:xmpNote='http://ns.adobe.com/xmp/note/' xmpNote:HasExtendedXMP='" + name + "'");
    const auto length = static_cast<std::uint32_t>(xmp.size());
    write("fuzz_jpeg", "long-xmp",
          test::jpegPicture({test::xmpSegment(packet),
                             test::xmpPieceSegment(name, length, 300, xmp.substr(300)),
                             test::xmpPieceSegment(name, length, 0, xmp.substr(0, 300))}));
    write("fuzz_xmp", "xmp", xmp);
    writer.write("fuzz_xml", "xmp", xmp);
    writer.write("fuzz_xml", "pieces",
                 "<?xml version='1.0'?><!-- c --><a xmlns='b' xmlns:c='d' c:e=\"&lt;&#65;\">"
                 "<![CDATA[f]]><c:g/>&quot;</a>");
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: picture_seeds FOLDER\n", stderr);
        return 2;
    }
    const Writer writer(argv[1]);
    writeSeeds(writer, "-little", test::ByteOrder::little);
    writeSeeds(writer, "-big", test::ByteOrder::big);

    const std::string iptc = test::iptcRecord(test::everyField(test::ByteOrder::big));
    const std::string resources =
        test::photoshopResource(0x03ed, "odd") + test::photoshopResource(0x0404, iptc);
    const std::string split = test::jpegPicture({test::photoshopSegment(resources.substr(0, 40)),
                                                 test::photoshopSegment(resources.substr(40))});
    for (const char* fuzzer : {"fuzz_picture_properties", "fuzz_jpeg"}) {
        writer.write(fuzzer, "split-resources", split);
    }
    for (const char* fuzzer : {"fuzz_picture_properties", "fuzz_crw"}) {
        writer.write(fuzzer, "crw", test::crwPicture());
    }
    writeMoreSeeds(writer);
    writer.write("fuzz_iptc", "declared", iptc);
    writer.write("fuzz_iptc", "windows", test::iptcDataset(2, 90, "M\xfcnchen \x96 Mitte"));
    writer.write("fuzz_iptc", "macroman", test::iptcDataset(2, 120, "Sk\x8cne"));
    writer.write("fuzz_iptc", "extended", "\x1c\2\x78\x80\4\0\0\0\4Rome"s);
    return 0;
}
