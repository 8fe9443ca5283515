// Damaged pictures: good ones with bits turned over, bytes and length fields replaced, parts cut
// out, put in twice or cut off. What they say is nobody's business; reading them has to end, inside
// their bytes (which the sanitizers see) and with a bounded number of reads.

#include "pictures/picture_properties.h"

#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <random>

#include <fcntl.h>
#include <unistd.h>

using namespace pinorama;

namespace {
constexpr int kMutationsPerPicture = 1500;

std::vector<std::string> goodPictures()
{
    std::vector<std::string> pictures = {test::crwPicture()};
    for (const test::ByteOrder order : {test::ByteOrder::little, test::ByteOrder::big}) {
        const test::PictureFields fields = test::everyField(order);
        const std::string iptc = test::iptcRecord(fields);
        const test::TiffField iptcField{0x83bb, 7, static_cast<std::uint32_t>(iptc.size()), iptc};
        const std::string tiff = test::tiffBlock(
            {.order = order, .fields = {iptcField}, .gps = test::gpsFields(fields)});
        const std::string resources =
            test::photoshopResource(0x03ed, "resolution") + test::photoshopResource(0x0404, iptc);
        pictures.push_back(test::pictureWithGps(fields));
        pictures.push_back(test::jpegPicture({test::photoshopSegment(resources.substr(0, 50)),
                                              test::photoshopSegment(resources.substr(50)),
                                              test::exifSegment(tiff)}));
        pictures.push_back(tiff);
        pictures.push_back(test::rafPicture(test::pictureWithGps(fields)));
        pictures.push_back(test::mrwPicture(tiff));
    }
    return pictures;
}

// One to four changes of a picture.
class Mutator {
public:
    explicit Mutator(std::uint32_t seed) : random_(seed) {}

    std::string mutate(std::string bytes)
    {
        for (std::size_t changes = below(4) + 1; changes != 0 && !bytes.empty(); --changes) {
            change(bytes);
        }
        return bytes;
    }

private:
    std::size_t below(std::size_t bound) { return random_() % bound; }

    void change(std::string& bytes)
    {
        const std::size_t place = below(bytes.size());
        const std::size_t length = below(std::min<std::size_t>(bytes.size() - place, 32)) + 1;
        switch (below(7)) {
        case 0: bytes[place] ^= static_cast<char>(1 << below(8)); break;
        case 1: bytes[place] = static_cast<char>(below(256)); break;
        case 2: bytes.resize(place); break;
        case 3: bytes.erase(place, length); break;
        case 4: bytes.insert(place, bytes.substr(below(bytes.size()), length)); break;
        default: replaceNumber(bytes, place); break;
        }
    }

    // Writes the kind of number over the bytes that breaks offsets, counts and lengths.
    void replaceNumber(std::string& bytes, std::size_t place)
    {
        const std::uint32_t size = static_cast<std::uint32_t>(bytes.size());
        const std::uint32_t numbers[] = {0,          1,          0x7fff,     0x8000, 0xffff,
                                         0x7fffffff, 0x80000000, 0xffffffff, size,   size - 1};
        const std::uint32_t number = numbers[below(std::size(numbers))];
        const auto order = below(2) == 0 ? test::ByteOrder::little : test::ByteOrder::big;
        const std::string written = below(2) == 0
                                        ? test::bytes32(order, number)
                                        : test::bytes16(order, static_cast<std::uint16_t>(number));
        bytes.replace(place, std::min(written.size(), bytes.size() - place), written);
    }

    std::mt19937 random_;
};

std::optional<PictureProperties> readFromMemory(const std::string& bytes)
{
    // A block of exactly the right size: a string keeps a byte after its end.
    const auto copy = std::make_unique<std::uint8_t[]>(bytes.size());
    std::copy(bytes.begin(), bytes.end(), copy.get());
    MemoryByteSource source({copy.get(), bytes.size()});
    return readPictureProperties(source);
}
}  // namespace

TEST(readPictureProperties, endsOnEveryMutation)
{
    const std::vector<std::string> pictures = goodPictures();
    const auto start = std::chrono::steady_clock::now();
    int withGps = 0;
    int withIptc = 0;
    int refused = 0;
    for (std::size_t index = 0; index < pictures.size(); ++index) {
        Mutator mutator(static_cast<std::uint32_t>(index));
        for (int mutation = 0; mutation < kMutationsPerPicture; ++mutation) {
            const std::optional<PictureProperties> properties =
                readFromMemory(mutator.mutate(pictures[index]));
            refused += properties ? 0 : 1;
            withGps += properties && properties->hasGps ? 1 : 0;
            withIptc += properties && properties->hasIptc ? 1 : 0;
        }
    }
    const auto total = static_cast<int>(pictures.size()) * kMutationsPerPicture;
    // The mutations are gentle enough to reach every room and rough enough to break each.
    EXPECT_GT(withGps, total / 4);
    EXPECT_LT(withGps, total * 9 / 10);
    EXPECT_GT(withIptc, total / 4);
    EXPECT_LT(withIptc, total * 9 / 10);
    EXPECT_GT(refused, total / 100);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

TEST(readPictureProperties, endsAtEveryTruncation)
{
    for (const std::string& picture : goodPictures()) {
        for (std::size_t size = 0; size < picture.size(); ++size) {
            (void)readFromMemory(picture.substr(0, size));  // only the end is asked for
        }
    }
}

TEST(readPictureProperties, readsAFileAndMemoryAlike)
{
    const test::TemporaryFolder folder;
    const std::vector<std::string> pictures = goodPictures();
    for (std::size_t index = 0; index < pictures.size(); ++index) {
        Mutator mutator(static_cast<std::uint32_t>(index) + 1000);
        for (int mutation = 0; mutation < 50; ++mutation) {
            const std::string bytes = mutator.mutate(pictures[index]);
            const int descriptor =
                open(folder.write("picture", bytes).c_str(), O_RDONLY | O_CLOEXEC);
            FileByteSource source(descriptor, bytes.size());
            EXPECT_EQ(readPictureProperties(source), readFromMemory(bytes));
            EXPECT_LE(source.readCount(), 1);
            close(descriptor);
        }
    }
}

TEST(readPictureProperties, aFileMadeToKeepTheReaderBusyIsGivenUp)
{
    // Segments of the largest size, one after the other: each needs a read of its own.
    const std::string segment = test::jpegSegment(0xe2, std::string(65533, 'x'));
    std::string picture = "\xff\xd8";
    for (int count = 0; count < FileByteSource::kMaxReads + 20; ++count) picture += segment;
    picture += test::exifSegment(test::tiffWithGps({.lat = 48.1}));

    const test::TemporaryFolder folder;
    const int descriptor = open(folder.write("picture", picture).c_str(), O_RDONLY | O_CLOEXEC);
    FileByteSource source(descriptor, picture.size());
    const std::optional<PictureProperties> properties = readPictureProperties(source);
    close(descriptor);
    ASSERT_TRUE(properties);
    EXPECT_FALSE(properties->hasGps);
    EXPECT_EQ(source.readCount(), FileByteSource::kMaxReads);
    EXPECT_TRUE(readFromMemory(picture)->hasGps);
}
