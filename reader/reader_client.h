// Has pictures read by another process and survives whatever happens to that: a reader that is
// stuck or sends a malformed reply is killed, and another one started for the next picture. A slow
// disk is no fault: whoever has the time waits for its pictures, and to others they come through an
// event loop. Nothing here waits longer than the limits say.
//
//     ReaderClient client([] { return startReaderProgram(readerProgram()); });
//     const PropertyResult place = client.readProperties(descriptor);  // waits
//
//     client.startPreview(descriptor, PreviewKind::picture, {256, 256});  // does not
//     client.advance();  // from an event loop, when socket() or millisecondsLeft() says so
//     if (client.hasPreview()) show(*client.takePreview());

#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "reader/reader_jobs.h"
#include "reader/reader_process.h"
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
    // For giving up what nobody waits for any more or what is stuck, and for a preview that another
    // request waits for.
    std::chrono::milliseconds giveWay{150};
    // For the end of a reader that was killed. Whoever waits for a picture waits for that as well.
    std::chrono::milliseconds end{5};
    // Before a reader that cannot start is tried again.
    std::chrono::milliseconds whenMissing{5000};
    // Processes that were killed and do not end, because a disk keeps them: with so many no other
    // one is started.
    std::size_t maxLingering = 8;
};

// The reader is in one of four states, and every loss leads back to the first:
//
//   absent    No process. A job starts one, unless that has to wait: after deaths in a row, after
//             failed starts, and while too many killed processes linger.
//   starting  A process that has not said its first word. Requests are sent to it all the same.
//             Limited by ReaderLimits::start.
//   idle      Ready, and no request is with it. It may take any time.
//   working   Has at least one request; the oldest one is limited by the patience for its task, in
//             all of its turns together. When that is over, or nobody waits for it any more, the
//             reader is asked to give it up, and lost if it does not. Further requests make a
//             preview give way.
//
// An idle reader that takes no request is limited too: it is lost after the patience's silence.
//
// A job that was sent when its reader was lost is sent again to the next one, unless it is to
// blame. A reader in which pictures have died several times is replaced when it is idle: its
// processes share their layout in memory, which nobody shall learn by trying. Whatever is pending
// may change whenever this waits or advances, so that a caller holds a ticket and no reference.
class ReaderClient {
public:
    explicit ReaderClient(ReaderLauncher launcher, ReaderLimits limits = {});
    ReaderClient(const ReaderClient&) = delete;
    ReaderClient& operator=(const ReaderClient&) = delete;

    // Starts the reader unless it runs, and returns at once: so it is ready when the first picture
    // comes.
    void start();

    // Lets the reader end while the caller goes on: no request follows.
    void dismiss() { process_.dismiss(); }

    // Ends the reader. The next request starts another one, also when there was none to be had.
    void stop();

    // Other limits for what begins from now on.
    void setLimits(const ReaderLimits& limits) { limits_ = limits; }

    // Whether properties that are asked for from now on are those of more kinds of files, and out
    // of XMP as well (pictures/more_properties.h). At first they are not.
    void setReadsMore(bool isOn)
    {
        propertyTask_ = isOn ? ReaderTask::moreProperties : ReaderTask::properties;
    }

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
    bool hasProperties() const { return jobs_.results().properties.has_value(); }
    std::optional<PropertyResult> takeProperties();

    // Waits for the result of the last startProperties, and no longer than `max`. Nothing if it is
    // still under way.
    std::optional<PropertyResult> waitForProperties(std::chrono::milliseconds max);

    // Asks for the preview of an open file, which has to stay open until the result is there. An
    // earlier one that is still under way is given up.
    //
    //   box  1 to kMaxPreviewSide pixels each way.
    //
    // Returns the ticket of this preview.
    std::uint32_t startPreview(int descriptor, PreviewKind kind, PixelSize box);
    void giveUpPreview();

    // The ticket of the preview that is under way or waits to be taken; 0 when there is none.
    std::uint32_t previewTicket() const { return previewTicket_; }

    // The result of the last startPreview, once.
    bool hasPreview() const { return jobs_.results().preview.has_value(); }
    std::optional<PreviewResult> takePreview();

    // Waits for the result of the last startPreview, and no longer than `max`: then it is given up
    // and counts as stuck.
    PreviewResult waitForPreview(std::chrono::milliseconds max = std::chrono::minutes(2));

    // For an event loop: call advance() when `socket()` becomes readable or `millisecondsLeft()`
    // have passed (-1: never). `onChange` is called when one of the two may have changed, or a
    // result has arrived.
    int socket() const { return process_.socket(); }
    int millisecondsLeft() const;
    void advance();
    void setChangeHandler(std::function<void()> onChange) { onChange_ = std::move(onChange); }

    // For tests and measurements: the process that reads now, -1 for none.
    pid_t processID() const { return process_.id(); }

    // For tests: pictures whose own process died or replied with something else, in all readers.
    int failureCount() const { return failureCount_; }

private:
    using Clock = std::chrono::steady_clock;

    // Why a reader is not kept.
    enum class Loss {
        died,
        inTheWay,  // others wait for it
        stuck,
    };

    std::uint32_t nextTicket();
    const ReaderPatience& patienceOf(const ReaderJob& job) const;
    std::chrono::nanoseconds processorTime() const;
    std::optional<Clock::time_point> whenFrontGivesWay() const;
    void stopFront();
    void stopStuckFront(Clock::time_point now);
    void replaceCrashedReader();
    void startProcess();
    bool hasRoomForProcess(Clock::time_point now);
    bool receive();
    void send();
    void loseReader(Loss loss);
    void loseStartingReader(Loss loss, Clock::time_point now);
    void blameFront(Loss loss);
    std::optional<Clock::time_point> whenTurnsEnd() const;
    void checkTime();
    void checkSending(Clock::time_point now);
    void step();
    void waitWhile(const std::function<bool()>& isOpen, Clock::time_point end, int alarm = -1);
    void changed();

    ReaderLauncher launcher_;
    ReaderLimits limits_;
    std::function<void()> onChange_;
    ReaderProcess process_;
    ReaderWatch watch_;                  // over the start, then over the oldest job
    std::chrono::nanoseconds atTurn_{};  // processor time of the reader as this turn began
    Clock::time_point notBefore_{};      // of the next start
    Clock::time_point missingUntil_{};   // no reader is tried before
    Clock::time_point crowdedSince_ = Clock::time_point::max();  // while too many linger
    Clock::time_point fullSince_ = Clock::time_point::max();     // while a request cannot be sent
    int deathsInRow_ = 0;                                        // without a reply in between
    int failedStarts_ = 0;
    int crashes_ = 0;  // of processes of one picture, in this reader
    int failureCount_ = 0;
    ReaderJobs jobs_;
    ReaderTask propertyTask_ = ReaderTask::properties;
    std::uint32_t nextTicket_ = 1;
    std::uint32_t propertiesTicket_ = 0;
    std::uint32_t previewTicket_ = 0;
};

}  // namespace pinorama
