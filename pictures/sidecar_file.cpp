#include "pictures/sidecar_file.h"

#include <string_view>

namespace pinorama {
namespace {
// Lower case, then upper case, then what nobody writes on purpose.
constexpr std::string_view kEndings[] = {".xmp", ".XMP", ".Xmp", ".xMp",
                                         ".xmP", ".XMp", ".XmP", ".xMP"};

void addWithEndings(const std::string& start, std::vector<std::string>* paths)
{
    for (const std::string_view ending : kEndings) paths->push_back(start + std::string(ending));
}
}  // namespace

std::vector<std::string> sidecarPaths(const std::string& path)
{
    std::vector<std::string> paths;
    addWithEndings(path, &paths);
    const std::size_t name = path.rfind('/') + 1;  // 0 without a folder
    const std::size_t dot = path.rfind('.');
    if (dot != path.npos && dot > name) addWithEndings(path.substr(0, dot), &paths);
    return paths;
}

PictureFile openSidecar(const std::string& path)
{
    for (const std::string& sidecar : sidecarPaths(path)) {
        PictureFile file(sidecar);
        if (file.isOpen()) return file;
    }
    return {};
}

}  // namespace pinorama
