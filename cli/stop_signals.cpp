#include "cli/stop_signals.h"

#include <sys/signalfd.h>
#include <unistd.h>

namespace pinorama {

StopSignals::StopSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals, signal);
    sigprocmask(SIG_BLOCK, &signals, &earlierMask_);
    descriptor_ = DescriptorHolder(signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC));

    struct sigaction ignore {};
    ignore.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &ignore, &earlierPipeAction_);
}

StopSignals::~StopSignals()
{
    sigaction(SIGPIPE, &earlierPipeAction_, nullptr);
    sigprocmask(SIG_SETMASK, &earlierMask_, nullptr);
}

int StopSignals::caught()
{
    signalfd_siginfo signal;
    if (caught_ == 0 && read(descriptor_.get(), &signal, sizeof signal) == sizeof signal) {
        caught_ = static_cast<int>(signal.ssi_signo);
    }
    return caught_;
}

}  // namespace pinorama
