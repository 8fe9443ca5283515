// Writes the seeds of the picture fuzzers, one file per case, into FOLDER/fuzz_X/.

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
    writer.write("fuzz_iptc", "declared", iptc);
    writer.write("fuzz_iptc", "windows", test::iptcDataset(2, 90, "M\xfcnchen \x96 Mitte"));
    writer.write("fuzz_iptc", "macroman", test::iptcDataset(2, 120, "Sk\x8cne"));
    writer.write("fuzz_iptc", "extended", "\x1c\2\x78\x80\4\0\0\0\4Rome"s);
    return 0;
}
