#include "previews/png_writer.h"

#include <QImage>

#include <csetjmp>
#include <new>

#include <png.h>

namespace pinorama {
namespace {
constexpr int kBitDepth = 8;
constexpr int kCompression = 6;  // of 9, as zlib does by default

// libpng reports errors by a jump that leaves its functions, to the setjmp in writeFile; without a
// function of its own it would print them as well.
[[noreturn]] void leave(png_structp png, png_const_charp /*message*/)
{
    png_longjmp(png, 1);
}

void passOver(png_structp /*png*/, png_const_charp /*warning*/) {}

void append(png_structp png, png_bytep bytes, std::size_t count)
{
    auto* file = static_cast<QByteArray*>(png_get_io_ptr(png));
    bool isAppended = false;
    try {
        file->append(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(count));
        isAppended = true;
    } catch (const std::bad_alloc&) {  // must not get into libpng, which is C
    }
    if (!isAppended) leave(png, nullptr);
}

void flush(png_structp /*png*/) {}

struct Writer {
    Writer() : png(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, leave, passOver))
    {
        if (png != nullptr) info = png_create_info_struct(png);
    }
    ~Writer() { png_destroy_write_struct(&png, &info); }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    png_structp png;
    png_infop info = nullptr;
};

// libpng keeps copies of the texts, and changes none although it asks for pointers that could.
std::vector<png_text> chunksOf(const std::vector<std::pair<std::string, std::string>>& texts)
{
    std::vector<png_text> chunks;
    for (const auto& [keyword, text] : texts) {
        png_text chunk = {};
        chunk.compression = PNG_TEXT_COMPRESSION_NONE;
        chunk.key = const_cast<char*>(keyword.c_str());
        chunk.text = const_cast<char*>(text.c_str());
        chunk.text_length = text.size();
        chunks.push_back(chunk);
    }
    return chunks;
}

// False when libpng fails. The jump out of libpng ends no object's life here: what it passes over
// belongs to the caller.
bool writeFile(const Writer& writer, const QImage& pixels, const std::vector<png_text>& chunks)
{
    png_structp png = writer.png;
    if (setjmp(png_jmpbuf(png)) != 0) return false;
    png_set_IHDR(png, writer.info, static_cast<png_uint_32>(pixels.width()),
                 static_cast<png_uint_32>(pixels.height()), kBitDepth,
                 pixels.hasAlphaChannel() ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_compression_level(png, kCompression);
    // Photographs are smooth; trying every filter on each row gains little and takes longer.
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_PAETH);
    png_set_text(png, writer.info, chunks.data(), static_cast<int>(chunks.size()));
    png_write_info(png, writer.info);
    for (int y = 0; y < pixels.height(); ++y) png_write_row(png, pixels.constScanLine(y));
    png_write_end(png, nullptr);
    return true;
}
}  // namespace

QByteArray cuMakePNG(const QImage& image,
                     const std::vector<std::pair<std::string, std::string>>& texts)
{
    if (image.isNull()) return {};
    const QImage pixels = image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_RGBA8888
                                                                        : QImage::Format_RGB888);
    if (pixels.isNull()) return {};

    const std::vector<png_text> chunks = chunksOf(texts);
    QByteArray file;
    const Writer writer;
    if (writer.info == nullptr) return {};
    png_set_write_fn(writer.png, &file, append, flush);
    return writeFile(writer, pixels, chunks) ? file : QByteArray();
}

}  // namespace pinorama
