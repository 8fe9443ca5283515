// Opens files for a process that must never wait for a disk: an opener, a process of its own, looks
// at the file, opens it and hands the descriptor over. What a file system that hangs keeps is an
// opener.
//
//     client.request("/media/card/a.jpg");
//     if (client.wait(500ms) == OpenStage::done) use(client.take());
//     // else it comes later: call advance() when descriptor() is readable
//
// An opener is in one of three states:
//
//   idle   It waits for a request. One is kept, so that the usual file takes microseconds.
//   busy   It has the request that is wanted.
//   stuck  It has one that nobody wants any more. Nothing can end it while the system keeps it, so
//          it is left to come back; what it brings then is thrown away.
//
// There are never more than four. A file system has two of them at most, because one file may hang
// alone, and only one when another file system has some too; so a disk that works is served as long
// as no four others hang. A request that finds no opener waits, at no cost, until one comes back.

#pragma once

#include "opener/opener_protocol.h"
#include "pictures/picture_file.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <sys/types.h>

namespace pinorama {

enum class OpenStage {
    none,       // nothing is wanted
    waiting,    // nothing is known yet
    leftAlone,  // not even asked for: its file system keeps other openers
    looked,     // known what is there; its bytes have not come
    done,       // all is known
    noOpener,   // there is no opener, or it cannot start
};

// An opener that was started: its process, and the socket to it.
struct OpenerProcess {
    pid_t process = -1;  // the caller's to wait for; -1 if it could not be started
    DescriptorHolder socket{};
};

using OpenerLauncher = std::function<OpenerProcess()>;

// Starts the program `path` with the socket kOpenerSocket and no other descriptors but standard
// streams, in a process group of its own.
OpenerProcess startOpenerProgram(const std::string& path);

// The path of the program pinorama-opener: what the environment variable PINORAMA_OPENER says, else
// the one beside the running program, else the one under the install prefix.
std::string openerProgram();

class OpenerClient {
public:
    static constexpr std::size_t kMaxOpeners = 4;
    static constexpr std::size_t kMaxInFileSystem = 2;

    explicit OpenerClient(OpenerLauncher launcher);
    OpenerClient(const OpenerClient&) = delete;
    OpenerClient& operator=(const OpenerClient&) = delete;
    ~OpenerClient();

    // Starts an opener unless there is one, so that it is there when the first file comes.
    void start();

    // Ends all openers, without waiting for them, and gives up what is wanted.
    void stop();

    // Wants the file at `path`, in the bytes of the system; what was wanted before is given up. An
    // opener that has the same path already is not asked again.
    void request(const std::string& path);
    void giveUp();

    // How far it is with what is wanted.
    OpenStage stage() const { return stage_; }

    // What is wanted: from OpenStage::looked on its item() is known; it is open, if it can be, when
    // it is done.
    const PictureFile& file() const { return file_; }

    // Hands the file over. Nothing is wanted afterwards.
    PictureFile take();

    // Waits until nothing more will come of it soon: it is done, left alone, or without an opener;
    // no longer than `max`.
    OpenStage wait(std::chrono::milliseconds max);

    // For an event loop: call advance() when this is readable.
    int descriptor() const { return events_.get(); }
    void advance();

    // The openers that have a request, and all.
    std::size_t countAtWork() const;
    std::size_t count() const { return openers_.size(); }

private:
    struct Opener {
        OpenerProcess process;
        std::uint32_t number = 0;  // of its request; 0 when it is idle
        std::string path;          // of its request
        std::uint64_t device = 0;  // where it is; 0 if it is not known
        PictureFile looked;        // what it has found out so far
        bool hasLooked = false;
    };

    bool isOver() const;
    void settle(OpenStage stage, PictureFile file = {});
    Opener* idleOpener();
    std::vector<std::uint64_t> fileSystemsToLeaveAlone() const;
    void ask();
    void receive(std::size_t index);
    void take(Opener& opener, OpenReply reply, DescriptorHolder descriptor);
    void finish(Opener& opener);
    void lose(std::size_t index);
    void endSurplus();
    void collectEnded();

    OpenerLauncher launcher_;
    DescriptorHolder events_;  // readable when a socket of one of the openers is
    std::vector<std::unique_ptr<Opener>> openers_;
    std::vector<pid_t> ended_;  // to be waited for
    std::uint32_t nextNumber_ = 1;

    std::string path_;
    std::uint32_t number_ = 0;  // with which an opener has it; 0 if none has
    OpenStage stage_ = OpenStage::none;
    PictureFile file_;
    int deaths_ = 0;  // of openers that had it
};

}  // namespace pinorama
