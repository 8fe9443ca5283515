// pinorama-info: what the window shows, on a terminal and for many files.

#include "cli/file_report.h"
#include "cli/json_line.h"
#include "cli/options.h"
#include "cli/printable.h"
#include "cli/text_block.h"
#include "lib/ui/application_bundle.h"
#include "platform/pictures/sandboxed_properties.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

namespace {
constexpr int kSuccess = 0;
constexpr int kSomeFileFailed = 1;
constexpr int kWrongUsage = 2;

void complain(const std::string& what)
{
    std::string line = "pinorama-info: ";
    appendPrintable(what, &line);
    line += '\n';
    std::fputs(line.c_str(), stderr);
}

bool print(const std::string& text)
{
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
}

// Prints the reports of all files, each as soon as it is there.
int reportOnFiles(const Options& options)
{
    int status = kSuccess;
    bool isFirst = true;
    for (const std::string& path : options.files) {
        const FileReport report = reportOnFile(path);
        std::string text;
        if (options.json) {
            appendJsonLine(report, &text);
        } else if (report.error.empty()) {
            if (!isFirst) text += '\n';
            isFirst = false;
            appendTextBlock(report, &text);
        }
        if (!print(text)) break;
        if (!report.error.empty()) {
            complain(report.path + ": " + report.error);
            status = kSomeFileFailed;
        }
    }
    return status;
}
}  // namespace

int main(int argc, char** argv)
{
    Options options;
    std::string error;
    if (!readOptions(argc, argv, &options, &error)) {
        complain(error);
        std::fputs(shortUsage().c_str(), stderr);
        return kWrongUsage;
    }

    int status = kSuccess;
    if (options.help) {
        print(fullUsage());
    } else if (options.version) {
        print("pinorama-info " PINORAMA_VERSION "\n");
    } else {
        iuRegisterApplicationBundle();
        platform::installPropertySource(platform::makeSandboxedPropertySource());
        status = reportOnFiles(options);
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        complain(std::string("standard output: ") + std::strerror(errno));
        return kSomeFileFailed;
    }
    return status;
}
