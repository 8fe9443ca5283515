#include "reader/reader_client.h"

#include <algorithm>
#include <utility>

#include <poll.h>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

constexpr int kMaxDeaths = 2;           // a picture that two readers died of is given up
constexpr int kMaxFailedStarts = 2;     // then there is no reader
constexpr int kDeathsBeforeAPause = 5;  // without a good reply in between
constexpr auto kFirstPause = 100ms;     // doubled with every further death
constexpr auto kMaxPause = 400ms;
constexpr int kMaxCrashes = 8;        // of pictures in one reader
constexpr auto kWhenFull = 10ms;      // before another try to send
constexpr auto kWhenCrowded = 100ms;  // before another try to start
}  // namespace

ReaderClient::ReaderClient(ReaderLauncher launcher, ReaderLimits limits)
    : launcher_(std::move(launcher)), limits_(limits), jobs_([this](const ReaderJob& job) {
          watch_.begin(patienceOf(job), Clock::now());
          atTurn_ = process_.processorTime();
      })
{
}

void ReaderClient::start()
{
    if (!process_) startProcess();
    changed();
}

void ReaderClient::stop()
{
    giveUpProperties();
    giveUpPreview();
    jobs_.clear();
    jobs_.disconnect();
    process_.end();
    deathsInRow_ = failedStarts_ = crashes_ = 0;
    notBefore_ = missingUntil_ = {};
    crowdedSince_ = Clock::time_point::max();
    changed();
}

int ReaderClient::millisecondsLeft() const
{
    if (jobs_.isEmpty() && (!process_ || jobs_.isReady())) return -1;
    const Clock::time_point now = Clock::now();
    Clock::time_point when = notBefore_;
    if (process_ && jobs_.isReady() && !jobs_.isFrontSent()) {
        when = now + kWhenFull;
    } else if (process_) {
        when = watch_.nextLook(now);
        if (const auto givesWay = whenFrontGivesWay()) when = std::min(when, *givesWay);
        if (const auto end = whenTurnsEnd()) when = std::min(when, *end);
        const bool isStuck = !jobs_.isEmpty() && jobs_.all().front().isStuck;
        if (isStuck) when = *jobs_.all().front().stopRequested + limits_.giveWay;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(when - now);
    return static_cast<int>(std::max(left, 0ms).count());
}

void ReaderClient::advance()
{
    step();
    changed();
}

void ReaderClient::changed()
{
    if (onChange_) onChange_();
}

std::vector<PropertyResult> ReaderClient::readProperties(std::span<const int> descriptors,
                                                         int alarm)
{
    const auto isOurs = [](const ReaderJob& job) { return job.propertyResult != nullptr; };
    std::vector<PropertyResult> results(descriptors.size());
    for (std::size_t i = 0; i < descriptors.size(); i++) {
        jobs_.add(propertyTask_, descriptors[i], {}, &results[i]);
    }
    waitWhile([&] { return jobs_.isWaitedFor(isOurs); }, Clock::time_point::max(), alarm);
    jobs_.giveUpPlaces();  // what the alarm cut short must not be written to `results` later on
    return results;
}

PropertyResult ReaderClient::readProperties(int descriptor)
{
    std::vector<PropertyResult> results = readProperties(std::span(&descriptor, 1));
    return std::move(results.front());
}

std::uint32_t ReaderClient::startProperties(int descriptor)
{
    giveUpProperties();
    const std::uint32_t ticket = propertiesTicket_ = nextTicket();
    jobs_.add(propertyTask_, descriptor, {}, nullptr);
    step();
    changed();
    return ticket;
}

void ReaderClient::giveUpProperties()
{
    jobs_.results().properties.reset();
    propertiesTicket_ = 0;
    jobs_.giveUp([](const ReaderJob& job) {
        return asksForProperties(job.task) && job.propertyResult == nullptr;
    });
}

std::optional<PropertyResult> ReaderClient::takeProperties()
{
    if (hasProperties()) propertiesTicket_ = 0;
    return std::exchange(jobs_.results().properties, std::nullopt);
}

std::optional<PropertyResult> ReaderClient::waitForProperties(std::chrono::milliseconds max)
{
    waitWhile([this] { return !hasProperties() && propertiesTicket_ != 0; }, Clock::now() + max);
    return takeProperties();
}

std::uint32_t ReaderClient::startPreview(int descriptor, PreviewKind kind, PixelSize box)
{
    giveUpPreview();
    const std::uint32_t ticket = previewTicket_ = nextTicket();
    jobs_.add(taskOf(kind), descriptor, box, nullptr);
    step();
    changed();
    return ticket;
}

void ReaderClient::giveUpPreview()
{
    jobs_.results().preview.reset();
    previewTicket_ = 0;
    jobs_.giveUp([](const ReaderJob& job) { return !asksForProperties(job.task); });
}

std::optional<PreviewResult> ReaderClient::takePreview()
{
    if (hasPreview()) previewTicket_ = 0;
    return std::exchange(jobs_.results().preview, std::nullopt);
}

PreviewResult ReaderClient::waitForPreview(std::chrono::milliseconds max)
{
    waitWhile([this] { return !hasPreview() && previewTicket_ != 0; }, Clock::now() + max);
    const bool isLate = !hasPreview() && previewTicket_ != 0;
    if (isLate) giveUpPreview();
    return takePreview().value_or(
        PreviewResult{isLate ? ReadOutcome::stuck : ReadOutcome::failed, {}});
}

std::uint32_t ReaderClient::nextTicket()
{
    const std::uint32_t ticket = nextTicket_++;
    if (nextTicket_ == 0) nextTicket_ = 1;
    return ticket;
}

void ReaderClient::waitWhile(const std::function<bool()>& isOpen, Clock::time_point end, int alarm)
{
    step();
    while (isOpen()) {
        const Clock::time_point now = Clock::now();
        if (now >= end) break;
        int wait = millisecondsLeft();
        if (end != Clock::time_point::max()) {
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - now).count();
            if (wait < 0 || left < wait) wait = static_cast<int>(left);
        }
        // poll ignores a negative descriptor.
        pollfd states[] = {{socket(), POLLIN, 0}, {alarm, POLLIN, 0}};
        (void)poll(states, 2, wait);
        step();
        if ((states[1].revents & POLLIN) != 0) break;
    }
    changed();
}

void ReaderClient::step()
{
    (void)lingeringReaders();  // collects those that have ended meanwhile
    // First what has come: a reader that died, or that sends what nobody asked for, gets no new
    // picture.
    while (process_ && receive()) {
    }
    if (!process_ && !jobs_.isEmpty()) startProcess();
    send();
    stopFront();
    checkTime();
    send();  // to the reader that checkTime may have started
    replaceCrashedReader();
}

// True when there may be more to receive.
bool ReaderClient::receive()
{
    const ReaderJobs::Received received = jobs_.receive(socket());
    if (received.wasFirstWord) failedStarts_ = 0;
    if (received.wasReply) deathsInRow_ = 0;
    crashes_ += received.failures;
    failureCount_ += received.failures;
    if (received.isBroken) loseReader(Loss::died);
    return received.isMore;
}

void ReaderClient::send()
{
    if (process_) jobs_.send(socket());
}

const ReaderPatience& ReaderClient::patienceOf(const ReaderJob& job) const
{
    return asksForProperties(job.task) ? limits_.properties : limits_.preview;
}

// A reader that reports what the picture costs takes some time itself to do so, which is no sign of
// life.
std::chrono::nanoseconds ReaderClient::processorTime() const
{
    const auto reported = jobs_.reportedTime();
    return reported ? atTurn_ + *reported : process_.processorTime();
}

// When others have waited long enough for the oldest job; never when it is not in their way.
std::optional<ReaderClient::Clock::time_point> ReaderClient::whenFrontGivesWay() const
{
    if (!jobs_.isReady() || !jobs_.isFrontSent() || jobs_.all().size() < 2) return std::nullopt;
    const ReaderJob& front = jobs_.all()[0];
    const ReaderJob& next = jobs_.all()[1];
    const bool isPreview = !asksForProperties(front.task);
    // The reader stops making a preview by itself when another request comes. Properties that have
    // taken so long already are held up by a disk.
    if (isPreview && next.isSent) return next.sent + limits_.giveWay;
    if (!isPreview && front.isGivenUp) {
        return front.stopRequested.value_or(front.sent) + limits_.giveWay;
    }
    return std::nullopt;
}

// Nobody waits for the oldest job: why should the reader?
void ReaderClient::stopFront()
{
    if (!process_ || !jobs_.isReady() || !jobs_.isFrontSent()) return;
    const ReaderJob& front = jobs_.front();
    if (front.isGivenUp && !front.stopRequested) (void)jobs_.stopFront(socket());
}

// The oldest job took too long. A reader that still does what it is told survives that.
void ReaderClient::stopStuckFront(Clock::time_point now)
{
    ReaderJob& front = jobs_.front();
    if (!front.stopRequested && jobs_.stopFront(socket())) {
        front.isStuck = true;
    } else if (!front.isStuck || now >= *front.stopRequested + limits_.giveWay) {
        loseReader(Loss::stuck);
    }
}

void ReaderClient::replaceCrashedReader()
{
    if (crashes_ < kMaxCrashes || !jobs_.isEmpty()) return;
    process_.end(limits_.end);
    startProcess();
}

void ReaderClient::startProcess()
{
    const Clock::time_point now = Clock::now();
    if (now < missingUntil_) {
        jobs_.dropAll(ReadOutcome::noReader);
        return;
    }
    if (now < notBefore_ || !hasRoomForProcess(now)) return;
    process_ = launcher_();
    crashes_ = 0;
    jobs_.disconnect();
    watch_.begin(limits_.start, now);
    if (!process_) {
        missingUntil_ = now + limits_.whenMissing;
        jobs_.dropAll(ReadOutcome::noReader);
    }
}

// Without a maximum, browsing a disk that does not respond would leave one process per picture.
bool ReaderClient::hasRoomForProcess(Clock::time_point now)
{
    if (lingeringReaders() < limits_.maxLingering) {
        crowdedSince_ = Clock::time_point::max();
        return true;
    }
    crowdedSince_ = std::min(crowdedSince_, now);
    notBefore_ = now + kWhenCrowded;
    if (now - crowdedSince_ >= limits_.start.whole) jobs_.dropAll(ReadOutcome::stuck);
    return false;
}

// The reader is gone, or has to go.
void ReaderClient::loseReader(Loss loss)
{
    process_.end(limits_.end);
    const Clock::time_point now = Clock::now();
    const bool wasReady = jobs_.isReady();
    jobs_.disconnect();
    if (!wasReady) {
        loseStartingReader(loss, now);
        return;
    }
    if (loss != Loss::inTheWay && ++deathsInRow_ >= kDeathsBeforeAPause) {
        const int doublings = std::min(deathsInRow_ - kDeathsBeforeAPause, 5);
        notBefore_ =
            now + std::min<std::chrono::milliseconds>(kFirstPause * (1 << doublings), kMaxPause);
    }
    const bool wasWorking = jobs_.isFrontSent();
    if (wasWorking) blameFront(loss);
    jobs_.sendAgain();
    // So that the next picture does not have to wait for the start.
    if (wasWorking) startProcess();
}

// No job is to blame: none can have been read before the first word.
void ReaderClient::loseStartingReader(Loss loss, Clock::time_point now)
{
    jobs_.sendAgain();
    if (loss == Loss::stuck || ++failedStarts_ >= kMaxFailedStarts) {
        failedStarts_ = 0;
        missingUntil_ = now + limits_.whenMissing;
        jobs_.dropAll(ReadOutcome::noReader);
    }
    if (!jobs_.isEmpty()) startProcess();
}

// The oldest job is to blame for what happened to its reader, if the request was for this picture
// alone. One death may be an accident, such as a reader that died just before the request came.
void ReaderClient::blameFront(Loss loss)
{
    ReaderJob& job = jobs_.front();
    if (job.hasCompany) {
        jobs_.separateBatch();
        return;
    }
    job.deaths++;
    if (loss == Loss::stuck) {
        jobs_.dropFront(ReadOutcome::stuck);
    } else if (job.deaths >= kMaxDeaths) {
        jobs_.dropFront(ReadOutcome::failed);
    }
}

// When a job that was interrupted has had its time in all of its turns; never without interruption,
// when its one turn is watched.
std::optional<ReaderClient::Clock::time_point> ReaderClient::whenTurnsEnd() const
{
    if (!jobs_.isReady() || !jobs_.isFrontSent()) return std::nullopt;
    const ReaderJob& front = jobs_.all().front();
    if (front.interruptions == 0) return std::nullopt;
    return front.firstSent + patienceOf(front).whole;
}

void ReaderClient::checkTime()
{
    if (!process_) return;
    const Clock::time_point now = Clock::now();
    if (jobs_.isReady() && !jobs_.isFrontSent()) {
        checkSending(now);
        return;
    }
    fullSince_ = Clock::time_point::max();
    const auto turnsEnd = whenTurnsEnd();
    const bool isWatchedOut = watch_.isDue(now) && watch_.isStuck(now, processorTime());
    if (isWatchedOut || (turnsEnd && now >= *turnsEnd)) {
        if (jobs_.isReady()) return stopStuckFront(now);
        return loseReader(Loss::stuck);
    }
    const auto givesWay = whenFrontGivesWay();
    if (givesWay && now >= *givesWay) loseReader(Loss::inTheWay);
}

// The reader has no request. If there is one that it does not take, somebody has to end that: a
// reader that replies without reading would fill its socket and keep the window waiting for good.
void ReaderClient::checkSending(Clock::time_point now)
{
    fullSince_ = jobs_.isEmpty() ? Clock::time_point::max() : std::min(fullSince_, now);
    if (jobs_.isEmpty() || now - fullSince_ < patienceOf(jobs_.front()).silence) return;
    fullSince_ = Clock::time_point::max();
    loseReader(Loss::stuck);
}

}  // namespace pinorama
