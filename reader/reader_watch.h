// Tells a reader that is stuck from one that waits for a slow disk. A disk that has to start
// turning, a memory card or a network share takes seconds and none of the processor; a parser that
// a picture leads astray takes the processor; and what neither gets anywhere nor ends is given up
// at last.

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

// Watches one piece of work at a time. Knows neither clocks nor processes: it is told what they
// say.
class ReaderWatch {
public:
    using Time = std::chrono::steady_clock::time_point;

    // Work begins.
    void begin(const ReaderPatience& patience, Time now);

    // Whether it is time to look at the reader: at once, which tells where its processor time
    // begins, and again from when the work may have taken too long.
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
