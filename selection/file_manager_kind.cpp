#include "selection/file_manager_kind.h"

#include "selection/managers/kinds.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <string>

namespace pinorama {
namespace {

// The kernel keeps 15 bytes of a process name; all of these are shorter.
constexpr std::array kKinds = {&kNautilus, &kNemo,      &kNemoDesktop, &kCaja,    &kThunar,
                               &kPCManFM,  &kPCManFMQt, &kDolphin,     &kSpaceFM, &kKrusader};

bool equalIgnoringCase(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
        return std::tolower(x) == std::tolower(y);
    });
}
}  // namespace

const FileManagerKind* fileManagerKind(std::string_view process)
{
    const auto* kind =
        std::find_if(kKinds.begin(), kKinds.end(), [process](const FileManagerKind* candidate) {
            return equalIgnoringCase(candidate->process, process);
        });
    return kind == kKinds.end() ? nullptr : *kind;
}

const FileManagerKind* fileManagerKindOfProcess(pid_t process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/comm");
    std::string name;
    std::getline(file, name);
    return fileManagerKind(name);
}

}  // namespace pinorama
