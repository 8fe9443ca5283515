// Dolphin's own interface on the session bus, which tells one thing that the accessibility bus does
// not: whether exactly one item is selected.

#pragma once

#include <QDBusMessage>
#include <QString>

#include <sys/types.h>

#include <optional>

#include "selection/accessible.h"
#include "selection/dbus_inquiry.h"

namespace pinorama {

class DolphinWindow {
public:
    using OutlivesItsTasks = void;  // it is a part of the reader that finds it

    // Finds the object on the session bus that stands for a window of the process. It stays unknown
    // when several fit.
    Task<Done> find(Inquiry& inquiry, Accessible frame, pid_t process);

    // The question whether exactly one item is selected, which goes to the session bus. Nothing
    // when the window is not known.
    std::optional<QDBusMessage> isOneSelectedQuestion() const;
    static std::optional<bool> truthIn(const QDBusMessage& answer);

private:
    QString service_;
    QString path_;  // of its object; empty when unknown
};

}  // namespace pinorama
