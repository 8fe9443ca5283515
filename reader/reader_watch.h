// Distinguishes a reader that is stuck from one that waits for a slow disk. A disk that has to spin
// up, a memory card or a network share takes seconds of the clock and none of the processor; a
// parser in a loop takes the processor. A limit on the clock alone cannot have both: short, it
// kills readers that wait for a disk; long, it lets a loop run. Each has a limit of its own here,
// and a third one ends what stays below both.
//
//     watch.begin(patience, now);
//     if (watch.isDue(now) && watch.isStuck(now, process.processorTime())) kill(process);
//     sleepUntil(watch.nextLook(now));

#pragma once

#include <chrono>
#include <optional>

namespace pinorama {

// How long one piece of work may take before its reader counts as stuck.
struct ReaderPatience {
    std::chrono::milliseconds processor;  // of processor time
    std::chrono::milliseconds silence;    // without a sign of life: its processor time stands still
    std::chrono::milliseconds whole;      // whatever it does
};

// Watches one piece of work at a time. It knows neither clocks nor processes: the caller passes in
// their times.
class ReaderWatch {
public:
    using Time = std::chrono::steady_clock::time_point;

    // Work begins.
    void begin(const ReaderPatience& patience, Time now);

    // Whether to look at the reader: at once, to learn the processor time that it has had before,
    // and again from when a limit may be over. Most work ends before that and costs one look.
    bool isDue(Time now) const;

    // Looks at the reader, which has had so much processor time in all. True when it is stuck. A
    // sign of life is what differs from the look before.
    bool isStuck(Time now, std::chrono::nanoseconds processor);

    // When to look next.
    Time nextLook(Time now) const;

private:
    Time firstEnd() const;

    ReaderPatience patience_{};
    Time began_{};
    Time lastSign_{};
    std::optional<std::chrono::nanoseconds> atBegin_{};
    std::chrono::nanoseconds atLastLook_{};
};

}  // namespace pinorama
