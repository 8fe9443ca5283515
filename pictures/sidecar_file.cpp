#include "pictures/sidecar_file.h"

#include <string_view>

namespace pinorama {
namespace {
// Lower case, then upper case, then what nobody writes on purpose.
constexpr std::string_view kEndings[] = {".xmp", ".XMP", ".Xmp", ".xMp",
                                         ".xmP", ".XMp", ".XmP", ".xMP"};

PictureFile openWithEnding(const std::string& start)
{
    for (const std::string_view ending : kEndings) {
        PictureFile file(start + std::string(ending));
        if (file.isOpen()) return file;
    }
    return {};
}
}  // namespace

PictureFile openSidecar(const std::string& path)
{
    PictureFile file = openWithEnding(path);
    if (file.isOpen()) return file;
    const std::size_t name = path.rfind('/') + 1;  // 0 without a folder
    const std::size_t dot = path.rfind('.');
    const bool hasExtension = dot != path.npos && dot > name;
    return hasExtension ? openWithEnding(path.substr(0, dot)) : PictureFile();
}

}  // namespace pinorama
