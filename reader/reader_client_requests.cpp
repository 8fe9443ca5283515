// What a client is asked for, and how it is waited for.

#include "reader/reader_client.h"

#include <algorithm>
#include <utility>

#include <poll.h>

namespace pinorama {

std::vector<PropertyResult> ReaderClient::readProperties(std::span<const int> descriptors,
                                                         int alarm)
{
    const auto isOurs = [](const Job& job) { return job.propertyResult != nullptr; };
    std::vector<PropertyResult> results(descriptors.size());
    for (std::size_t i = 0; i < descriptors.size(); i++) {
        addJob(ReaderTask::properties, descriptors[i], {}, &results[i]);
    }
    waitWhile([&] { return isWaitedFor(isOurs); }, Clock::time_point::max(), alarm);
    // What the alarm has cut short must not find its way to the results later on.
    for (Job& job : jobs_) job.isGivenUp = job.isGivenUp || isOurs(job);
    for (Job& job : jobs_) job.propertyResult = nullptr;
    giveUp([](const Job& job) { return job.isGivenUp; });
    return results;
}

PropertyResult ReaderClient::readProperties(int descriptor)
{
    std::vector<PropertyResult> results = readProperties(std::span(&descriptor, 1));
    PropertyResult result = std::move(results.front());
    return result;
}

std::uint32_t ReaderClient::startProperties(int descriptor)
{
    giveUpProperties();
    const std::uint32_t ticket = propertiesTicket_ = nextTicket();
    addJob(ReaderTask::properties, descriptor, {}, nullptr);
    step();
    changed();
    return ticket;
}

void ReaderClient::giveUpProperties()
{
    properties_.reset();
    propertiesTicket_ = 0;
    giveUp([](const Job& job) {
        return job.task == ReaderTask::properties && job.propertyResult == nullptr;
    });
}

std::optional<PropertyResult> ReaderClient::takeProperties()
{
    if (properties_) propertiesTicket_ = 0;
    return std::exchange(properties_, std::nullopt);
}

std::optional<PropertyResult> ReaderClient::waitForProperties(std::chrono::milliseconds most)
{
    waitWhile([this] { return !properties_ && propertiesTicket_ != 0; }, Clock::now() + most);
    return takeProperties();
}

std::uint32_t ReaderClient::startPreview(int descriptor, PreviewKind kind, PixelSize box)
{
    giveUpPreview();
    const std::uint32_t ticket = previewTicket_ = nextTicket();
    addJob(kind == PreviewKind::cachedThumbnail ? ReaderTask::cachedThumbnail
                                                : ReaderTask::picturePreview,
           descriptor, box, nullptr);
    step();
    changed();
    return ticket;
}

void ReaderClient::giveUpPreview()
{
    preview_.reset();
    previewTicket_ = 0;
    giveUp([](const Job& job) { return job.task != ReaderTask::properties; });
}

std::optional<PreviewResult> ReaderClient::takePreview()
{
    if (preview_) previewTicket_ = 0;
    return std::exchange(preview_, std::nullopt);
}

PreviewResult ReaderClient::waitForPreview(std::chrono::milliseconds most)
{
    waitWhile([this] { return !preview_ && previewTicket_ != 0; }, Clock::now() + most);
    const bool isLate = !preview_ && previewTicket_ != 0;
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

// What has not been sent is forgotten; the reply to what has been is passed over.
void ReaderClient::giveUp(bool (*isMeant)(const Job& job))
{
    std::erase_if(jobs_, [isMeant](const Job& job) { return isMeant(job) && !job.isSent; });
    for (Job& job : jobs_) job.isGivenUp = job.isGivenUp || isMeant(job);
}

bool ReaderClient::isWaitedFor(bool (*isMeant)(const Job& job)) const
{
    return std::any_of(jobs_.begin(), jobs_.end(),
                       [isMeant](const Job& job) { return isMeant(job) && !job.isGivenUp; });
}

void ReaderClient::addJob(ReaderTask task, int descriptor, PixelSize box, PropertyResult* result)
{
    jobs_.push_back({.task = task,
                     .number = nextNumber_++,
                     .descriptor = descriptor,
                     .box = box,
                     .propertyResult = result});
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
        // A negative descriptor is passed over.
        pollfd states[] = {{socket(), POLLIN, 0}, {alarm, POLLIN, 0}};
        (void)poll(states, 2, wait);
        step();
        if ((states[1].revents & POLLIN) != 0) break;
    }
    changed();
}

}  // namespace pinorama
