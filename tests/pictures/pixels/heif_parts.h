// Parts of HEIF pictures to be previewed, and their previews.

#pragma once

#include "pictures/pixels/heif_preview.h"
#include "tests/support/byte_views.h"
#include "tests/support/heif_pictures.h"
#include "tests/support/jpeg_pictures.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace test {

inline const std::vector<std::uint32_t> kCorners = {kRed, kGreen, kBlue, kYellow};

inline std::optional<pinorama::Preview> previewOf(const std::string& bytes, int width = 128,
                                                  int height = 128)
{
    pinorama::MemoryByteSource source(viewOf(bytes));
    return pinorama::makeMorePreview(source, width, height);
}

inline HeifPart jpegPart(int width, int height,
                         const std::vector<std::uint32_t>& corners = kCorners)
{
    return {"jpeg", jpegOfQuarters(width, height,
                                   {.corners = {corners[0], corners[1], corners[2], corners[3]}})};
}

inline HeifPart thumbnail(HeifPart part)
{
    part.reference = "thmb";
    part.to = {1};
    return part;
}

// A picture that nothing here can decode, with thumbnails.
inline std::string unknownPicture(int width, int height, const std::vector<HeifPart>& thumbnails,
                                  const std::vector<std::string>& more = {})
{
    std::vector<HeifPart> parts = {{"????", "bytes", {heifSize(width, height)}}};
    for (const std::string& property : more) parts[0].properties.push_back(property);
    for (const HeifPart& part : thumbnails) parts.push_back(thumbnail(part));
    return heifPicture(parts);
}

}  // namespace test
