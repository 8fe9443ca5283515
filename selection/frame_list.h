// The programs on the accessibility bus, the windows of those that are file managers, and which of
// these windows was active last. Programs and windows come and go while coroutines wait for replies
// about them, so the list hands out values and shared pointers only, and every function accepts a
// program or window that is no longer in the list.

#pragma once

#include <QString>

#include <sys/types.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "selection/accessible.h"
#include "selection/file_manager_kind.h"
#include "selection/frame_reader.h"
#include "selection/task.h"

namespace pinorama {

using SharedFrame = std::shared_ptr<FrameReader>;

class FrameList {
public:
    struct Manager {
        pid_t process = 0;
        const FileManagerKind* kind = nullptr;  // never null; points into a constant table
    };

    // Adds a program about which nothing is known yet. False if it is in the list already.
    bool add(const QString& service);

    // Notes the process of a program, and its kind (null if it is no file manager). False if the
    // program has been removed meanwhile.
    bool identify(const QString& service, pid_t process, const FileManagerKind* kind);

    // Removes a program and its windows.
    void remove(const QString& service);
    void clear() { programs_.clear(); }

    std::optional<Manager> manager(const QString& service) const;

    // The file managers that are not paused.
    std::vector<QString> managers() const;

    // Pauses a program and its windows, or ends the pause. False if that changes nothing.
    bool setPaused(const QString& service, bool isPaused);

    // Removes the windows of a program that are not among `frames`, and returns those of `frames`
    // that are not in the list yet. Empty if the program has been removed.
    std::vector<Accessible> keepOnly(const QString& service, const std::vector<Accessible>& frames);

    // Adds a window, unless its program has been removed or the window is in the list already.
    void addFrame(const QString& service, const SharedFrame& frame);

    // The windows of a program, and those of all programs that are not paused.
    std::vector<SharedFrame> framesOf(const QString& service) const;
    std::vector<SharedFrame> frames() const;

    // Whether windows are active, as they all replied at one moment. Windows that are no longer in
    // the list are ignored.
    struct Activity {
        SharedFrame frame;
        bool isActive = false;
    };
    void note(const std::vector<Activity>& activities);

    // The window that was active last among those that show a folder or have not been walked yet;
    // null if there is none. `before`, the previous result, also counts if it shows no folder any
    // more.
    SharedFrame latest(const SharedFrame& before) const;

    // Whether a window may be walked now, because the last walk was a while ago. If so, notes `now`
    // as the time of the last walk.
    bool beginWalk(const SharedFrame& frame, Clock::time_point now);

private:
    struct Frame {
        SharedFrame reader;
        bool isActive = false;
        std::uint64_t activatedAt = 0;  // number of the activation, 0 for never
        Clock::time_point walkedAt = {};
    };
    struct Program {
        QString service;
        pid_t process = 0;
        const FileManagerKind* kind = nullptr;  // null: no file manager, or not identified yet
        bool isPaused = false;
        std::vector<Frame> frames = {};
    };

    Program* find(const QString& service);
    const Program* find(const QString& service) const;
    Frame* find(const SharedFrame& frame);
    bool isLatestActive() const;

    std::vector<Program> programs_;
    std::uint64_t activations_ = 0;
};

}  // namespace pinorama
