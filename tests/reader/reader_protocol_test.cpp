#include "reader/reader_protocol.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

using namespace pinorama;

namespace {

const ReaderRequest kPropertyRequest = {ReaderTask::properties, 7, 3, {}};
const ReaderRequest kPreviewRequest = {ReaderTask::picturePreview, 8, 1, {128, 85}};

bool operator==(const ReaderRequest& a, const ReaderRequest& b)
{
    return a.task == b.task && a.number == b.number && a.descriptorCount == b.descriptorCount &&
           a.box == b.box;
}

PictureProperties fullProperties()
{
    PictureProperties properties;
    properties.hasGps = true;
    properties.latitude = 48.123456789;
    properties.longitude = -0.0;
    properties.altitude = 520;
    properties.altitudeReference = -1;
    properties.destinationDistance = 1e300;
    properties.imageDirection = 359.99;
    properties.latitudeReference = u"N";
    properties.longitudeReference = u"";
    properties.destinationDistanceReference = u"K";
    properties.satellites = u"tilt:45.5";
    properties.taken = -1;
    properties.takenOffset = -210;
    properties.isTakenBySatellites = true;
    properties.imageDirectionReference = u"M";
    properties.hasIptc = true;
    properties.city = u"K\u00f6ln";
    properties.state = u"\U0001F4F7";
    properties.country = std::u16string(kMaxTextLength, u'x');
    properties.caption = u"\xd800 alone";
    return properties;
}

TEST(decodeRequest, readsWhatEncodeRequestWrites)
{
    for (const ReaderRequest& request :
         {kPropertyRequest, kPreviewRequest,
          ReaderRequest{ReaderTask::cachedThumbnail, UINT32_MAX, 1, {1, kMaxPreviewSide}},
          ReaderRequest{ReaderTask::properties, 0, kMaxDescriptors, {}},
          ReaderRequest{ReaderTask::giveUp, 9, 0, {}}}) {
        const std::optional<ReaderRequest> decoded = decodeRequest(encodeRequest(request));
        ASSERT_TRUE(decoded);
        EXPECT_TRUE(*decoded == request);
    }
}

TEST(decodeRequest, refusesEverythingElse)
{
    const ReaderRequest rows[] = {
        {ReaderTask::hello, 1, 1, {}},
        {static_cast<ReaderTask>(6), 1, 1, {}},
        {ReaderTask::giveUp, 1, 1, {}},
        {ReaderTask::giveUp, 1, 0, {1, 1}},
        {ReaderTask::properties, 1, 0, {}},
        {ReaderTask::properties, 1, kMaxDescriptors + 1, {}},
        {ReaderTask::properties, 1, 1, {1, 1}},
        {ReaderTask::picturePreview, 1, 0, {128, 128}},
        {ReaderTask::picturePreview, 1, 2, {128, 128}},
        {ReaderTask::picturePreview, 1, 1, {0, 128}},
        {ReaderTask::picturePreview, 1, 1, {128, kMaxPreviewSide + 1}},
    };
    for (const ReaderRequest& row : rows) EXPECT_FALSE(decodeRequest(encodeRequest(row)));

    auto bytes = encodeRequest(kPropertyRequest);
    for (std::size_t length = 0; length < bytes.size(); length++) {
        EXPECT_FALSE(decodeRequest(ByteView(bytes).first(length)));
    }
    for (const std::size_t place : {0u, 4u, 18u, 19u}) {  // mark, version, padding
        auto changed = bytes;
        changed[place] ^= 0x40;
        EXPECT_FALSE(decodeRequest(changed)) << place;
    }
}

TEST(decodeReplyHeader, readsTheReplyToTheRequestAndNoOther)
{
    const auto bytes = encodeReplyHeader({ReaderTask::picturePreview, ReplyOutcome::found, 8, 100});
    const auto header = decodeReplyHeader(bytes, ReaderTask::picturePreview, 8, 100);
    ASSERT_TRUE(header);
    EXPECT_EQ(header->bodyLength, 100u);
    EXPECT_FALSE(decodeReplyHeader(bytes, ReaderTask::picturePreview, 8, 99));
    EXPECT_FALSE(decodeReplyHeader(bytes, ReaderTask::picturePreview, 9, 100));
    EXPECT_FALSE(decodeReplyHeader(bytes, ReaderTask::properties, 8, 100));
    EXPECT_FALSE(decodeReplyHeader(ByteView(bytes).first(19), ReaderTask::picturePreview, 8, 100));
}

TEST(decodeReplyHeader, onlyWhatWasFoundAndReportsHaveABody)
{
    const auto decode = [](ReaderTask task, ReplyOutcome outcome, std::uint32_t length) {
        return decodeReplyHeader(encodeReplyHeader({task, outcome, 1, length}), task, 1, 1000)
            .has_value();
    };
    EXPECT_TRUE(decode(ReaderTask::properties, ReplyOutcome::nothing, 0));
    EXPECT_FALSE(decode(ReaderTask::properties, ReplyOutcome::nothing, 1));
    EXPECT_TRUE(decode(ReaderTask::picturePreview, ReplyOutcome::interrupted, 0));
    EXPECT_FALSE(decode(ReaderTask::picturePreview, ReplyOutcome::interrupted, 4));
    EXPECT_TRUE(decode(ReaderTask::properties, ReplyOutcome::interrupted, 0));
    EXPECT_TRUE(decode(ReaderTask::properties, ReplyOutcome::failed, 0));
    EXPECT_FALSE(decode(ReaderTask::properties, ReplyOutcome::failed, 1));
    EXPECT_TRUE(decode(ReaderTask::properties, ReplyOutcome::atWork, kReportSize));
    EXPECT_FALSE(decode(ReaderTask::properties, ReplyOutcome::atWork, kReportSize - 1));
    EXPECT_FALSE(decode(ReaderTask::properties, ReplyOutcome::atWork, kReportSize + 1));
    EXPECT_FALSE(decode(ReaderTask::properties, static_cast<ReplyOutcome>(5), 0));
}

TEST(decodeReport, readsATimeOfADayAtMost)
{
    using namespace std::chrono_literals;
    EXPECT_EQ(decodeReport(encodeReport(0ns)), 0ns);
    EXPECT_EQ(decodeReport(encodeReport(1234567890123ns)), 1234567890123ns);
    EXPECT_EQ(decodeReport(encodeReport(25h)), 24h);
    EXPECT_EQ(decodeReport(std::vector<std::uint8_t>(kReportSize, 0xff)), 24h);
}

TEST(decodeProperties, readsWhatEncodePropertiesWrites)
{
    PictureProperties onlyIptc;
    onlyIptc.hasIptc = true;
    PictureProperties onlyGps;
    onlyGps.hasGps = true;
    onlyGps.longitude = 1;
    for (const PictureProperties& properties :
         {PictureProperties{}, onlyIptc, onlyGps, fullProperties()}) {
        const std::vector<std::uint8_t> body = encodeProperties(properties);
        EXPECT_LE(body.size(), maxBodyLength(ReaderTask::properties, {}));
        const std::optional<PictureProperties> decoded = decodeProperties(body);
        ASSERT_TRUE(decoded);
        EXPECT_TRUE(*decoded == properties);
    }
    EXPECT_TRUE(std::signbit(*decodeProperties(encodeProperties(fullProperties()))->longitude));
}

TEST(decodeRequest, takesThoseForMorePropertiesLikeThoseForProperties)
{
    EXPECT_TRUE(decodeRequest(encodeRequest({ReaderTask::moreProperties, 1, kMaxDescriptors, {}})));
    EXPECT_FALSE(decodeRequest(encodeRequest({ReaderTask::moreProperties, 1, 0, {}})));
    EXPECT_FALSE(decodeRequest(encodeRequest({ReaderTask::moreProperties, 1, 1, {1, 1}})));
}

TEST(decodeProperties, readsWhereValuesComeFrom)
{
    PictureProperties properties = fullProperties();
    properties.sources = {.position = ValueSource::quickTime,
                          .altitude = ValueSource::xmp,
                          .direction = ValueSource::exif,
                          .city = ValueSource::sidecar,
                          .state = ValueSource::iptc,
                          .country = ValueSource::xmp,
                          .caption = ValueSource::sidecar};
    std::vector<std::uint8_t> body = encodeProperties(properties);
    EXPECT_LE(body.size(), maxBodyLength(ReaderTask::moreProperties, {}));
    const std::optional<PictureProperties> decoded = decodeProperties(body);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(*decoded, properties);
    // They take up nothing where they are as they are in Exif and IPTC.
    EXPECT_EQ(encodeProperties(fullProperties()).size(), body.size() - 8);

    std::vector<std::uint8_t> unknown = body;
    unknown[body.size() - 8] = kValueSourceCount;
    EXPECT_FALSE(decodeProperties(unknown));
    std::vector<std::uint8_t> eighth = body;
    eighth[body.size() - 1] = 1;
    EXPECT_FALSE(decodeProperties(eighth));
    body.pop_back();
    EXPECT_FALSE(decodeProperties(body));
}

TEST(encodeProperties, leavesOutWhatCannotBeSent)
{
    PictureProperties properties = fullProperties();
    properties.country = std::u16string(kMaxTextLength + 1, u'x');
    properties.latitude = std::numeric_limits<double>::quiet_NaN();
    properties.altitude = std::numeric_limits<double>::infinity();
    const std::optional<PictureProperties> decoded = decodeProperties(encodeProperties(properties));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->country, std::u16string(kMaxTextLength, u'x'));
    EXPECT_FALSE(decoded->latitude);
    EXPECT_FALSE(decoded->altitude);
    EXPECT_EQ(decoded->imageDirection, 359.99);
}

// A body that is put together by hand.
std::vector<std::uint8_t> bodyOf(std::uint32_t flags, std::initializer_list<std::uint8_t> rest)
{
    std::vector<std::uint8_t> body;
    for (int i = 0; i < 4; i++) body.push_back(static_cast<std::uint8_t>(flags >> 8 * i));
    body.insert(body.end(), rest);
    return body;
}

TEST(decodeProperties, refusesWhatNoReaderWrites)
{
    constexpr std::uint32_t gps = 1u << 30;
    constexpr std::uint32_t iptc = 1u << 31;
    constexpr std::uint32_t latitude = 1;
    constexpr std::uint32_t city = 1u << 10;
    EXPECT_TRUE(decodeProperties(bodyOf(gps | latitude, {0, 0, 0, 0, 0, 0, 0xf0, 0x3f})));
    EXPECT_TRUE(decodeProperties(bodyOf(iptc | city, {1, 0, 0, 0, 'A', 0})));
    const struct {
        const char* name;
        std::vector<std::uint8_t> body;
    } rows[] = {
        {"nothing at all", {}},
        {"half a header", {0, 0}},
        {"an unknown value", bodyOf(gps | 1u << 17, {})},
        {"the satellites' clock for no time", bodyOf(gps | 1u << 28, {})},
        {"an offset of no time", bodyOf(gps | 1u << 15, {0, 0, 0, 0, 0, 0, 0, 0})},
        {"a value without its dictionary", bodyOf(latitude, {0, 0, 0, 0, 0, 0, 0xf0, 0x3f})},
        {"the other dictionary", bodyOf(iptc | latitude, {0, 0, 0, 0, 0, 0, 0xf0, 0x3f})},
        {"NaN", bodyOf(gps | latitude, {1, 0, 0, 0, 0, 0, 0xf0, 0x7f})},
        {"infinity", bodyOf(gps | latitude, {0, 0, 0, 0, 0, 0, 0xf0, 0xff})},
        {"half a number", bodyOf(gps | latitude, {0, 0, 0, 0})},
        {"something left over", bodyOf(gps | latitude, {0, 0, 0, 0, 0, 0, 0xf0, 0x3f, 0})},
        {"a text longer than the body", bodyOf(iptc | city, {2, 0, 0, 0, 'A', 0})},
        {"a text of four gigabytes", bodyOf(iptc | city, {0xff, 0xff, 0xff, 0xff, 'A', 0})},
        {"a zero unit", bodyOf(iptc | city, {2, 0, 0, 0, 'A', 0, 0, 0})},
    };
    for (const auto& row : rows) EXPECT_FALSE(decodeProperties(row.body)) << row.name;

    PictureProperties longText;
    longText.hasIptc = true;
    longText.city = std::u16string(kMaxTextLength, u'x');
    std::vector<std::uint8_t> body = encodeProperties(longText);
    body.insert(body.end(), {'x', 0});
    body[4]++;  // one unit more than a text may have, and all there
    EXPECT_FALSE(decodeProperties(body));
}

PreviewReply somePreview()
{
    PreviewReply reply;
    reply.image = {3, 2, {0xffffffff, 0xff000000, 0x80400000, 0, 0xff123456, 0xff0000ff}};
    reply.wasDecoded = true;
    return reply;
}

TEST(decodePreview, readsWhatEncodePreviewWrites)
{
    const PreviewReply picture = somePreview();
    const auto decoded = decodePreview(encodePreview(picture), PreviewKind::picture, {3, 2});
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->image.width, 3);
    EXPECT_EQ(decoded->image.height, 2);
    EXPECT_EQ(decoded->image.pixels, picture.image.pixels);
    EXPECT_TRUE(decoded->wasDecoded);

    PreviewReply thumbnail = somePreview();
    thumbnail.uri = "file:///a.jpg";
    thumbnail.mtime = "123";
    const auto cached =
        decodePreview(encodePreview(thumbnail), PreviewKind::cachedThumbnail, {128, 128});
    ASSERT_TRUE(cached);
    EXPECT_EQ(cached->uri, thumbnail.uri);
    EXPECT_EQ(cached->mtime, thumbnail.mtime);
}

TEST(decodePreview, refusesAPictureOfTheWrongSize)
{
    const std::vector<std::uint8_t> body = encodePreview(somePreview());
    EXPECT_FALSE(decodePreview(body, PreviewKind::picture, {2, 2}));
    EXPECT_FALSE(decodePreview(body, PreviewKind::picture, {3, 1}));
    EXPECT_FALSE(decodePreview(body, PreviewKind::picture, {0, 0}));
    for (std::size_t length = 0; length < body.size(); length++) {
        EXPECT_FALSE(decodePreview(ByteView(body).first(length), PreviewKind::picture, {3, 2}));
    }
    std::vector<std::uint8_t> longer = body;
    longer.push_back(0);
    EXPECT_FALSE(decodePreview(longer, PreviewKind::picture, {3, 2}));
    for (const std::size_t place : {0u, 3u, 4u, 7u, 8u, 10u, 12u, 15u}) {
        std::vector<std::uint8_t> changed = body;
        changed[place] = 0xff;
        EXPECT_FALSE(decodePreview(changed, PreviewKind::picture, {128, 128})) << place;
    }
    std::vector<std::uint8_t> empty = body;
    empty[0] = 0;
    EXPECT_FALSE(decodePreview(empty, PreviewKind::picture, {128, 128}));
}

TEST(decodePreview, holdsALargeOneAgainstItsBox)
{
    constexpr PixelSize kLarge = {1024, 1024};
    PreviewReply reply;
    reply.image = {1024, 683, std::vector<std::uint32_t>(std::size_t{1024} * 683, 0xff102030)};
    const std::vector<std::uint8_t> body = encodePreview(reply);
    EXPECT_LE(body.size(), maxBodyLength(ReaderTask::picturePreview, kLarge));
    const auto decoded = decodePreview(body, PreviewKind::picture, kLarge);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->image.pixels, reply.image.pixels);
    EXPECT_FALSE(decodePreview(body, PreviewKind::picture, {1023, 1024}));
    EXPECT_FALSE(decodePreview(body, PreviewKind::picture, {1024, 682}));
    EXPECT_FALSE(decodePreview(body, PreviewKind::picture, {128, 128})) << "the small one";
    EXPECT_FALSE(
        decodePreview(ByteView(body).first(body.size() - 4), PreviewKind::picture, kLarge));
    EXPECT_FALSE(decodePreview(body, PreviewKind::picture, {1024, kMaxPreviewSide + 1}));

    // Sizes whose product is that of the pixels that came, or overflows.
    const struct {
        std::uint32_t width, height;
    } rows[] = {{683, 1024},     {1024, 682},        {1024, 684},
                {1024, 0},       {0, 683},           {0x80000000, 0x80000000},
                {0xffffffff, 1}, {1 << 16, 1 << 16}, {1024, 0x40000000 + 683}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.width << " by " << row.height);
        std::vector<std::uint8_t> changed = body;
        for (int i = 0; i < 4; i++) {
            changed[i] = static_cast<std::uint8_t>(row.width >> 8 * i);
            changed[4 + i] = static_cast<std::uint8_t>(row.height >> 8 * i);
        }
        const bool isOther = row.width == 683 && row.height == 1024;
        EXPECT_EQ(decodePreview(changed, PreviewKind::picture, kLarge).has_value(), isOther);
    }
}

TEST(decodePreview, onlyAThumbnailNamesAFile)
{
    PreviewReply reply = somePreview();
    reply.uri = "file:///a.jpg";
    EXPECT_FALSE(decodePreview(encodePreview(reply), PreviewKind::picture, {3, 2}));
}

TEST(decodePreview, mendsColoursThatExceedTheirAlpha)
{
    PreviewReply reply;
    reply.image = {3, 1, {0x00ffffff, 0x40ff2041, 0xffff80ff}};
    const auto decoded = decodePreview(encodePreview(reply), PreviewKind::picture, {3, 1});
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->image.pixels,
              (std::vector<std::uint32_t>{0x00000000, 0x40402040, 0xffff80ff}));
}

TEST(maxBodyLength, boundsWhatIsEverRead)
{
    EXPECT_LT(maxBodyLength(ReaderTask::properties, {}), 2u << 20);
    EXPECT_LT(maxBodyLength(ReaderTask::picturePreview, {128, 128}), 80u << 10);
    EXPECT_LT(maxBodyLength(ReaderTask::picturePreview, {1024, 1024}), (4u << 20) + (16u << 10));
    EXPECT_LT(maxBodyLength(ReaderTask::morePreview, {kMaxPreviewSide, kMaxPreviewSide}),
              (16u << 20) + (16u << 10));
    EXPECT_EQ(maxBodyLength(ReaderTask::hello, {128, 128}), 0u);
}

TEST(readerProtocol, changedBytesAreHarmless)
{
    std::mt19937 random(20240601);
    const std::vector<std::vector<std::uint8_t>> bodies = {encodeProperties(fullProperties()),
                                                           encodePreview(somePreview())};
    for (int i = 0; i < 20000; i++) {
        std::vector<std::uint8_t> body = bodies[i % 2];
        if (i % 2 == 0) body.resize(std::min<std::size_t>(body.size(), 300));
        for (std::uint32_t changes = random() % 4; changes > 0; changes--) {
            body[random() % body.size()] = static_cast<std::uint8_t>(random());
        }
        body.resize(random() % (body.size() + 1));
        if (const auto properties = decodeProperties(body)) {
            EXPECT_TRUE(!properties->latitude || std::isfinite(*properties->latitude));
        }
        if (const auto preview = decodePreview(body, PreviewKind::cachedThumbnail, {16, 16})) {
            EXPECT_EQ(preview->image.pixels.size(),
                      static_cast<std::size_t>(preview->image.width) * preview->image.height);
        }
    }
}
}  // namespace
