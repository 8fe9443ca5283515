// Windows as in Arabic and Hebrew, from right to left, until the end of the scope.

#pragma once

#include <QGuiApplication>

namespace test {

class Mirrored {
public:
    Mirrored() { QGuiApplication::setLayoutDirection(Qt::RightToLeft); }
    Mirrored(const Mirrored&) = delete;
    Mirrored& operator=(const Mirrored&) = delete;
    ~Mirrored() { QGuiApplication::setLayoutDirection(Qt::LeftToRight); }
};

}  // namespace test
