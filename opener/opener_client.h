// Looks at files and folders for a process that must never wait for a disk: an opener, a process of
// its own, looks at them, opens a file and hands the descriptor over, or saves one. What a file
// system that hangs keeps is an opener.
//
//     client.request("/media/card/a.jpg");
//     if (client.wait(500ms) == OpenStage::done) use(client.take());
//     // else it comes later: call advance() when descriptor() is readable
//
// One file is wanted at a time. Beside it there may be any number of questions (OpenerQuestion),
// about folders or for another file, each as long as its owner keeps it.
//
// An opener is in one of three states:
//
//   idle   It waits for a request. One is kept, so that the usual file takes microseconds.
//   busy   It has a request that is wanted.
//   stuck  It has one that nobody wants any more. Nothing can end it while the system keeps it, so
//          it is left to come back; what it brings then is thrown away.
//
// A file that comes from a server may be kept open by the opener that opened it, so that the last
// one to give it up is never this process. The opener is asked to close it when nobody else has it
// any more, and is busy with that as with a request.
//
// There are never more than four. A file system has two of them at most, because one file may hang
// alone, and only one when another file system has some too; so a disk that works is served as long
// as no four others hang. A request that finds no opener waits, at no cost, until one comes back.

#pragma once

#include "opener/opener_at_work.h"
#include "opener/opener_protocol.h"
#include "opener/opener_question.h"
#include "opener/opener_start.h"
#include "pictures/picture_file.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace pinorama {

class OpenerClient {
public:
    static constexpr std::size_t kMaxOpeners = 4;

    explicit OpenerClient(OpenerLauncher launcher);
    OpenerClient(const OpenerClient&) = delete;
    OpenerClient& operator=(const OpenerClient&) = delete;
    ~OpenerClient();

    // Starts an opener unless there is one, so that it is there when the first file comes.
    void start();

    // Ends all openers, without waiting for them, and gives up what is wanted.
    void stop();

    // Wants the file at `path`, in the bytes of the system, or with OpenTask::sidecar the XMP
    // beside it. With OpenTask::reference what comes only refers to the file, for others to open:
    // it cannot be read, and closing it waits for no disk. What was wanted before is given up. An
    // opener that has the same request already is not asked again. Without a sidecar it is done,
    // and the file not open.
    void request(const std::string& path, OpenTask task = OpenTask::open);
    void giveUp();

    // How far it is with what is wanted.
    OpenStage stage() const { return file_->stage(); }

    // What is wanted: from OpenStage::looked on its item() is known; it is open, if it can be, when
    // it is done.
    const PictureFile& file() const { return file_->file_; }

    // Hands the file over. Nothing is wanted afterwards.
    PictureFile take();

    // Waits until nothing more will come of it soon: it is done, left alone, or without an opener;
    // no longer than `max`.
    OpenStage wait(std::chrono::milliseconds max);

    // Asks about items of folders, or for one more file. The question is given up when the caller
    // lets go of it.
    std::shared_ptr<OpenerQuestion> ask(OpenRequest request, OpenerQuestion::TakeNames take = {});

    // Saves what is in `content`, which no disk can keep (a memory file), as the file at `path`;
    // what is there stays as it is until all of it is written.
    std::shared_ptr<OpenerQuestion> save(const std::string& path, DescriptorHolder content);

    // Waits for a question as wait() does for the file.
    OpenStage wait(const OpenerQuestion& question, std::chrono::milliseconds max);

    // For an event loop: call advance() when this is readable.
    int descriptor() const { return events_.get(); }
    void advance();

    // The openers that have a request, and all.
    std::size_t countAtWork() const { return pinorama::countAtWork(openers_); }
    std::size_t count() const { return openers_.size(); }

private:
    using SharedQuestion = std::shared_ptr<OpenerQuestion>;

    std::vector<SharedQuestion> questions() const;
    std::vector<SharedQuestion> questionsOf(const OpenerAtWork& opener) const;
    OpenerAtWork* idleOpener();
    SharedQuestion begin(SharedQuestion question);
    void ask(OpenerQuestion& question);
    std::uint32_t assign(OpenerAtWork& opener, OpenRequest request, int content);
    void askThoseLeftAlone();
    bool joins(OpenerQuestion& question);
    void settle(OpenerQuestion& question, OpenStage stage);
    void takeIn();
    void passNewsOn();
    void receive(std::size_t index);
    void take(OpenerAtWork& opener, OpenReply reply, DescriptorHolder descriptor);
    void finish(OpenerAtWork& opener);
    void lose(std::size_t index);
    void closeReleased();
    void endSurplus();
    void collectEnded();

    OpenerLauncher launcher_;
    DescriptorHolder events_;  // readable when a socket of one of the openers is, or news_
    DescriptorHolder news_;    // readable when somebody else than who waited has news
    OpenersAtWork openers_;
    std::vector<pid_t> ended_;  // to be waited for
    std::uint32_t nextNumber_ = 1;
    const OpenerQuestion* waitedFor_ = nullptr;
    bool owesNews_ = false;  // of other questions, to the event loop

    SharedQuestion file_;                                   // never null
    std::vector<std::weak_ptr<OpenerQuestion>> questions_;  // the others
};

}  // namespace pinorama
