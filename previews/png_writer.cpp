#include "previews/png_writer.h"

#include <QImage>

#include <array>
#include <cstdint>
#include <cstdlib>

namespace pinorama {
namespace {
constexpr std::uint8_t kSignature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr char kBitDepth = 8;
constexpr char kColour = 2;
constexpr char kColourAndAlpha = 6;
constexpr char kPaethFilter = 4;
constexpr int kCompression = 6;
constexpr qsizetype kLengthOfCompressed = 4;  // what qCompress puts before the zlib stream

constexpr std::array<std::uint32_t, 256> makeChecksums()
{
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        std::uint32_t sum = byte;
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum & 1) != 0 ? 0xEDB88320U ^ (sum >> 1) : sum >> 1;
        table[byte] = sum;
    }
    return table;
}

std::uint32_t checksum(const QByteArray& bytes)
{
    static constexpr std::array<std::uint32_t, 256> table = makeChecksums();
    std::uint32_t sum = 0xFFFFFFFFU;
    for (const char c : bytes) sum = table[(sum ^ static_cast<std::uint8_t>(c)) & 255] ^ (sum >> 8);
    return ~sum;
}

void appendNumber(QByteArray& bytes, std::uint32_t number)
{
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift);
}

void appendChunk(QByteArray& file, const char* type, const QByteArray& content)
{
    const QByteArray body = type + content;
    appendNumber(file, static_cast<std::uint32_t>(content.size()));
    file += body;
    appendNumber(file, checksum(body));
}

int paeth(int left, int above, int aboveLeft)
{
    const int guess = left + above - aboveLeft;
    const int toLeft = std::abs(guess - left);
    const int toAbove = std::abs(guess - above);
    const int toAboveLeft = std::abs(guess - aboveLeft);
    if (toLeft <= toAbove && toLeft <= toAboveLeft) return left;
    return toAbove <= toAboveLeft ? above : aboveLeft;
}

// Each row as its differences from what its neighbours let one expect.
QByteArray filteredRows(const QImage& image, int channels)
{
    const int length = image.width() * channels;
    const std::vector<std::uint8_t> nothing(static_cast<std::size_t>(length), 0);
    const std::uint8_t* above = nothing.data();
    QByteArray rows(qsizetype(length + 1) * image.height(), Qt::Uninitialized);
    char* out = rows.data();
    for (int y = 0; y < image.height(); ++y) {
        const std::uint8_t* row = image.constScanLine(y);
        *out++ = kPaethFilter;
        for (int i = 0; i < length; ++i) {
            const bool isFirst = i < channels;
            const int expected =
                paeth(isFirst ? 0 : row[i - channels], above[i], isFirst ? 0 : above[i - channels]);
            *out++ = static_cast<char>(row[i] - expected);
        }
        above = row;
    }
    return rows;
}
}  // namespace

QByteArray cuMakePNG(const QImage& image,
                     const std::vector<std::pair<std::string, std::string>>& texts)
{
    if (image.isNull()) return {};
    const bool hasAlpha = image.hasAlphaChannel();
    const QImage pixels =
        image.convertToFormat(hasAlpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    if (pixels.isNull()) return {};

    QByteArray file(reinterpret_cast<const char*>(kSignature), sizeof kSignature);
    QByteArray header;
    appendNumber(header, static_cast<std::uint32_t>(pixels.width()));
    appendNumber(header, static_cast<std::uint32_t>(pixels.height()));
    header += kBitDepth;
    header += hasAlpha ? kColourAndAlpha : kColour;
    header += QByteArray(3, '\0');  // the only methods of compressing, filtering; not interlaced
    appendChunk(file, "IHDR", header);
    for (const auto& [keyword, text] : texts) {
        QByteArray content(keyword.data(), static_cast<qsizetype>(keyword.size()));
        content += '\0';
        appendChunk(file, "tEXt", content.append(text.data(), static_cast<qsizetype>(text.size())));
    }
    const QByteArray rows = filteredRows(pixels, hasAlpha ? 4 : 3);
    appendChunk(file, "IDAT", qCompress(rows, kCompression).mid(kLengthOfCompressed));
    appendChunk(file, "IEND", {});
    return file;
}

}  // namespace pinorama
