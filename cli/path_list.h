// The paths in a list that another program writes: one on each line, or each followed by a zero
// byte, which no name can contain.
//
//     PathList list("-", '\n', signals.descriptor());
//     while (const auto path = list.next()) read(*path);
//     if (!list.error().empty()) printDiagnostic(list.error());

#pragma once

#include "base/descriptor.h"

#include <optional>
#include <string>

namespace pinorama {

class PathList {
public:
    // Opens the list at `path`; "-" is standard input.
    //
    //   end    what ends a path: '\n' or '\0'.
    //   alarm  a descriptor that ends the waiting for the other program when it becomes readable;
    //          -1 for none.
    PathList(const std::string& path, char end, int alarm);

    // The next path, which is not empty, in raw bytes. The last one may lack its end. Nothing after
    // it, after an error and after the alarm.
    std::optional<std::string> next();

    // Why the list could not be read, with its name; empty if it could.
    const std::string& error() const { return error_; }

private:
    bool readMore();
    void fail(int error);

    std::string name_;
    char end_;
    int alarm_;
    DescriptorHolder own_;
    int descriptor_;
    std::string error_{};
    std::string bytes_{};
    std::size_t taken_ = 0;  // of bytes_
    bool isOver_ = false;
};

}  // namespace pinorama
