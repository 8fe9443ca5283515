#include "cli/accepted_names.h"

#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"
#include "location/accepted_types.h"
#include "location/picture_source.h"

namespace pinorama {
namespace {
constexpr std::size_t kMaxKnownExtensions = 64;  // extensions; names can have any number of them
}  // namespace

bool AcceptedNames::accepts(std::string_view path)
{
    while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
    const std::string_view name = path.substr(path.rfind('/') + 1);
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0) return false;

    const std::string_view extension = name.substr(dot);
    const auto found = known_.find(extension);
    if (found != known_.end()) return found->second;
    if (known_.size() == kMaxKnownExtensions) known_.clear();
    const StringHolder example(createPathText("a" + std::string(extension)));
    const bool isAccepted =
        gpsIsAcceptedPath(example.get()) || (readsMoreKinds() && isPathOfMoreKinds(example.get()));
    return known_.emplace(extension, isAccepted).first->second;
}

}  // namespace pinorama
