#include "tests/reader/thefts.h"

#include <csignal>
#include <cstdlib>
#include <map>

#include <fcntl.h>
#include <netinet/in.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
Loot openFile(const std::string& path)
{
    const int descriptor = open(path.c_str(), O_RDONLY);
    if (descriptor < 0) return std::nullopt;
    char bytes[256] = {};
    const ssize_t count = read(descriptor, bytes, sizeof bytes);
    return text({bytes, static_cast<std::size_t>(count < 0 ? 0 : count)});
}

Loot writeFile(const std::string& path)
{
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT, 0600);
    if (descriptor < 0 || write(descriptor, "harm", 4) != 4) return std::nullopt;
    return text("written");
}

Loot openSocket(const std::string& /*argument*/)
{
    return socket(AF_INET, SOCK_STREAM, 0) < 0 ? std::nullopt : text("socket");
}

Loot startProgram(const std::string& path)
{
    const pid_t child = fork();
    if (child == 0) {
        execl("/bin/sh", "sh", "-c", ("echo harm > '" + path + "'").c_str(), nullptr);
        _exit(1);
    }
    int status = 0;
    (void)waitpid(child, &status, 0);
    return text("started");
}

Loot allocate(const std::string& /*argument*/)
{
    // Memory that nobody sees written is never asked for by an optimised program.
    auto* const block = static_cast<volatile char*>(std::malloc(std::size_t{8} << 30));
    if (block == nullptr) return std::nullopt;
    for (int i = 0; i < 4096; i++) block[i] = 1;
    std::free(const_cast<char*>(block));
    return text("allocated");
}

Loot makeExecutable(const std::string& /*argument*/)
{
    void* block =
        mmap(nullptr, 4096, PROT_READ | PROT_WRITE | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return block == MAP_FAILED ? std::nullopt : text("executable");
}

Loot killOther(const std::string& process)
{
    return kill(std::atoi(process.c_str()), SIGUSR1) == 0 ? text("killed") : std::nullopt;
}
}  // namespace

Loot text(std::string_view bytes)
{
    return std::u16string(bytes.begin(), bytes.end());
}

std::function<Loot(const std::string& argument)> theftCalled(const std::string& name)
{
    static const std::map<std::string, Loot (*)(const std::string&)> thefts = {
        {"open-file", openFile},     {"write-file", writeFile},
        {"open-socket", openSocket}, {"start-program", startProgram},
        {"allocate", allocate},      {"make-executable", makeExecutable},
        {"kill-other", killOther},
    };
    const auto theft = thefts.find(name);
    if (theft == thefts.end()) return nullptr;
    return theft->second;
}
