#include "reader/reader_protocol.h"

#include "base/message_bytes.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace pinorama {
namespace {

constexpr std::uint32_t kRequestMagic = 0x51526e50;  // "PnRQ"
constexpr std::uint32_t kReplyMagic = 0x4e416e50;    // "PnAN"
constexpr std::uint16_t kVersion = 3;

constexpr std::size_t kNumberCount = 8;
constexpr std::size_t kTextCount = 9;
constexpr std::size_t kPropertyHeaderSize = 4;  // which values there are
constexpr std::size_t kSourcesSize = 8;

constexpr std::size_t kPreviewHeaderSize = 16;
constexpr std::size_t kMaxUriLength = 3 * 4096 + 7;  // every byte of the longest path escaped
constexpr std::size_t kMaxTimeLength = 24;

bool isPreview(ReaderTask task)
{
    return task == ReaderTask::picturePreview || task == ReaderTask::morePreview ||
           task == ReaderTask::cachedThumbnail;
}

bool isSide(std::int32_t length)
{
    return length >= 1 && length <= kMaxPreviewSide;
}

bool isSensible(const ReaderRequest& request)
{
    if (isPreview(request.task)) {
        return request.descriptorCount == 1 && isSide(request.box.width) &&
               isSide(request.box.height);
    }
    if (request.box != PixelSize{}) return false;
    if (request.task == ReaderTask::giveUp) return request.descriptorCount == 0;
    return asksForProperties(request.task) && request.descriptorCount >= 1 &&
           request.descriptorCount <= kMaxDescriptors;
}

// The length that the body of a reply has at most; nothing for an outcome that is none.
std::optional<std::size_t> maxLengthOf(ReplyOutcome outcome, std::size_t whenFound)
{
    switch (outcome) {
    case ReplyOutcome::found: return whenFound;
    case ReplyOutcome::atWork: return kReportSize;
    case ReplyOutcome::nothing:
    case ReplyOutcome::interrupted:
    case ReplyOutcome::failed: return 0;
    }
    return std::nullopt;
}

// Calls `visit(hasHome, value)` for every value of a picture's properties, in the order of the
// message. The bit of a value is its place in this order. A value without a home, the directory or
// record that it belongs to, cannot be there.
template <typename Properties, typename Visitor>
void visitValues(Properties& properties, Visitor visit)
{
    const bool gps = properties.hasGps;
    const bool iptc = properties.hasIptc;
    visit(gps, properties.latitude);
    visit(gps, properties.longitude);
    visit(gps, properties.altitude);
    visit(gps, properties.altitudeReference);
    visit(gps, properties.destinationDistance);
    visit(gps, properties.imageDirection);
    visit(gps, properties.latitudeReference);
    visit(gps, properties.longitudeReference);
    visit(gps, properties.destinationDistanceReference);
    visit(gps, properties.satellites);
    visit(iptc, properties.city);
    visit(iptc, properties.state);
    visit(iptc, properties.country);
    visit(iptc, properties.caption);
    visit(true, properties.taken);
    visit(properties.taken.has_value(), properties.takenOffset);
    visit(gps, properties.imageDirectionReference);
}

constexpr std::uint32_t kTakenBySatellites = 1u << 28;
constexpr std::uint32_t kHasSources = 1u << 29;
constexpr std::uint32_t kHasGps = 1u << 30;
constexpr std::uint32_t kHasIptc = 1u << 31;
constexpr std::uint32_t kValues = (1u << (kNumberCount + kTextCount)) - 1;

// Sources as a number: a byte for each, that of the position lowest.
std::uint64_t numberOfSources(const ValueSources& sources)
{
    std::uint64_t number = 0;
    int shift = 0;
    for (const ValueSource source :
         {sources.position, sources.altitude, sources.direction, sources.city, sources.state,
          sources.country, sources.caption}) {
        number |= std::uint64_t{static_cast<std::uint8_t>(source)} << shift;
        shift += 8;
    }
    return number;
}

// Nothing if the number stands for no sources.
std::optional<ValueSources> sourcesOfNumber(std::uint64_t number)
{
    ValueSources sources;
    for (ValueSource* source :
         {&sources.position, &sources.altitude, &sources.direction, &sources.city, &sources.state,
          &sources.country, &sources.caption}) {
        const auto value = static_cast<std::uint8_t>(number & 0xff);
        if (value >= kValueSourceCount) return std::nullopt;
        *source = static_cast<ValueSource>(value);
        number >>= 8;
    }
    return number == 0 ? std::optional(sources) : std::nullopt;
}

void putValue(MessageWriter* message, double value)
{
    message->putDouble(value);
}

void putValue(MessageWriter* message, std::int64_t value)
{
    message->put64(static_cast<std::uint64_t>(value));
}

void putValue(MessageWriter* message, const std::u16string& text)
{
    const std::size_t length = std::min(text.size(), kMaxTextLength);
    message->put32(static_cast<std::uint32_t>(length));
    for (std::size_t i = 0; i < length; i++) message->put16(text[i]);
}

bool getValue(MessageReader* message, std::optional<double>* value)
{
    *value = message->getDouble();
    return std::isfinite(**value);
}

bool getValue(MessageReader* message, std::optional<std::int64_t>* value)
{
    *value = static_cast<std::int64_t>(message->get64());
    return true;
}

bool getValue(MessageReader* message, std::optional<std::u16string>* value)
{
    const std::uint32_t length = message->get32();
    if (length > kMaxTextLength) return false;
    const ByteView bytes = message->getBytes(std::size_t{2} * length);
    std::u16string& text = value->emplace();
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        text += static_cast<char16_t>(bytes[i] | bytes[i + 1] << 8);
    }
    return text.find(u'\0') == std::u16string::npos;
}

// A number that is no number cannot be shown, and cannot be sent.
template <typename Value>
bool canBeSent(const std::optional<Value>& value)
{
    if constexpr (std::is_same_v<Value, double>) return value && std::isfinite(*value);
    return value.has_value();
}

// Colours that are multiplied by alpha are never larger than it.
std::uint32_t mendedPixel(std::uint32_t pixel)
{
    const std::uint32_t alpha = pixel >> 24;
    std::uint32_t mended = alpha << 24;
    for (const int shift : {0, 8, 16}) mended |= std::min(pixel >> shift & 0xff, alpha) << shift;
    return mended;
}

std::string textOf(ByteView bytes)
{
    return std::string(bytes.begin(), bytes.end());
}
}  // namespace

std::array<std::uint8_t, kRequestSize> encodeRequest(const ReaderRequest& request)
{
    MessageWriter message;
    message.put32(kRequestMagic);
    message.put16(kVersion);
    message.put16(static_cast<std::uint16_t>(request.task));
    message.put32(request.number);
    message.put16(request.descriptorCount);
    message.put16(static_cast<std::uint16_t>(request.box.width));
    message.put16(static_cast<std::uint16_t>(request.box.height));
    message.put16(0);
    std::array<std::uint8_t, kRequestSize> bytes;
    std::copy(message.bytes().begin(), message.bytes().end(), bytes.begin());
    return bytes;
}

std::optional<ReaderRequest> decodeRequest(ByteView bytes)
{
    MessageReader message(bytes);
    const bool isRequest = message.get32() == kRequestMagic && message.get16() == kVersion;
    ReaderRequest request;
    request.task = static_cast<ReaderTask>(message.get16());
    request.number = message.get32();
    request.descriptorCount = message.get16();
    request.box.width = message.get16();
    request.box.height = message.get16();
    const bool isPadded = message.get16() == 0;
    if (!isRequest || !isPadded || !message.isComplete() || !isSensible(request)) {
        return std::nullopt;
    }
    return request;
}

std::array<std::uint8_t, kReplyHeaderSize> encodeReplyHeader(const ReplyHeader& header)
{
    MessageWriter message;
    message.put32(kReplyMagic);
    message.put16(kVersion);
    message.put16(static_cast<std::uint16_t>(header.task));
    message.put16(static_cast<std::uint16_t>(header.outcome));
    message.put16(0);
    message.put32(header.number);
    message.put32(header.bodyLength);
    std::array<std::uint8_t, kReplyHeaderSize> bytes;
    std::copy(message.bytes().begin(), message.bytes().end(), bytes.begin());
    return bytes;
}

std::optional<ReplyHeader> decodeReplyHeader(ByteView bytes, ReaderTask task, std::uint32_t number,
                                             std::size_t maxBodyLength)
{
    MessageReader message(bytes);
    const bool isReply = message.get32() == kReplyMagic && message.get16() == kVersion;
    ReplyHeader header;
    header.task = static_cast<ReaderTask>(message.get16());
    header.outcome = static_cast<ReplyOutcome>(message.get16());
    const bool isPadded = message.get16() == 0;
    header.number = message.get32();
    header.bodyLength = message.get32();
    if (!isReply || !isPadded || !message.isComplete()) return std::nullopt;
    if (header.task != task || header.number != number) return std::nullopt;
    const std::optional<std::size_t> maxLength = maxLengthOf(header.outcome, maxBodyLength);
    if (!maxLength || header.bodyLength > *maxLength) return std::nullopt;
    if (header.outcome == ReplyOutcome::atWork && header.bodyLength != kReportSize) {
        return std::nullopt;
    }
    return header;
}

std::size_t maxBodyLength(ReaderTask task, PixelSize box)
{
    if (asksForProperties(task)) {
        return kPropertyHeaderSize + kSourcesSize + 8 * kNumberCount +
               kTextCount * (4 + 2 * kMaxTextLength);
    }
    if (!isPreview(task)) return 0;
    const std::size_t pixels = static_cast<std::size_t>(box.width) * box.height;
    return kPreviewHeaderSize + kMaxUriLength + kMaxTimeLength + 4 * pixels;
}

std::array<std::uint8_t, kReportSize> encodeReport(std::chrono::nanoseconds processorTime)
{
    MessageWriter message;
    message.put64(static_cast<std::uint64_t>(processorTime.count()));
    std::array<std::uint8_t, kReportSize> bytes{};
    std::copy(message.bytes().begin(), message.bytes().end(), bytes.begin());
    return bytes;
}

std::chrono::nanoseconds decodeReport(ByteView body)
{
    constexpr std::uint64_t kMaxTime = std::chrono::nanoseconds(std::chrono::hours(24)).count();
    return std::chrono::nanoseconds(std::min(MessageReader(body).get64(), kMaxTime));
}

std::vector<std::uint8_t> encodeProperties(const PictureProperties& properties)
{
    std::uint32_t flags = (properties.hasGps ? kHasGps : 0) | (properties.hasIptc ? kHasIptc : 0);
    std::uint32_t bit = 1;
    MessageWriter values;
    visitValues(properties, [&](bool hasHome, const auto& value) {
        if (hasHome && canBeSent(value)) {
            flags |= bit;
            putValue(&values, *value);
        }
        bit <<= 1;
    });
    if (properties.taken && properties.isTakenBySatellites) flags |= kTakenBySatellites;
    if (properties.sources != ValueSources{}) {
        flags |= kHasSources;
        values.put64(numberOfSources(properties.sources));
    }
    MessageWriter message;
    message.put32(flags);
    std::vector<std::uint8_t> bytes = std::move(message.bytes());
    bytes.insert(bytes.end(), values.bytes().begin(), values.bytes().end());
    return bytes;
}

std::optional<PictureProperties> decodeProperties(ByteView body)
{
    MessageReader message(body);
    PictureProperties properties;
    const std::uint32_t flags = message.get32();
    properties.hasGps = (flags & kHasGps) != 0;
    properties.hasIptc = (flags & kHasIptc) != 0;
    properties.isTakenBySatellites = (flags & kTakenBySatellites) != 0;
    constexpr std::uint32_t kKnown =
        kHasGps | kHasIptc | kHasSources | kTakenBySatellites | kValues;
    bool isSound = (flags & ~kKnown) == 0;
    std::uint32_t bit = 1;
    visitValues(properties, [&](bool hasHome, auto& value) {
        const bool isThere = (flags & bit) != 0;
        bit <<= 1;
        if (!isSound || !isThere) return;
        isSound = hasHome && getValue(&message, &value);
    });
    isSound = isSound && (properties.taken || !properties.isTakenBySatellites);
    if (isSound && (flags & kHasSources) != 0) {
        const std::optional<ValueSources> sources = sourcesOfNumber(message.get64());
        isSound = sources.has_value();
        if (sources) properties.sources = *sources;
    }
    if (!isSound || !message.isComplete()) return std::nullopt;
    return properties;
}

std::vector<std::uint8_t> encodePreview(const PreviewReply& reply)
{
    const std::string_view uri = std::string_view(reply.uri).substr(0, kMaxUriLength);
    const std::string_view mtime = std::string_view(reply.mtime).substr(0, kMaxTimeLength);
    MessageWriter message;
    message.bytes().reserve(kPreviewHeaderSize + uri.size() + mtime.size() +
                            4 * reply.image.pixels.size());
    message.put32(static_cast<std::uint32_t>(reply.image.width));
    message.put32(static_cast<std::uint32_t>(reply.image.height));
    message.put16(reply.wasDecoded ? 1 : 0);
    message.put16(static_cast<std::uint16_t>(mtime.size()));
    message.put32(static_cast<std::uint32_t>(uri.size()));
    message.putBytes(uri);
    message.putBytes(mtime);
    if constexpr (std::endian::native == std::endian::little) {
        message.putBytes({reinterpret_cast<const char*>(reply.image.pixels.data()),
                          4 * reply.image.pixels.size()});
    } else {
        for (const std::uint32_t pixel : reply.image.pixels) message.put32(pixel);
    }
    return std::move(message.bytes());
}

std::optional<PreviewReply> decodePreview(ByteView body, PreviewKind kind, PixelSize box)
{
    MessageReader message(body);
    const std::uint32_t width = message.get32();
    const std::uint32_t height = message.get32();
    const std::uint16_t wasDecoded = message.get16();
    const std::uint16_t mtimeLength = message.get16();
    const std::uint32_t uriLength = message.get32();
    if (message.hasFailed() || !isSide(box.width) || !isSide(box.height)) return std::nullopt;
    if (width < 1 || width > static_cast<std::uint32_t>(box.width)) return std::nullopt;
    if (height < 1 || height > static_cast<std::uint32_t>(box.height)) return std::nullopt;
    if (wasDecoded > 1 || uriLength > kMaxUriLength || mtimeLength > kMaxTimeLength) {
        return std::nullopt;
    }
    const bool namesFile = uriLength != 0 || mtimeLength != 0;
    if (kind != PreviewKind::cachedThumbnail && namesFile) return std::nullopt;

    PreviewReply reply;
    reply.wasDecoded = wasDecoded == 1;
    reply.uri = textOf(message.getBytes(uriLength));
    reply.mtime = textOf(message.getBytes(mtimeLength));
    const std::size_t pixelCount = std::size_t{width} * height;
    if (message.hasFailed() || message.bytesLeft() != 4 * pixelCount) return std::nullopt;
    reply.image.width = static_cast<std::int32_t>(width);
    reply.image.height = static_cast<std::int32_t>(height);
    reply.image.pixels.reserve(pixelCount);
    for (std::size_t i = 0; i < pixelCount; i++) {
        reply.image.pixels.push_back(mendedPixel(message.get32()));
    }
    return reply;
}

}  // namespace pinorama
