#include "selection/frame_list.h"

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

constexpr auto kWalkInterval = 700ms;  // of a window without a view of files
}  // namespace

FrameList::Program* FrameList::find(const QString& service)
{
    const auto program = std::find_if(programs_.begin(), programs_.end(),
                                      [&](const Program& p) { return p.service == service; });
    return program == programs_.end() ? nullptr : &*program;
}

const FrameList::Program* FrameList::find(const QString& service) const
{
    return const_cast<FrameList*>(this)->find(service);
}

FrameList::Frame* FrameList::find(const SharedFrame& frame)
{
    for (Program& program : programs_) {
        for (Frame& known : program.frames) {
            if (known.reader == frame) return &known;
        }
    }
    return nullptr;
}

bool FrameList::add(const QString& service)
{
    if (find(service) != nullptr) return false;
    programs_.push_back({.service = service});
    return true;
}

bool FrameList::identify(const QString& service, pid_t process, const FileManagerKind* kind)
{
    Program* program = find(service);
    if (program == nullptr) return false;
    program->process = process;
    program->kind = kind;
    return true;
}

void FrameList::remove(const QString& service)
{
    std::erase_if(programs_, [&](const Program& program) { return program.service == service; });
}

std::optional<FrameList::Manager> FrameList::manager(const QString& service) const
{
    const Program* program = find(service);
    if (program == nullptr || program->kind == nullptr) return std::nullopt;
    return Manager{program->process, program->kind};
}

std::vector<QString> FrameList::managers() const
{
    std::vector<QString> services;
    for (const Program& program : programs_) {
        if (program.kind != nullptr && !program.isPaused) services.push_back(program.service);
    }
    return services;
}

bool FrameList::setPaused(const QString& service, bool isPaused)
{
    Program* program = find(service);
    return program != nullptr && std::exchange(program->isPaused, isPaused) != isPaused;
}

std::vector<Accessible> FrameList::keepOnly(const QString& service,
                                            const std::vector<Accessible>& frames)
{
    Program* program = find(service);
    if (program == nullptr) return {};
    std::erase_if(program->frames, [&](const Frame& frame) {
        return std::find(frames.begin(), frames.end(), frame.reader->frame()) == frames.end();
    });
    std::vector<Accessible> unknown;
    for (const Accessible& object : frames) {
        const bool isKnown =
            std::any_of(program->frames.begin(), program->frames.end(),
                        [&](const Frame& frame) { return frame.reader->frame() == object; });
        if (!isKnown && !object.isNull()) unknown.push_back(object);
    }
    return unknown;
}

void FrameList::addFrame(const QString& service, const SharedFrame& frame)
{
    Program* program = find(service);
    if (program == nullptr) return;
    const bool isKnown =
        std::any_of(program->frames.begin(), program->frames.end(),
                    [&](const Frame& known) { return known.reader->frame() == frame->frame(); });
    if (!isKnown) program->frames.push_back({.reader = frame});
}

std::vector<SharedFrame> FrameList::framesOf(const QString& service) const
{
    std::vector<SharedFrame> frames;
    const Program* program = find(service);
    if (program == nullptr) return frames;
    for (const Frame& frame : program->frames) frames.push_back(frame.reader);
    return frames;
}

std::vector<SharedFrame> FrameList::frames() const
{
    std::vector<SharedFrame> frames;
    for (const Program& program : programs_) {
        if (program.isPaused) continue;
        for (const Frame& frame : program.frames) frames.push_back(frame.reader);
    }
    return frames;
}

void FrameList::note(const std::vector<Activity>& activities)
{
    for (const Activity& activity : activities) {
        Frame* frame = find(activity.frame);
        if (frame == nullptr) continue;
        if (activity.isActive && !frame->isActive) frame->activatedAt = ++activations_;
        frame->isActive = activity.isActive;
    }
    // The user may have left a window for another program and come back between two calls. Then the
    // window is active, but it was never seen to become active again.
    for (Program& program : programs_) {
        for (Frame& frame : program.frames) {
            if (frame.isActive && !isLatestActive()) frame.activatedAt = ++activations_;
        }
    }
}

// Whether the window that became active last is still active.
bool FrameList::isLatestActive() const
{
    const Frame* latest = nullptr;
    for (const Program& program : programs_) {
        for (const Frame& frame : program.frames) {
            if (latest == nullptr || frame.activatedAt > latest->activatedAt) latest = &frame;
        }
    }
    return latest != nullptr && latest->isActive;
}

// A window without a view of files, such as one that shows the progress of copying, does not count.
// One that has not been walked yet may have a view.
SharedFrame FrameList::latest(const SharedFrame& before) const
{
    const Frame* latest = nullptr;
    for (const Program& program : programs_) {
        for (const Frame& frame : program.frames) {
            const bool isWalked = frame.walkedAt != Clock::time_point();
            if (isWalked && !frame.reader->isFound() && !frame.isActive && frame.reader != before)
                continue;
            if (latest == nullptr || frame.activatedAt >= latest->activatedAt) latest = &frame;
        }
    }
    return latest == nullptr ? nullptr : latest->reader;
}

bool FrameList::beginWalk(const SharedFrame& frame, Clock::time_point now)
{
    Frame* known = find(frame);
    if (known == nullptr || now - known->walkedAt < kWalkInterval) return false;
    known->walkedAt = now;
    return true;
}

}  // namespace pinorama
