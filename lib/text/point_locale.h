// The C library's own formatting with a decimal point, whatever locale a toolkit has set.

#pragma once

#include <clocale>

#include <locale.h>

namespace pinorama {

// While it lives the numbers of this thread have a point and no grouping; nothing else about the
// locale changes. Without memory the locale stays as it is.
class PointLocale {
public:
    PointLocale()
    {
        const locale_t current = duplocale(uselocale(locale_t{}));
        if (current == locale_t{}) return;
        point_ = newlocale(LC_NUMERIC_MASK, "C", current);
        if (point_ == locale_t{}) {
            freelocale(current);
        } else {
            earlier_ = uselocale(point_);
        }
    }
    ~PointLocale()
    {
        if (point_ == locale_t{}) return;
        uselocale(earlier_);
        freelocale(point_);
    }
    PointLocale(const PointLocale&) = delete;
    PointLocale& operator=(const PointLocale&) = delete;

private:
    locale_t point_{};
    locale_t earlier_{};
};

}  // namespace pinorama
