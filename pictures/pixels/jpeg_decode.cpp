#include "pictures/pixels/jpeg_decode.h"

#include "pictures/jpeg_segments.h"
#include "pictures/pixels/colour_profile.h"

#include <cstdio>  // jpeglib.h needs it before itself

#include <jerror.h>
#include <jpeglib.h>

#include <algorithm>
#include <bit>
#include <csetjmp>
#include <iterator>
#include <vector>

namespace pinorama {
namespace {
constexpr long kMaxMemory = 320L << 20;  // bytes; a progressive picture of 100 megapixels
constexpr int kMaxScans = 64;            // passes; real progressive pictures have about ten
constexpr std::int64_t kMaxPixels = std::int64_t{1} << 30;
constexpr std::int64_t kMaxWork = std::int64_t{1} << 32;  // pixels times passes
constexpr int kCoarsestScale = 8;                         // the picture at 1/8
constexpr std::uint32_t kGray = 0xff808080;               // what stands for missing rows
constexpr std::uint32_t kOpaque = 0xff000000;

// libjpeg-turbo writes our pixels itself when it knows their byte order.
constexpr J_COLOR_SPACE kPixelOrder =
    std::endian::native == std::endian::little ? JCS_EXT_BGRA : JCS_EXT_ARGB;

// libjpeg reports a broken stream by a call that must not return, and a stream that ends too early
// by a warning.
struct ErrorManager {
    jpeg_error_mgr base;
    std::jmp_buf leave;
    bool isCutOff;       // the picture's data ended before the picture
    bool isCutAtTheTop;  // ... before its first blocks were complete
};

[[noreturn]] void leaveOnError(j_common_ptr info)
{
    std::longjmp(reinterpret_cast<ErrorManager*>(info->err)->leave, 1);
}

void keepSilent(j_common_ptr /*info*/) {}

void noteWarning(j_common_ptr info, int level)
{
    ErrorManager* errors = reinterpret_cast<ErrorManager*>(info->err);
    const bool isWarning = level < 0;
    if (!isWarning || errors->isCutOff || errors->base.msg_code != JWRN_HIT_MARKER) return;

    const jpeg_decompress_struct* decoder = reinterpret_cast<j_decompress_ptr>(info);
    if (decoder->unread_marker != JPEG_EOI) return;  // damage in the middle: it goes on after it
    errors->isCutOff = true;
    errors->isCutAtTheTop = decoder->input_scan_number <= 1 && decoder->input_iMCU_row == 0;
}

// Feeds libjpeg straight from the views of a block.
struct SourceManager {
    jpeg_source_mgr base;
    ByteBlock bytes;
    std::uint64_t position;
};

SourceManager* managerOf(j_decompress_ptr info)
{
    return reinterpret_cast<SourceManager*>(info->src);
}

void ignoreSource(j_decompress_ptr /*info*/) {}

boolean fillBuffer(j_decompress_ptr info)
{
    // What the decoder takes for the end of a picture that has none; it fills up the rest.
    static constexpr JOCTET kEnd[] = {0xff, JPEG_EOI};

    SourceManager* manager = managerOf(info);
    const std::uint64_t left = manager->bytes.length() - manager->position;
    const ByteView view = manager->bytes.view(
        manager->position, static_cast<std::size_t>(std::min<std::uint64_t>(left, kMaxViewLength)));
    manager->position += view.size();
    manager->base.next_input_byte = view.empty() ? kEnd : view.data();
    manager->base.bytes_in_buffer = view.empty() ? std::size(kEnd) : view.size();
    return TRUE;
}

void skipBytes(j_decompress_ptr info, long count)
{
    SourceManager* manager = managerOf(info);
    if (count <= 0) return;
    const std::size_t inBuffer =
        std::min(manager->base.bytes_in_buffer, static_cast<std::size_t>(count));
    manager->base.next_input_byte += inBuffer;
    manager->base.bytes_in_buffer -= inBuffer;
    const std::uint64_t beyond = static_cast<std::uint64_t>(count) - inBuffer;
    manager->position += std::min(beyond, manager->bytes.length() - manager->position);
}

// Everything that is alive while a stream is decoded. An error leaves in one jump, which would lose
// what a function keeps in its own variables.
struct Decoding {
    ErrorManager errors = {};
    SourceManager source = {};
    jpeg_decompress_struct info = {};
    PixelSize wanted;
    std::vector<JSAMPLE> inks;          // one row of a four-colour picture
    std::vector<std::uint32_t> pixels;  // one row
    std::optional<RowScaler> scaler;

    explicit Decoding(const ByteBlock& jpeg)
    {
        info.err = jpeg_std_error(&errors.base);
        errors.base.error_exit = leaveOnError;
        errors.base.output_message = keepSilent;
        errors.base.emit_message = noteWarning;
        source.base.init_source = ignoreSource;
        source.base.fill_input_buffer = fillBuffer;
        source.base.skip_input_data = skipBytes;
        source.base.resync_to_restart = jpeg_resync_to_restart;
        source.base.term_source = ignoreSource;
        source.bytes = jpeg;
    }
    Decoding(const Decoding&) = delete;
    Decoding& operator=(const Decoding&) = delete;
    ~Decoding() { jpeg_destroy_decompress(&info); }
};

PixelSize sizeOf(const jpeg_decompress_struct& info)
{
    return {static_cast<std::int32_t>(info.image_width),
            static_cast<std::int32_t>(info.image_height)};
}

PixelSize outputSizeOf(const jpeg_decompress_struct& info)
{
    return {static_cast<std::int32_t>(info.output_width),
            static_cast<std::int32_t>(info.output_height)};
}

bool readHeader(Decoding* decoding)
{
    jpeg_decompress_struct* info = &decoding->info;
    jpeg_create_decompress(info);
    info->mem->max_memory_to_use = kMaxMemory;
    info->src = &decoding->source.base;
    return jpeg_read_header(info, TRUE) == JPEG_HEADER_OK;
}

// Chooses the coarsest scale that still covers `wanted`, and the quick ways where a preview shows
// no difference.
void chooseScale(jpeg_decompress_struct* info, PixelSize wanted)
{
    info->scale_num = 1;
    for (info->scale_denom = kCoarsestScale; info->scale_denom > 1; info->scale_denom /= 2) {
        jpeg_calc_output_dimensions(info);
        const PixelSize output = outputSizeOf(*info);
        if (output.width >= wanted.width && output.height >= wanted.height) break;
    }
    const bool hasInks = info->jpeg_color_space == JCS_CMYK || info->jpeg_color_space == JCS_YCCK;
    info->out_color_space = hasInks ? JCS_CMYK : kPixelOrder;
    info->dct_method = JDCT_IFAST;
    info->do_fancy_upsampling = FALSE;
    info->do_block_smoothing = FALSE;
}

// True when the mean of every block, all that a picture at 1/8 is made of, is known exactly.
bool hasAllMeans(const jpeg_decompress_struct& info)
{
    for (int i = 0; i < info.num_components; i++) {
        if (info.coef_bits[i][0] != 0) return false;
    }
    return true;
}

// Reads the scans of a picture that comes in several until the preview is complete. False when
// there are more of them than a picture ever needs: each costs a pass over the whole picture.
bool readScans(jpeg_decompress_struct* info)
{
    const bool needsMeansOnly = info->scale_denom == kCoarsestScale && info->coef_bits != nullptr;
    const std::int64_t pixelCount = std::int64_t{info->image_width} * info->image_height;
    while (!jpeg_input_complete(info)) {
        const int event = jpeg_consume_input(info);
        if (event == JPEG_REACHED_EOI) break;
        if (event == JPEG_SCAN_COMPLETED && needsMeansOnly && hasAllMeans(*info)) break;
        if (info->input_scan_number > kMaxScans) return false;
        if (info->input_scan_number * pixelCount > kMaxWork) return false;
    }
    return true;
}

bool startDecoding(Decoding* decoding, PixelSize box)
{
    jpeg_decompress_struct* info = &decoding->info;
    if (!readHeader(decoding)) return false;
    if (std::int64_t{info->image_width} * info->image_height > kMaxPixels) return false;
    decoding->wanted = fitInto(sizeOf(*info), box);
    if (decoding->wanted.width == 0) return false;
    chooseScale(info, decoding->wanted);

    info->buffered_image = jpeg_has_multiple_scans(info);
    if (!jpeg_start_decompress(info)) return false;
    if (!info->buffered_image) return true;
    return readScans(info) && jpeg_start_output(info, info->input_scan_number);
}

// Ink values to pixels. Adobe's programs store what is left of the paper instead of the ink.
void convertInks(const std::vector<JSAMPLE>& inks, bool isInverted,
                 std::vector<std::uint32_t>* pixels)
{
    const JSAMPLE* next = inks.data();
    for (std::uint32_t& pixel : *pixels) {
        std::uint32_t left[4];
        for (std::uint32_t& value : left) {
            value = isInverted ? *next : 255u - *next;
            next++;
        }
        const std::uint32_t light = left[3];
        pixel = kOpaque | (left[0] * light / 255) << 16 | (left[1] * light / 255) << 8 |
                (left[2] * light / 255);
    }
}

// Decodes the next row and gives it to the scaler.
bool decodeRow(Decoding* decoding, RowScaler* scaler)
{
    jpeg_decompress_struct* info = &decoding->info;
    const bool hasInks = info->out_color_space == JCS_CMYK;
    JSAMPROW row =
        hasInks ? decoding->inks.data() : reinterpret_cast<JSAMPROW>(decoding->pixels.data());
    if (jpeg_read_scanlines(info, &row, 1) != 1) return false;
    if (hasInks) convertInks(decoding->inks, info->saw_Adobe_marker != 0, &decoding->pixels);
    scaler->addRow(decoding->pixels.data());
    return true;
}

// Converts the colours of the image to sRGB, where one of the streams has a profile.
void convertColours(const ByteBlock& jpeg, const ByteBlock& whole, PixelImage* image)
{
    std::vector<std::uint8_t> bytes = findJpegProfile(jpeg, kMaxProfileLength);
    if (bytes.empty()) bytes = findJpegProfile(whole, kMaxProfileLength);
    if (bytes.empty()) return;
    if (const auto profile = ColourProfile::fromIcc(ByteView(bytes))) {
        profile->convertToSrgb(*image);
    }
}

void decodeRows(Decoding* decoding, RowScaler* scaler)
{
    const jpeg_decompress_struct& info = decoding->info;
    while (scaler->rowsMissing() > 0 && decodeRow(decoding, scaler)) {
        // The decoder would make up every row that is missing.
        if (decoding->errors.isCutOff && !info.buffered_image) return;
    }
}
}  // namespace

PixelSize jpegSize(const ByteBlock& jpeg)
{
    Decoding decoding(jpeg);
    if (setjmp(decoding.errors.leave) != 0) return {};
    if (!readHeader(&decoding)) return {};
    return sizeOf(decoding.info);
}

std::optional<PixelImage> decodeJpeg(const ByteBlock& jpeg, PixelSize box, const ByteBlock& whole)
{
    Decoding decoding(jpeg);
    if (setjmp(decoding.errors.leave) == 0) {
        if (!startDecoding(&decoding, box)) return std::nullopt;
        const PixelSize output = outputSizeOf(decoding.info);
        decoding.pixels.resize(output.width);
        if (decoding.info.out_color_space == JCS_CMYK) {
            decoding.inks.resize(std::size_t{4} * output.width);
        }
        decodeRows(&decoding, &decoding.scaler.emplace(output, decoding.wanted));
    }
    // A stream that broke off inside its picture shows what there was of it.
    if (!decoding.scaler || decoding.errors.isCutAtTheTop) return std::nullopt;
    PixelImage image = decoding.scaler->take(kGray);
    if (decoding.info.out_color_space != JCS_CMYK) convertColours(jpeg, whole, &image);
    return image;
}

}  // namespace pinorama
