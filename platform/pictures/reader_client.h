// Has pictures read by another process, and survives whatever becomes of it there: the reader is
// killed when it misses a deadline or answers anything that cannot be an answer, and started again
// for the next picture. Never waits longer than the limits say.

#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "platform/pictures/picture_properties.h"
#include "platform/pictures/preview_answer.h"
#include "platform/pictures/reader_process.h"
#include "platform/pictures/reader_protocol.h"

namespace platform {

struct ReaderLimits {
    std::chrono::milliseconds start{2000};      // from the start of the process to its first word
    std::chrono::milliseconds properties{500};  // of one picture
    std::chrono::milliseconds preview{3000};    // of one file
    std::chrono::milliseconds giveWay{150};     // for a preview that another request waits for
    std::chrono::milliseconds whenMissing{
        5000};  // before a reader that cannot start is tried again
};

enum class ReadOutcome {
    found,
    nothing,   // the file has no such thing
    failed,    // the reader died of it, took too long or answered nonsense
    noReader,  // there is no reader, or it cannot start
};

struct PropertyResult {
    ReadOutcome outcome = ReadOutcome::failed;
    PictureProperties properties;  // as found
};

struct PreviewResult {
    ReadOutcome outcome = ReadOutcome::failed;
    PreviewAnswer answer;  // as found
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

    // Reads the properties of the pictures that are open under `descriptors` and waits for them. A
    // preview that is under way gives way and goes on afterwards.
    std::vector<PropertyResult> readProperties(std::span<const int> descriptors);
    PropertyResult readProperties(int descriptor);

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

    // Waits for the result of the last startPreview.
    PreviewResult waitForPreview();

    // For an event loop: call advance() when `socket()` becomes readable or `millisecondsLeft()`
    // have passed (-1: never). `onChange` is called when one of the two may have changed, or a
    // preview has arrived.
    int socket() const { return process_.socket(); }
    int millisecondsLeft() const;
    void advance();
    void setChangeHandler(std::function<void()> onChange) { onChange_ = std::move(onChange); }

    // For tests and measurements: the process that reads now, -1 for none.
    pid_t processID() const { return process_.id(); }

private:
    using Clock = std::chrono::steady_clock;

    static constexpr std::size_t kReadAtOnce = 64 * 1024;

    struct Job {
        ReaderTask task;
        std::uint32_t number;
        int descriptor;
        PixelSize box;
        PropertyResult* propertyResult;  // null for previews
        Clock::time_point sent{};
        Clock::time_point deadline{};
        bool isSent = false;
        bool hasCompany = false;  // was sent in a request for several pictures
        bool isAlone = false;     // is only sent in a request of its own
        bool isGivenUp = false;   // nobody waits for the answer any more
        int deaths = 0;           // readers that died while they had it
        int interruptions = 0;
    };

    void addJob(ReaderTask task, int descriptor, PixelSize box, PropertyResult* result);
    std::chrono::milliseconds limitOf(const Job& job) const;
    Clock::time_point deadlineOfFront() const;
    void startProcess();
    void sendJobs();
    bool sendBatch(std::size_t first, std::size_t most);
    void becomeReady();
    void startClock(Job* job) const;
    bool receive();
    bool takeAnswer();
    bool finishFront(const ReaderAnswerHead& head, ByteView body);
    void resendFrontLater();
    void finish(const Job& job, ReadOutcome outcome);
    void dropFront(ReadOutcome outcome);
    void loseReader(bool mayTryAgain);
    void forgetWhatWasSent();
    void declareMissing();
    void checkTime();
    void step();
    void waitWhile(const std::function<bool()>& isOpen);
    bool isWaitedFor(ReaderTask task) const;
    void changed();

    ReaderLauncher launcher_;
    ReaderLimits limits_;
    std::function<void()> onChange_;
    ReaderProcess process_;
    bool isReady_ = false;  // the process has said its first word
    Clock::time_point startDeadline_{};
    Clock::time_point notBefore_{};     // of the next start
    Clock::time_point missingUntil_{};  // no reader is tried before
    int deathsInRow_ = 0;               // without an answer in between
    int failedStarts_ = 0;
    std::uint32_t nextNumber_ = 1;
    std::deque<Job> jobs_;                   // in the order in which they are answered
    std::unique_ptr<std::uint8_t[]> chunk_;  // what one read takes in
    std::vector<std::uint8_t> input_;        // what has come of the next answers
    std::size_t taken_ = 0;                  // bytes of `input_` that are done with
    std::uint32_t previewTicket_ = 0;
    std::uint32_t nextTicket_ = 1;
    std::optional<PreviewResult> preview_;
};

}  // namespace platform
