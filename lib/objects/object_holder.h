// Owns one reference to an object, and releases it at the end of the scope unless it was taken.
//
//     StringHolder line(TovStringCreateMutable());
//     if (!line) return kErrNoMemory;
//     TovStringAppendCString(line.slot(), "text");
//     *outLine = line.take();

#pragma once

#include <utility>

#include "lib/objects/object.h"

template <typename Ref>
class ObjectHolder {
public:
    // Takes over `ref`, which may be null.
    explicit ObjectHolder(Ref ref = nullptr) : ref_(ref) {}
    ObjectHolder(ObjectHolder&& other) noexcept : ref_(other.take()) {}
    ObjectHolder& operator=(ObjectHolder&& other) noexcept
    {
        std::swap(ref_, other.ref_);
        return *this;
    }
    ObjectHolder(const ObjectHolder&) = delete;
    ObjectHolder& operator=(const ObjectHolder&) = delete;
    ~ObjectHolder() { pinorama::releaseObject(ref_); }

    explicit operator bool() const { return ref_ != nullptr; }
    Ref get() const { return ref_; }

    // The variable itself, for functions that change the handle they are given.
    Ref* slot() { return &ref_; }

    // Passes the reference on to the caller.
    [[nodiscard]] Ref take() { return std::exchange(ref_, nullptr); }

private:
    Ref ref_;
};
