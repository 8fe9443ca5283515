// The programs on the accessibility bus, the windows of those that are file managers, and which of
// the windows was active last. Programs and windows come and go while others wait for answers about
// them, so nothing in here can be held: it is handed out as values and shared pointers, and what
// has left in the meantime is not found.

#pragma once

#include <QString>

#include <sys/types.h>

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
        const FileManagerKind* kind = nullptr;  // never null; of the table, which stays
    };

    // A program has come, and nothing is known of it yet. False when it is there already.
    bool add(const QString& service);

    // It runs in this process and is a file manager of this kind, or none (null). False when it has
    // left meanwhile.
    bool identify(const QString& service, pid_t process, const FileManagerKind* kind);

    // It has left, and its windows with it.
    void remove(const QString& service);
    void clear() { programs_.clear(); }

    std::optional<Manager> manager(const QString& service) const;

    // The file managers that are not left alone.
    std::vector<QString> managers() const;

    // Leaves a program alone, and its windows with it, or no longer. False when it is so already
    // and when it has left.
    bool setPaused(const QString& service, bool isPaused);

    // Forgets the windows of a program that are not among these, and gives those among them that
    // are new. Nothing when the program has left.
    std::vector<Accessible> keepOnly(const QString& service, const std::vector<Accessible>& frames);

    // A window of this program. Not taken when the program has left, or when it is
    // known.
    void addFrame(const QString& service, const SharedFrame& frame);

    // The windows of a program, or of all that are not left alone.
    std::vector<SharedFrame> framesOf(const QString& service) const;
    std::vector<SharedFrame> frames() const;

    // What the windows have said, all at one moment, of whether they are active. Of windows that
    // have gone since nothing is noted.
    struct Activity {
        SharedFrame frame;
        bool isActive = false;
    };
    void note(const std::vector<Activity>& activities);

    // The window that was active last and shows a folder, or of which that is not known yet; null
    // when there is none. `before` was it the last time and stays it for as long as nothing speaks
    // against it, even when it does not show a folder any more.
    SharedFrame latest(const SharedFrame& before) const;

    // Whether a window may be walked now: it has not been for a while. Counts as walked from now on
    // when it may.
    bool beginWalk(const SharedFrame& frame, Clock::time_point now);

private:
    struct Frame {
        SharedFrame reader;
        bool isActive = false;
        quint64 activatedAt = 0;  // position in the order of activations, 0 for never
        Clock::time_point walkedAt = {};
    };
    struct Program {
        QString service;
        pid_t process = 0;
        const FileManagerKind* kind = nullptr;  // null: no file manager, or not known yet
        bool isPaused = false;
        std::vector<Frame> frames = {};
    };

    Program* find(const QString& service);
    const Program* find(const QString& service) const;
    Frame* find(const SharedFrame& frame);
    bool isLatestActive() const;

    std::vector<Program> programs_;
    quint64 activations_ = 0;
};

}  // namespace pinorama
