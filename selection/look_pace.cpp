#include "selection/look_pace.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace pinorama {
namespace {
using namespace std::chrono_literals;

constexpr auto kInterval = 20ms;  // between the beginnings of two looks
}  // namespace

LookPace::LookPace(std::function<void()> look) : look_(std::move(look))
{
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { begin(); });
}

void LookPace::request()
{
    isRequested_ = true;
    schedule();
}

void LookPace::end()
{
    if (!std::exchange(isLooking_, false)) return;
    const Clock::time_point now = Clock::now();
    next_ = std::max(began_ + kInterval, now + (now - began_));
    schedule();
}

void LookPace::drop()
{
    isRequested_ = false;
    timer_.stop();
}

void LookPace::schedule()
{
    if (!isRequested_ || isLooking_ || timer_.isActive()) return;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(next_ - Clock::now());
    timer_.start(std::max(left, 0ms));
}

void LookPace::begin()
{
    if (Clock::now() < next_) return schedule();  // the timer was early
    isRequested_ = false;
    isLooking_ = true;
    began_ = Clock::now();
    look_();
}

}  // namespace pinorama
