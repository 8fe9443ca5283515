#include "cli/info_program.h"

#include "base/child_process.h"
#include "base/file_attributes.h"
#include "base/resource_folder.h"
#include "cli/accepted_names.h"
#include "cli/batch_run.h"
#include "cli/diagnostic.h"
#include "cli/kml_export.h"
#include "globe/web_services.h"
#include "lib/ui/application_bundle.h"
#include "location/picture_source.h"
#include "reader/sandbox_locks.h"
#include "reader/sandboxed_properties.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace pinorama {
namespace {
void printDiagnostic(const std::string& what)
{
    std::string line;
    appendDiagnostic(what, &line);
    std::fputs(line.c_str(), stderr);
}

// What stands around pinorama-reader here besides the filter of system calls, without which it does
// not start.
std::string sandboxLines()
{
    const SandboxLocks locks = findSandboxLocks();
    const std::string landlock =
        locks.landlock > 0 ? "version " + std::to_string(locks.landlock) : std::string("none");
    const char* namespaces = locks.namespaces ? "yes" : "none, users may not make them here";
    return "Landlock: " + landlock + "\nnamespaces: " + namespaces + "\n";
}

// Occupies the descriptors of closed standard streams, so that no file of ours gets one of them.
// The direction is the wrong one, so using such a stream still fails.
void holdStandardStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) >= 0) continue;
        (void)open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

int print(const std::string& text)
{
    std::fputs(text.c_str(), stdout);
    if (std::fflush(stdout) == 0) return kSuccess;
    printDiagnostic(std::string("standard output: ") + std::strerror(errno));
    return kSomeFileFailed;
}

int exportOne(const Options& options)
{
    FileReporter reporter({.output = options.output});
    const std::string problem = exportPicture(&reporter, options.files.front(), options.kmlPath);
    if (problem.empty()) return kSuccess;
    printDiagnostic(problem);
    return kSomeFileFailed;
}

// Without a name after --kml, the first picture would become the document.
bool wouldReplaceAPicture(const std::string& path)
{
    const auto attributes = attributesOf(path);
    return attributes && attributes->isRegular && AcceptedNames().accepts(path);
}

int report(const Options& options, const Search& search)
{
    StringHolder serviceTemplate;
    if (options.output == Output::webAddress) {
        const StringHolder title(appCopyServiceTitle(options.webService));
        serviceTemplate = StringHolder(appCopyServiceTemplate(title.get()));
        if (!title || !serviceTemplate) {
            printDiagnostic("there is no web service " + std::to_string(options.webService));
            return kWrongUsage;
        }
    }
    if (showsFields(options.output) && !prepareTexts()) {
        printDiagnostic(shownPath(resourceFolder() + "/strings") +
                        ": the program's texts are missing");
        return kSomeFileFailed;
    }
    if (options.needsSearchProgram()) return search(options, std::move(serviceTemplate));
    return reportOnFiles(options, std::move(serviceTemplate));
}

// Returns only if the program cannot be started.
int becomeSearchProgram(char** argv)
{
    const std::string program = searchProgram();
    (void)execv(program.c_str(), argv);
    printDiagnostic(shownPath(program) + ": " + std::strerror(errno));
    return kSomeFileFailed;
}

int run(int argc, char** argv, const Search& search)
{
    holdStandardStreams();
    // A limit on the size of files is then reported as an error of writing.
    (void)std::signal(SIGXFSZ, SIG_IGN);
    Options options;
    std::string error;
    if (!readOptions(argc, argv, &options, &error)) {
        printDiagnostic(error);
        std::fputs(shortUsage().c_str(), stderr);
        return kWrongUsage;
    }
    if (options.help) return print(fullUsage());
    if (options.version) {
        const std::string locks = options.verbose ? sandboxLines() : std::string();
        return print("pinorama-info " PINORAMA_VERSION "\n" + locks);
    }

    if (options.needsSearchProgram() && !search) return becomeSearchProgram(argv);
    if (options.output == Output::kmz && isatty(STDOUT_FILENO) == 1) {
        printDiagnostic(
            "--format kmz makes an archive, which no terminal shows; send it to a file");
        return kWrongUsage;
    }
    setReadsMoreKinds(options.readsMore);
    if (wouldReplaceAPicture(options.kmlPath)) {
        printDiagnostic(shownPath(options.kmlPath) + ": a KML document never replaces a picture");
        return kWrongUsage;
    }

    // Without TZ the C library checks the file of the time zone for every date.
    (void)setenv("TZ", ":/etc/localtime", 0);
    iuRegisterApplicationBundle();
    if (!options.isSingleExport()) return report(options, search);
    const int status = exportOne(options);
    options.kmlPath.clear();
    const bool isDone = status != kSuccess || options.output == Output::nothing;
    return isDone ? status : report(options, search);
}
}  // namespace

std::string searchProgram()
{
    return helperProgram("pinorama-search");
}

int runInfoProgram(int argc, char** argv, const Search& search)
{
    if (isPropertyReader(argc, argv)) {
        (void)prctl(PR_SET_NAME, "pinorama-info");  // by the path it was started with it is "exe"
        servePropertyReader(argc, argv);
    }
    const int status = run(argc, argv, search);
    endAfterAllProcesses();
    return status;
}

}  // namespace pinorama
