// A function that waits for answers in its midst, and what it may hold meanwhile.
//
// Whatever can happen in the event loop can happen at a co_await: programs leave the bus, windows
// close, the connection is lost, another function reads the same window. So after it a function
// uses
//
// - what it owns: values, and objects that it holds by a shared pointer;
// - the object that it is a member of, and the inquiry that runs it. Their classes say that they
//   outlive every task that they start (OutlivesItsTasks);
// - what it finds anew, by a name that it owns, and finds gone.
//
// It does not use a reference, a pointer or an iterator to a part of something that others change.
// Parameters that would be one do not compile. Who keeps things that come and go hands out values
// and shared pointers only, as FrameList does, so that there is nothing to hold.

#pragma once

#include <coroutine>
#include <exception>
#include <functional>
#include <iterator>
#include <optional>
#include <ranges>
#include <tuple>
#include <type_traits>
#include <utility>

namespace pinorama {

template <typename Type>
struct IsReferenceWrapper : std::false_type {
};
template <typename Type>
struct IsReferenceWrapper<std::reference_wrapper<Type>> : std::true_type {
};

// A range that is copied like a number has its items elsewhere, unless it has room for a fixed
// number of them.
template <typename Type>
concept ViewOfSomething = std::ranges::view<Type> || std::ranges::borrowed_range<Type> ||
    (std::ranges::range<Type>&& std::is_trivially_copyable_v<Type> &&
     !requires { std::tuple_size<Type>::value; });

// A value that belongs to who holds it: no pointer, no iterator, no view.
template <typename Type>
concept OwnedValue = std::is_object_v<Type> && !std::is_pointer_v<Type> &&
                     !std::input_or_output_iterator<std::remove_const_t<Type>> &&
                     !ViewOfSomething<std::remove_const_t<Type>> &&
                     !IsReferenceWrapper<std::remove_const_t<Type>>::value;

// An object whose class says that it outlives the tasks that it starts or is handed to; or a
// closure that holds nothing.
template <typename Type>
concept OutlivesTasks = std::is_lvalue_reference_v<Type> &&(requires {
    typename std::remove_cvref_t<Type>::OutlivesItsTasks;
} || std::is_empty_v<std::remove_cvref_t<Type>>);

// What a function that waits may be handed.
template <typename Type>
concept HeldAcrossWaiting = OwnedValue<Type> || OutlivesTasks<Type>;

// What a function that asks returns: it starts when it is awaited, and the value is ready when it
// has run to its end. Dropping a task that has not ended drops everything that it holds.
template <typename Value>
class [[nodiscard]] Task {
public:
    struct Promise {
        std::optional<Value> value;
        std::coroutine_handle<> caller = std::noop_coroutine();

        struct BackToCaller {
            bool await_ready() noexcept { return false; }
            std::coroutine_handle<> await_suspend(std::coroutine_handle<Promise> self) noexcept
            {
                return self.promise().caller;
            }
            void await_resume() noexcept {}
        };

        Task get_return_object()
        {
            return Task(std::coroutine_handle<Promise>::from_promise(*this));
        }
        std::suspend_always initial_suspend() noexcept { return {}; }
        BackToCaller final_suspend() noexcept { return {}; }
        void return_value(Value result) { value.emplace(std::move(result)); }
        void unhandled_exception() { std::terminate(); }  // only memory can run out here
    };

    Task() = default;
    Task(Task&& other) noexcept : handle_(std::exchange(other.handle_, {})) {}
    Task& operator=(Task&& other) noexcept
    {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~Task()
    {
        if (handle_) handle_.destroy();
    }

    void start() { handle_.resume(); }
    bool isDone() const { return !handle_ || handle_.done(); }

    bool await_ready() const { return false; }
    std::coroutine_handle<> await_suspend(std::coroutine_handle<> caller)
    {
        handle_.promise().caller = caller;
        return handle_;
    }
    Value await_resume()
    {
        // Whoever waits is woken up by the end, which has set it.
        // NOLINTNEXTLINE(bugprone-unchecked-optional-access)
        return std::move(*handle_.promise().value);
    }

private:
    explicit Task(std::coroutine_handle<Promise> handle) : handle_(handle) {}

    std::coroutine_handle<Promise> handle_;
};

// The value of a task that is run for what it does.
struct Done {};

}  // namespace pinorama

// Every function that returns a task is looked at here.
template <typename Value, typename... Parameters>
struct std::coroutine_traits<pinorama::Task<Value>, Parameters...> {
    static_assert(
        (pinorama::HeldAcrossWaiting<Parameters> && ...),
        "a function that waits takes values; what it borrows may be gone after a co_await");
    using promise_type = typename pinorama::Task<Value>::Promise;
};
