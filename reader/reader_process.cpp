#include "reader/reader_process.h"

#include "base/child_process.h"
#include "base/resource_folder.h"
#include "base/user_language.h"

#include <csignal>
#include <cstdlib>
#include <ctime>
#include <utility>

#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pinorama {
namespace {
// Where libraries are found by programs in unusual places, and the options of sanitizers.
constexpr const char* kInherited[] = {"LD_LIBRARY_PATH", "QT_PLUGIN_PATH", "ASAN_OPTIONS",
                                      "UBSAN_OPTIONS"};

// Never given back: a reader that is a static object's ends after everything that was made later.
std::vector<pid_t>& endedProcesses()
{
    static auto* const processes = new std::vector<pid_t>;
    return *processes;
}

void collectEnded()
{
    std::erase_if(endedProcesses(), [](pid_t process) {
        return waitpid(process, nullptr, WNOHANG) != 0;  // gone, or not ours any more
    });
}

std::vector<std::string> readerEnvironment()
{
    // One thread, no files of locales and zones to look for.
    std::vector<std::string> environment = {"LC_ALL=C", "TZ=UTC0", "OMP_NUM_THREADS=1",
                                            "QT_LOGGING_RULES=*=false"};
    // Not for messages, since the locale is C: of captions in several languages it is the user's
    // that counts.
    const std::string language = userLanguage();
    if (!language.empty()) environment.push_back("LANGUAGE=" + language);
    for (const char* name : kInherited) {
        const char* value = std::getenv(name);
        if (value != nullptr) environment.push_back(std::string(name) + "=" + value);
    }
    return environment;
}

// Two connected sockets, closed in programs that are started.
bool makeSockets(DescriptorHolder* outNear, DescriptorHolder* outFar)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return false;
    *outNear = DescriptorHolder(ends[0]);
    *outFar = DescriptorHolder(ends[1]);
    return true;
}

}  // namespace

ReaderProcess::ReaderProcess(ReaderProcess&& other) noexcept
    : process_(std::exchange(other.process_, -1)), socket_(std::move(other.socket_))
{
}

ReaderProcess& ReaderProcess::operator=(ReaderProcess&& other) noexcept
{
    std::swap(process_, other.process_);
    std::swap(socket_, other.socket_);
    return *this;
}

std::chrono::nanoseconds ReaderProcess::processorTime() const
{
    clockid_t clock = 0;
    timespec time = {};
    if (process_ <= 0 || clock_getcpuclockid(process_, &clock) != 0 ||
        clock_gettime(clock, &time) != 0) {
        return {};
    }
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

void ReaderProcess::dismiss() const
{
    if (socket_) (void)shutdown(socket_.get(), SHUT_WR);
}

void ReaderProcess::limitProcessorTime(std::chrono::seconds max) const
{
    const auto seconds = static_cast<rlim_t>(max.count());
    const rlimit limit = {seconds, seconds};
    if (process_ > 0) (void)prlimit(process_, RLIMIT_CPU, &limit, nullptr);
}

// A killed process is gone at once, except one that sleeps in the kernel, on a network share that
// does not respond for instance. That one is waited for again when the next one ends.
void ReaderProcess::end(std::chrono::milliseconds maxWait)
{
    socket_ = DescriptorHolder();
    const pid_t process = std::exchange(process_, -1);
    if (process <= 0) return;
    kill(process, SIGKILL);
    if (waitForEnd(process, maxWait)) return;
    endedProcesses().push_back(process);
    collectEnded();
}

std::size_t lingeringReaders()
{
    collectEnded();
    return endedProcesses().size();
}

ReaderProcess startReaderProgram(const std::string& program,
                                 const std::vector<std::string>& arguments)
{
    DescriptorHolder near;
    DescriptorHolder far;
    if (!makeSockets(&near, &far)) return {};
    // A name without a slash is a file of this folder, never one that is looked for.
    ProgramStart start = {
        .arguments = {program.find('/') == program.npos ? "./" + program : program},
        .environment = readerEnvironment(),
        .descriptors = {kNullDevice, kNullDevice, kOwnDescriptor, far.get()},
        .isApart = true};
    static_assert(kReaderSocket == 3, "comes after the standard streams");
    start.arguments.insert(start.arguments.end(), arguments.begin(), arguments.end());
    const pid_t process = spawnProgram(std::move(start));
    return process < 0 ? ReaderProcess() : ReaderProcess(process, near.take());
}

bool hasReaderSocket()
{
    int type = 0;
    socklen_t size = sizeof type;
    return getsockopt(kReaderSocket, SOL_SOCKET, SO_TYPE, &type, &size) == 0;
}

ReaderProcess forkReader(const std::function<void(int socket)>& serve)
{
    DescriptorHolder near;
    DescriptorHolder far;
    if (!makeSockets(&near, &far)) return {};
    const pid_t process = forkProcess(far.get(), [&serve](int socket) {
        // As with the program, what is typed in a terminal does not reach it, and the handlers of
        // the other process do not run here.
        (void)setpgid(0, 0);
        for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGCHLD}) {
            (void)std::signal(number, SIG_DFL);
        }
        serve(socket);
    });
    return process < 0 ? ReaderProcess() : ReaderProcess(process, near.take());
}

std::string readerProgram()
{
    return helperProgram("pinorama-reader", "PINORAMA_READER");
}

ReaderProcess startPictureReader(bool readsMore)
{
    std::vector<std::string> arguments;
    if (readsMore) arguments.emplace_back(kMoreKindsArgument);
    return startReaderProgram(readerProgram(), arguments);
}

}  // namespace pinorama
