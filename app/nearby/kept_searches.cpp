#include "app/nearby/kept_searches.h"

#include "base/descriptor.h"

#include <QProcess>
#include <QSocketNotifier>
#include <QTimer>
#include <QVariant>

#include <algorithm>
#include <csignal>
#include <memory>
#include <tuple>
#include <utility>

#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr int kNiceness = 5;               // the picture that is shown comes first
constexpr const char* kIsDone = "isDone";  // a property of a process

// Runs in the child before it becomes the program: without the window nobody wants its result.
void prepareChild(int pipe)
{
    (void)prctl(PR_SET_PDEATHSIG, SIGTERM);
    (void)prctl(PR_SET_CHILD_SUBREAPER, 1);
    std::ignore = nice(kNiceness);
    (void)fcntl(pipe, F_SETFD, 0);  // stays open in the program
}
}  // namespace

KeptSearches& KeptSearches::all()
{
    // Never given back: a process that a disk keeps would be waited for.
    static auto* const searches = new KeptSearches;
    return *searches;
}

void KeptSearches::prepare(QProcess* process)
{
    int ends[2] = {-1, -1};
    std::ignore = pipe2(ends, O_CLOEXEC);
    const auto near = std::make_shared<DescriptorHolder>(ends[0]);
    const auto far = std::make_shared<DescriptorHolder>(ends[1]);
    process->setChildProcessModifier([pipe = ends[1]] { prepareChild(pipe); });
    if (!*near) return;
    connect(process, &QProcess::started, process, [far] { *far = DescriptorHolder(); });
    auto* notifier = new QSocketNotifier(near->get(), QSocketNotifier::Read, process);
    connect(notifier, &QSocketNotifier::activated, process, [this, near, notifier, process] {
        notifier->setEnabled(false);
        setDone(process);
    });
}

void KeptSearches::end(QProcess* process, std::chrono::milliseconds patience)
{
    if (process->state() == QProcess::NotRunning) {
        process->deleteLater();
        return;
    }
    add(process, true);
    process->terminate();
    QTimer::singleShot(patience, process, [this, process] {
        if (isEnding(process)) process->kill();
    });
}

void KeptSearches::keep(QProcess* process)
{
    add(process, false);
}

bool KeptSearches::isEnding(const QProcess* process) const
{
    const auto search = std::ranges::find(searches_, process, &Search::process);
    return search != searches_.end() && search->isEnding;
}

void KeptSearches::add(QProcess* process, bool isEnding)
{
    searches_.push_back({process, isEnding && !process->property(kIsDone).toBool()});
    connect(process, &QProcess::finished, this, [this, process] { remove(process); });
    connect(process, &QProcess::errorOccurred, this, [this, process](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) remove(process);
    });
    process->closeReadChannel(QProcess::StandardOutput);
}

void KeptSearches::setDone(QProcess* process)
{
    process->setProperty(kIsDone, true);
    const auto search = std::ranges::find(searches_, process, &Search::process);
    if (search != searches_.end() && std::exchange(search->isEnding, false)) Q_EMIT changed();
    Q_EMIT done(process);
}

void KeptSearches::remove(QProcess* process)
{
    std::erase_if(searches_, [process](const Search& search) { return search.process == process; });
    process->disconnect(this);
    process->deleteLater();
    Q_EMIT changed();
}

}  // namespace pinorama
