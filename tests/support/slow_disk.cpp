#include "tests/support/slow_disk.h"

#include "tests/support/small_disk.h"

#include <linux/fuse.h>
#include <poll.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

#include <fcntl.h>

namespace {
using Clock = std::chrono::steady_clock;
using File = test::SlowDisk::File;
using Step = test::SlowDisk::Step;

constexpr unsigned kMaxLifetime = 100;  // seconds; no process waits for a disk of ours for ever
constexpr unsigned kMaxHang = 15;       // seconds
constexpr std::size_t kMaxRequestSize = 1 << 20;
constexpr std::uint64_t kLongValid = 3600;  // seconds
constexpr std::uint64_t kFirstFile = 2;     // the number of the first file; 1 is the folder

// The server of the file system: replies to the kernel's requests. Each request and each reply is
// one message (linux/fuse.h).
class Server {
public:
    Server(int device, std::vector<File> files)
        : device_(device), files_(std::move(files)), firstRequests_(files_.size())
    {
    }

    [[noreturn]] void serve()
    {
        std::vector<char> message(kMaxRequestSize);
        for (;;) {
            pollfd state = {device_, POLLIN, 0};
            (void)poll(&state, 1, waiting_.empty() ? -1 : 10);
            answerWhatIsDue();
            if ((state.revents & (POLLERR | POLLHUP)) != 0) _exit(0);
            if (state.revents == 0) continue;
            const ssize_t count = read(device_, message.data(), message.size());
            if (count < 0 && (errno == EINTR || errno == ENOENT || errno == EAGAIN)) continue;
            if (count < static_cast<ssize_t>(sizeof(fuse_in_header))) _exit(0);
            fuse_in_header header;
            std::memcpy(&header, message.data(), sizeof header);
            handle(header, message.data() + sizeof header);
        }
    }

private:
    struct Waiting {
        fuse_in_header header;
        std::string body;
        Clock::time_point due;
    };

    template <typename Record>
    static Record recordIn(const char* bytes)
    {
        Record record;
        std::memcpy(&record, bytes, sizeof record);
        return record;
    }

    void reply(std::uint64_t unique, std::string_view body, int error = 0) const
    {
        fuse_out_header header = {static_cast<std::uint32_t>(sizeof header + body.size()), -error,
                                  unique};
        iovec parts[] = {{&header, sizeof header}, {const_cast<char*>(body.data()), body.size()}};
        (void)!writev(device_, parts, 2);
    }

    template <typename Record>
    void replyRecord(std::uint64_t unique, const Record& record) const
    {
        reply(unique, {reinterpret_cast<const char*>(&record), sizeof record});
    }

    fuse_attr attributesOf(std::uint64_t node) const
    {
        fuse_attr attributes = {};
        attributes.ino = node;
        attributes.mode = node < kFirstFile ? S_IFDIR | 0755 : S_IFREG | 0644;
        attributes.nlink = 1;
        attributes.uid = getuid();
        attributes.gid = getgid();
        attributes.blksize = 4096;
        if (node >= kFirstFile) attributes.size = files_[node - kFirstFile].bytes.size();
        return attributes;
    }

    void greet(std::uint64_t unique, const fuse_init_in& hello) const
    {
        fuse_init_out greeting = {};
        greeting.major = FUSE_KERNEL_VERSION;
        greeting.minor = std::min<std::uint32_t>(hello.minor, FUSE_KERNEL_MINOR_VERSION);
        greeting.max_readahead = hello.max_readahead;
        greeting.max_write = 4096;
        replyRecord(unique, greeting);
    }

    void lookUp(std::uint64_t unique, const std::string& name) const
    {
        const auto found = std::find_if(files_.begin(), files_.end(),
                                        [&](const File& file) { return file.name == name; });
        if (found == files_.end()) return reply(unique, {}, ENOENT);
        fuse_entry_out entry = {};
        entry.nodeid = kFirstFile + static_cast<std::uint64_t>(found - files_.begin());
        entry.entry_valid = entry.attr_valid = kLongValid;
        entry.attr = attributesOf(entry.nodeid);
        replyRecord(unique, entry);
    }

    void list(std::uint64_t unique, const fuse_read_in& range) const
    {
        std::string entries;
        for (std::size_t i = range.offset; i < files_.size(); i++) {
            const std::string& name = files_[i].name;
            fuse_dirent entry;
            entry.ino = kFirstFile + i;
            entry.off = i + 1;
            entry.namelen = static_cast<std::uint32_t>(name.size());
            entry.type = kRegularFile;
            std::string bytes(reinterpret_cast<const char*>(&entry), FUSE_NAME_OFFSET);
            bytes += name;
            bytes.resize(FUSE_DIRENT_ALIGN(bytes.size()));
            if (entries.size() + bytes.size() > range.size) break;
            entries += bytes;
        }
        reply(unique, entries);
    }

    void readBytes(std::uint64_t unique, std::size_t file, const fuse_read_in& range) const
    {
        const std::string_view bytes = files_[file].bytes;
        const std::size_t start = std::min<std::size_t>(range.offset, bytes.size());
        reply(unique, bytes.substr(start, range.size));
    }

    // The file that a request is about, if it is one that takes its time for such a request.
    std::optional<std::size_t> slowFileOf(const fuse_in_header& header, const char* body) const
    {
        Step step = Step::read;
        std::size_t file = header.nodeid - kFirstFile;
        switch (header.opcode) {
        case FUSE_LOOKUP:
            step = Step::look;
            file = 0;
            while (file < files_.size() && files_[file].name != body) file++;
            break;
        case FUSE_GETATTR: step = Step::look; break;
        case FUSE_OPEN: step = Step::open; break;
        case FUSE_READ: break;
        default: return std::nullopt;
        }
        if (file >= files_.size() || files_[file].step != step) return std::nullopt;
        return file;
    }

    void answerWhatIsDue()
    {
        std::erase_if(waiting_, [this](const Waiting& waiting) {
            if (waiting.due > Clock::now()) return false;
            answer(waiting.header, waiting.body.data());
            return true;
        });
    }

    void handle(const fuse_in_header& header, const char* body)
    {
        const std::optional<std::size_t> slow = slowFileOf(header, body);
        if (!slow) return answer(header, body);
        const int wait = files_[*slow].wait;
        auto& first = firstRequests_[*slow];
        if (!first) first = Clock::now();
        if (wait == test::SlowDisk::kNever) return;
        waiting_.push_back({header, std::string(body, header.len - sizeof header),
                            *first + std::chrono::milliseconds(wait)});
        answerWhatIsDue();
    }

    void answer(const fuse_in_header& header, const char* body) const
    {
        switch (header.opcode) {
        case FUSE_INIT: return greet(header.unique, recordIn<fuse_init_in>(body));
        case FUSE_LOOKUP: return lookUp(header.unique, body);
        case FUSE_GETATTR: {
            fuse_attr_out attributes = {};
            attributes.attr_valid = kLongValid;
            attributes.attr = attributesOf(header.nodeid);
            return replyRecord(header.unique, attributes);
        }
        case FUSE_OPEN:
        case FUSE_OPENDIR: {
            // Otherwise opening a file while another process waits for its bytes would wait too.
            fuse_open_out opened = {};
            opened.open_flags = FOPEN_KEEP_CACHE;
            return replyRecord(header.unique, opened);
        }
        case FUSE_READ:
            return readBytes(header.unique, header.nodeid - kFirstFile,
                             recordIn<fuse_read_in>(body));
        case FUSE_READDIR: return list(header.unique, recordIn<fuse_read_in>(body));
        case FUSE_FLUSH:
        case FUSE_RELEASE:
        case FUSE_RELEASEDIR: return reply(header.unique, {});
        case FUSE_FORGET:
        case FUSE_BATCH_FORGET:
        case FUSE_INTERRUPT: return;  // nothing to reply to
        default: return reply(header.unique, {}, ENOSYS);
        }
    }

    static constexpr std::uint32_t kRegularFile = S_IFREG >> 12;

    int device_;
    std::vector<File> files_;
    std::vector<std::optional<Clock::time_point>> firstRequests_;  // that take their time
    std::vector<Waiting> waiting_;
};
// Whoever has the other end of one, such as that of a file's box, is told of its end by the process
// that this one was forked from.
void closeSockets()
{
    constexpr int kMaxDescriptor = 1024;
    for (int descriptor = STDERR_FILENO + 1; descriptor < kMaxDescriptor; descriptor++) {
        int type = 0;
        socklen_t size = sizeof type;
        const bool isSocket = getsockopt(descriptor, SOL_SOCKET, SO_TYPE, &type, &size) == 0;
        if (isSocket) (void)close(descriptor);
    }
}
}  // namespace

test::SlowDisk::SlowDisk(std::string folder, std::vector<File> files) : folder_(std::move(folder))
{
    // The kernel mounts only what was opened in the user namespace of the mount.
    const bool mayMount = enterMountNamespace();
    const int device = mayMount ? open("/dev/fuse", O_RDWR | O_CLOEXEC) : -1;
    const std::string options = "fd=" + std::to_string(device) +
                                ",rootmode=40000,user_id=" + std::to_string(geteuid()) +
                                ",group_id=" + std::to_string(getegid());
    const bool isMounted = device >= 0 && mount("slow-disk", folder_.c_str(), "fuse",
                                                MS_NOSUID | MS_NODEV, options.c_str()) == 0;
    if (isMounted) server_ = fork();
    if (server_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        (void)alarm(kMaxLifetime);
        // A descriptor that this process inherits must not stay open after the other one closes it.
        constexpr int kDevice = STDERR_FILENO + 1;
        if (dup2(device, kDevice) != kDevice) _exit(1);
        closefrom(kDevice + 1);
        Server(kDevice, std::move(files)).serve();
    }
    if (device >= 0) close(device);
}

test::SlowDisk::~SlowDisk()
{
    if (server_ <= 0) return;
    kill(server_, SIGKILL);
    (void)waitpid(server_, nullptr, 0);
    (void)umount2(folder_.c_str(), MNT_DETACH);
}

void test::SlowDisk::hang() const
{
    kill(server_, SIGSTOP);
    // A test that it keeps after all is not kept for ever.
    const pid_t server = server_;
    const pid_t between = fork();
    if (between == 0) {
        if (fork() != 0) _exit(0);
        // Whoever reads the test's output does not wait for this. Files of the disk stay open:
        // closing one would have to wait for the disk.
        (void)close_range(STDIN_FILENO, STDERR_FILENO, 0);
        closeSockets();
        (void)sleep(kMaxHang);
        kill(server, SIGCONT);
        _exit(0);
    }
    (void)waitpid(between, nullptr, 0);
}

void test::SlowDisk::recover() const
{
    kill(server_, SIGCONT);
}
