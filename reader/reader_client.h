// Has pictures read by another process, and survives whatever becomes of it there: the reader is
// killed when it is stuck or replies anything that cannot be a reply, and started again for the
// next picture. A slow disk is not to blame for anything: its pictures are waited for, by whoever
// has the time, or come through an event loop. Never waits longer than the limits say.

#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "pictures/picture_properties.h"
#include "reader/preview_reply.h"
#include "reader/reader_process.h"
#include "reader/reader_protocol.h"
#include "reader/reader_watch.h"

namespace pinorama {

struct ReaderLimits {
    // From the start of the process to its first word.
    ReaderPatience start{.processor = std::chrono::seconds(5),
                         .silence = std::chrono::seconds(20),
                         .whole = std::chrono::seconds(30)};
    // Of one picture.
    ReaderPatience properties{.processor = std::chrono::seconds(1),
                              .silence = std::chrono::seconds(20),
                              .whole = std::chrono::seconds(60)};
    // Of one file.
    ReaderPatience preview{.processor = std::chrono::seconds(10),
                           .silence = std::chrono::seconds(20),
                           .whole = std::chrono::seconds(60)};
    // For what nobody waits for any more, and for a preview that another request waits for.
    std::chrono::milliseconds giveWay{150};
    // Before a reader that cannot start is tried again.
    std::chrono::milliseconds whenMissing{5000};
    // Processes that were killed and do not end, because a disk keeps them: with so many no other
    // one is started.
    std::size_t mostLingering = 8;
};

enum class ReadOutcome {
    found,
    nothing,   // the file has no such thing
    failed,    // the reader died of it or answered nonsense
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

class ReaderClient {
public:
    explicit ReaderClient(ReaderLauncher launcher, ReaderLimits limits = {});
    ReaderClient(const ReaderClient&) = delete;
    ReaderClient& operator=(const ReaderClient&) = delete;

    // Starts the reader unless it runs, and returns at once: so it is ready when the first picture
    // comes.
    void start();

    // Tells the reader that nothing more will be asked, so that it ends while the caller goes on.
    void dismiss() { process_.dismiss(); }

    // Ends the reader. The next request starts another one, also when there was none to be had.
    void stop();

    // Other limits for what begins from now on.
    void setLimits(const ReaderLimits& limits) { limits_ = limits; }

    // Reads the properties of the pictures that are open under `descriptors` and waits for them. A
    // preview that is under way gives way and goes on afterwards.
    //
    //   alarm  a descriptor that ends the waiting when it becomes readable, -1 for none. Pictures
    //          that have not been read by then have failed.
    std::vector<PropertyResult> readProperties(std::span<const int> descriptors, int alarm = -1);
    PropertyResult readProperties(int descriptor);

    // Asks for the properties of an open picture, which has to stay open until the result is there
    // or is given up. An earlier request of this kind that is still under way is given up; when a
    // slow disk keeps the reader, another reader takes its place.
    //
    // Returns the ticket of this request.
    std::uint32_t startProperties(int descriptor);
    void giveUpProperties();

    // The ticket of the properties that are under way or wait to be taken; 0 when there are none.
    std::uint32_t propertiesTicket() const { return propertiesTicket_; }

    // The result of the last startProperties, once.
    bool hasProperties() const { return properties_.has_value(); }
    std::optional<PropertyResult> takeProperties();

    // Waits for the result of the last startProperties, and no longer than `most`. Nothing when it
    // is still under way.
    std::optional<PropertyResult> waitForProperties(std::chrono::milliseconds most);

    // Asks for the preview of an open file, which has to stay open until the result is there. An
    // earlier one that is still under way is given up.
    //
    //   box  1 to kLargestPreviewSide pixels each way.
    //
    // Returns the ticket of this preview.
    std::uint32_t startPreview(int descriptor, PreviewKind kind, PixelSize box);
    void giveUpPreview();

    // The ticket of the preview that is under way or waits to be taken; 0 when there is none.
    std::uint32_t previewTicket() const { return previewTicket_; }

    // The result of the last startPreview, once.
    bool hasPreview() const { return preview_.has_value(); }
    std::optional<PreviewResult> takePreview();

    // Waits for the result of the last startPreview, and no longer than `most`: then it is given up
    // and counts as stuck.
    PreviewResult waitForPreview(std::chrono::milliseconds most = std::chrono::minutes(2));

    // For an event loop: call advance() when `socket()` becomes readable or `millisecondsLeft()`
    // have passed (-1: never). `onChange` is called when one of the two may have changed, or a
    // result has arrived.
    int socket() const { return process_.socket(); }
    int millisecondsLeft() const;
    void advance();
    void setChangeHandler(std::function<void()> onChange) { onChange_ = std::move(onChange); }

    // For tests and measurements: the process that reads now, -1 for none.
    pid_t processID() const { return process_.id(); }

private:
    using Clock = std::chrono::steady_clock;

    static constexpr std::size_t kReadAtOnce = 64 * 1024;

    // Why a reader is not gone on with.
    enum class Loss {
        died,
        inTheWay,  // others wait for it
        stuck,
    };

    struct Job {
        ReaderTask task;
        std::uint32_t number;
        int descriptor;
        PixelSize box;
        PropertyResult* propertyResult;  // of readProperties; null for what has a ticket
        Clock::time_point sent{};
        bool isSent = false;
        bool hasCompany = false;  // was sent in a request for several pictures
        bool isAlone = false;     // is only sent in a request of its own
        bool isGivenUp = false;   // nobody waits for the reply any more
        int deaths = 0;           // readers that died while they had it
        int interruptions = 0;
    };

    void addJob(ReaderTask task, int descriptor, PixelSize box, PropertyResult* result);
    std::uint32_t nextTicket();
    void giveUp(bool (*isMeant)(const Job& job));
    const ReaderPatience& patienceOf(const Job& job) const;
    std::optional<Clock::time_point> whenFrontGivesWay() const;
    void startProcess();
    bool hasRoomForProcess(Clock::time_point now);
    void sendJobs();
    bool sendBatch(std::size_t first, std::size_t most);
    void becomeReady();
    void watchFront();
    bool receive();
    bool takeReply();
    bool finishFront(const ReplyHeader& header, ByteView body);
    void resendFrontLater();
    void finish(const Job& job, ReadOutcome outcome);
    void dropFront(ReadOutcome outcome);
    void dropAll(ReadOutcome outcome);
    void loseReader(Loss loss);
    void forgetWhatWasSent();
    void checkTime();
    void step();
    void waitWhile(const std::function<bool()>& isOpen, Clock::time_point end, int alarm = -1);
    bool isWaitedFor(bool (*isMeant)(const Job& job)) const;
    void changed();

    ReaderLauncher launcher_;
    ReaderLimits limits_;
    std::function<void()> onChange_;
    ReaderProcess process_;
    bool isReady_ = false;              // the process has said its first word
    ReaderWatch watch_;                 // over the start, then over the oldest job
    Clock::time_point notBefore_{};     // of the next start
    Clock::time_point missingUntil_{};  // no reader is tried before
    Clock::time_point crowdedSince_ = Clock::time_point::max();  // while too many linger
    int deathsInRow_ = 0;                                        // without a reply in between
    int failedStarts_ = 0;
    std::uint32_t nextNumber_ = 1;
    std::deque<Job> jobs_;                   // in the order in which they are answered
    std::unique_ptr<std::uint8_t[]> chunk_;  // what one read takes in
    std::vector<std::uint8_t> input_;        // what has come of the next replies
    std::size_t taken_ = 0;                  // bytes of `input_` that are done with
    std::uint32_t nextTicket_ = 1;
    std::uint32_t propertiesTicket_ = 0;
    std::optional<PropertyResult> properties_;
    std::uint32_t previewTicket_ = 0;
    std::optional<PreviewResult> preview_;
};

}  // namespace pinorama
