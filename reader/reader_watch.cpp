#include "reader/reader_watch.h"

#include <algorithm>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

// So often that a reader in a loop is noticed soon, and so rarely that waiting costs nothing.
constexpr auto kBetweenLooks = 200ms;
}  // namespace

void ReaderWatch::begin(const ReaderPatience& patience, Time now)
{
    patience_ = patience;
    began_ = lastSign_ = now;
    atBegin_.reset();
}

bool ReaderWatch::isDue(Time now) const
{
    return !atBegin_ || now >= firstEnd();
}

bool ReaderWatch::isStuck(Time now, std::chrono::nanoseconds processor)
{
    if (!atBegin_) atBegin_ = atLastLook_ = processor;
    if (processor != atLastLook_) {
        atLastLook_ = processor;
        lastSign_ = now;
    }
    return processor - *atBegin_ >= patience_.processor || now - lastSign_ >= patience_.silence ||
           now - began_ >= patience_.whole;
}

ReaderWatch::Time ReaderWatch::nextLook(Time now) const
{
    return std::max(firstEnd(), std::min(now + kBetweenLooks, began_ + patience_.whole));
}

// None of the three can be over before the shortest is.
ReaderWatch::Time ReaderWatch::firstEnd() const
{
    return began_ + std::min({patience_.processor, patience_.silence, patience_.whole});
}

}  // namespace pinorama
