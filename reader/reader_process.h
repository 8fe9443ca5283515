// The process that reads pictures: how it is found, started and ended. Both ways to start one
// return at once; the process says over its socket when it is ready.

#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "base/descriptor.h"

#include <sys/types.h>

namespace pinorama {

// A running reader; ended when it goes out of scope.
class ReaderProcess {
public:
    ReaderProcess() = default;
    // Takes over the process and the socket to it.
    ReaderProcess(pid_t process, int socket) : process_(process), socket_(socket) {}
    ReaderProcess(ReaderProcess&& other) noexcept;
    ReaderProcess& operator=(ReaderProcess&& other) noexcept;
    ~ReaderProcess() { end(); }

    explicit operator bool() const { return process_ > 0; }
    pid_t id() const { return process_; }
    int socket() const { return socket_.get(); }

    // The processor time that the process has had so far; 0 for one that is gone.
    std::chrono::nanoseconds processorTime() const;

    // Closes the way to the process: no request follows, so that it ends by itself.
    void dismiss() const;

    // Has the system kill the process once it has had that much processor time in all.
    void limitProcessorTime(std::chrono::seconds max) const;

    // Kills the process and waits until it is gone, `maxWait` at most. One that sleeps in the
    // kernel, in a read that the disk does not answer, lingers until that ends.
    void end(std::chrono::milliseconds maxWait = std::chrono::milliseconds(50));

private:
    pid_t process_ = -1;
    DescriptorHolder socket_;
};

// How many processes that were ended are not gone yet.
std::size_t lingeringReaders();

// How a client gets a reader; an empty process when that fails.
using ReaderLauncher = std::function<ReaderProcess()>;

// The socket of a program that was started by startReaderProgram.
constexpr int kReaderSocket = 3;

// Starts a program that serves on the descriptor kReaderSocket, in an environment that holds
// nothing but what libraries need to be found. The process has no other descriptors but standard
// streams, and is in a process group of its own: what is typed in a terminal does not reach it.
ReaderProcess startReaderProgram(const std::string& program,
                                 const std::vector<std::string>& arguments = {});

// Whether this process was started that way: it has the socket.
bool hasReaderSocket();

// Splits this process (forkProcess). In the new one `serve` runs with the socket; the caller has
// one thread.
ReaderProcess forkReader(const std::function<void(int socket)>& serve);

// The path of the program pinorama-reader: what the environment variable PINORAMA_READER says, else
// the one beside the running program, else the one under the install prefix.
std::string readerProgram();

// Starts pinorama-reader.
//
//   readsMore  whether more kinds of files will be asked for. It loads their decoders while it
//              starts, since it can open nothing later on; without them it starts sooner.
ReaderProcess startPictureReader(bool readsMore);

// The argument by which it is told so.
constexpr const char* kMoreKindsArgument = "--more";

}  // namespace pinorama
