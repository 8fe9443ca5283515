#include "app/command_line.h"

#include "base/file_uri.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

namespace pinorama {
namespace {
struct Flag {
    std::string_view name;
    std::string_view shortName;
    bool CommandLine::*field;
};

struct Setting {
    std::string_view name;
    std::optional<std::string> CommandLine::*field;
};

constexpr std::array kFlags = {
    Flag{"--help", "-h", &CommandLine::help},
    Flag{"--version", "-v", &CommandLine::version},
    Flag{"--service", "", &CommandLine::service},
};

constexpr std::array kSettings = {
    Setting{"--service-text", &CommandLine::serviceText},
    Setting{"--action", &CommandLine::action},
    Setting{"--show", &CommandLine::show},
    Setting{"--print-and-save", &CommandLine::printAndSave},
};

constexpr std::array kActions = {"home", "donate", "quit"};

std::string absolutePath(const std::string& argument)
{
    if (argument.starts_with("file://")) {
        if (const auto path = pathOfFileURI(argument)) return *path;
    }
    std::string_view relative = argument;
    while (relative.starts_with("./")) relative.remove_prefix(2);
    if (relative.starts_with('/')) return argument;
    std::error_code error;
    const std::string folder = std::filesystem::current_path(error).string();
    return error ? argument : folder + (folder == "/" ? "" : "/") + std::string(relative);
}
}  // namespace

std::optional<CommandLine> parseCommandLine(const std::vector<std::string>& arguments,
                                            std::string* outError)
{
    CommandLine line;
    bool onlyPaths = false;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (onlyPaths || !argument->starts_with('-') || *argument == "-") {
            if (!argument->empty()) line.paths.push_back(absolutePath(*argument));
            continue;
        }
        if (*argument == "--") {
            onlyPaths = true;
            continue;
        }
        const auto flag = std::find_if(kFlags.begin(), kFlags.end(), [&](const Flag& known) {
            return *argument == known.name || *argument == known.shortName;
        });
        if (flag != kFlags.end()) {
            line.*flag->field = true;
            continue;
        }
        const std::size_t equals = argument->find('=');
        const std::string name = argument->substr(0, equals);
        const auto setting = std::find_if(kSettings.begin(), kSettings.end(),
                                          [&](const Setting& known) { return name == known.name; });
        if (setting == kSettings.end()) {
            *outError = "unknown option '" + *argument + "'";
            return std::nullopt;
        }
        if (equals != std::string::npos) {
            line.*setting->field = argument->substr(equals + 1);
        } else if (++argument != arguments.end()) {
            line.*setting->field = *argument;
        } else {
            *outError = "option '" + name + "' needs a value";
            return std::nullopt;
        }
    }
    if (line.show && line.show->empty()) {
        *outError = "option '--show' needs the name of a file";
        return std::nullopt;
    }
    if (line.show) line.show = absolutePath(*line.show);
    if (line.action &&
        std::find(kActions.begin(), kActions.end(), *line.action) == kActions.end()) {
        *outError = "unknown action '" + *line.action + "'";
        return std::nullopt;
    }
    return line;
}

std::string shortUsage()
{
    return "usage: pinorama [OPTION...] [PICTURE...]\n"
           "       pinorama --help | --version\n";
}

std::string usageText()
{
    return shortUsage() +
           "\nShows where the picture selected in the file manager was taken. Of several pictures "
           "on the\ncommand line it shows the last one. If the window is already open, it shows "
           "the picture there.\n"
           "\n"
           "  --service-text TEXT    use TEXT, unchanged, as the path of a picture\n"
           "  --service              wait for requests on the session bus, without a window\n"
           "  --action NAME          home, donate: open that web page; quit: end the running "
           "program\n"
           "  --show FILE            show FILE in the open window and leave the window where it "
           "is;\n"
           "                         without an open window, do nothing\n"
           "  --print-and-save FILE  print what the window shows, save an image of it to FILE, and "
           "exit\n"
           "  -h, --help             print this text\n"
           "  -v, --version          print the version\n"
           "\nExit status: 0 on success, 1 on failure, 2 for wrong usage.\n";
}

}  // namespace pinorama
