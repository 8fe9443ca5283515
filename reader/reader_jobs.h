// What a client has asked its reader for, in order, with the messages about it: requests are sent
// for the jobs that wait, and each reply belongs to the oldest job that was sent. Knows nothing of
// the process at the other end but whether it has said its first word; what becomes of a reader
// that breaks the protocol is up to the client.
//
//     jobs.add(ReaderTask::properties, descriptor, {}, &result);
//     jobs.send(socket);
//     if (jobs.receive(socket).isBroken) ...  // when the socket is readable

#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "pictures/picture_properties.h"
#include "reader/preview_reply.h"
#include "reader/reader_protocol.h"

namespace pinorama {

enum class ReadOutcome {
    found,
    nothing,   // the file has no such thing
    failed,    // the reader died of it or sent a malformed reply
    stuck,     // the reader got nowhere with it and was killed
    noReader,  // there is no reader, or it cannot start
};

struct PropertyResult {
    ReadOutcome outcome = ReadOutcome::failed;
    PictureProperties properties;  // as found
};

struct PreviewResult {
    ReadOutcome outcome = ReadOutcome::failed;
    PreviewReply reply;  // as found
};

struct ReaderJob {
    ReaderTask task;
    std::uint32_t number;  // by which the reply is recognised
    int descriptor;        // the caller's
    PixelSize box;
    PropertyResult* propertyResult;  // where the result goes; null: to ReaderJobs::results()
    std::chrono::steady_clock::time_point sent{};
    std::chrono::steady_clock::time_point firstSent{};  // before the first interruption
    bool isSent = false;
    bool hasCompany = false;  // was sent in a request for several pictures
    bool isAlone = false;     // is only sent in a request of its own
    bool isGivenUp = false;   // nobody waits for the reply any more
    bool isStuck = false;     // took too long
    std::optional<std::chrono::steady_clock::time_point> stopRequested{};
    int deaths = 0;  // readers that died while they had it
    int interruptions = 0;
};

class ReaderJobs {
public:
    using Clock = std::chrono::steady_clock;
    using Selector = bool (*)(const ReaderJob& job);

    // Results that wait to be taken; whoever takes one empties it.
    struct Results {
        std::optional<PropertyResult> properties;
        std::optional<PreviewResult> preview;
    };

    struct Received {
        bool isMore = false;    // there may be more to receive
        bool isBroken = false;  // the reader is gone, or what it sent is malformed
        bool wasFirstWord = false;
        bool wasReply = false;
        int failures = 0;  // processes of one picture that died
    };

    // `onTurn` is called when the reader begins with the oldest job, as far as can be known here.
    explicit ReaderJobs(std::function<void(const ReaderJob& job)> onTurn);

    void add(ReaderTask task, int descriptor, PixelSize box, PropertyResult* result);

    // Gives jobs up: one that waits is forgotten, and the reply to one that was sent is discarded.
    void giveUp(Selector isMeant);
    // Gives up the jobs that have a place for their result, which goes away now.
    void giveUpPlaces();
    bool isWaitedFor(Selector isMeant) const;

    bool isEmpty() const { return jobs_.empty(); }
    const std::deque<ReaderJob>& all() const { return jobs_; }
    ReaderJob& front() { return jobs_.front(); }
    // Whether the reader has the oldest job.
    bool isFrontSent() const { return !jobs_.empty() && jobs_.front().isSent; }

    // Whether the reader has said its first word. Requests may be sent before that.
    bool isReady() const { return isReady_; }

    // Sends what waits, until the socket takes no more.
    void send(int socket);
    // Takes in what has come.
    Received receive(int socket);

    // Asks the reader to give the oldest job up, which it has. False if that cannot be sent now.
    bool stopFront(int socket);
    // The processor time that the oldest job has cost in this turn, if the reader reports that.
    std::optional<std::chrono::nanoseconds> reportedTime() const { return reportedTime_; }

    // Another reader takes the place of this one: it has not said its first word.
    void disconnect();
    // Whatever that reader had is sent again.
    void sendAgain();
    // When a reader died of a request for several pictures, nobody knows of which: each of them is
    // sent alone from now on.
    void separateBatch();

    // Ends the oldest job, or all of them, with that outcome.
    void dropFront(ReadOutcome outcome);
    void dropAll(ReadOutcome outcome);
    void clear() { jobs_.clear(); }

    Results& results() { return results_; }
    const Results& results() const { return results_; }

private:
    bool sendBatch(int socket, std::size_t first, std::size_t max);
    bool takeReply(int socket, Received* received);
    void beginTurn();
    void becomeReady(int socket);
    bool finishFront(const ReplyHeader& header, ByteView body);
    bool finishInterrupted();
    void sendFrontLater();
    void finish(const ReaderJob& job, ReadOutcome outcome);

    std::function<void(const ReaderJob& job)> onTurn_;
    std::deque<ReaderJob> jobs_;  // in the order of the replies
    std::uint32_t nextNumber_ = 1;
    bool isReady_ = false;
    std::optional<std::chrono::nanoseconds> reportedTime_{};
    int reports_ = 0;                        // in this turn
    std::unique_ptr<std::uint8_t[]> chunk_;  // what one read takes in
    std::vector<std::uint8_t> input_;        // the beginning of the next replies
    std::size_t taken_ = 0;                  // bytes of `input_` that are done with
    Results results_;
};

}  // namespace pinorama
