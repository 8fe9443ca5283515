// A coroutine that waits for replies, and what it may hold while it waits.
//
//     Task<int> countItems(DBusQuery& query, Accessible view)  // owns its copy of `view`
//     {
//         const QDBusMessage getCount = childCountCall(view);
//         const auto count = numberIn(co_await query.reply(getCount));
//         co_return count.value_or(0);
//     }
//
// Anything can happen in the event loop during a co_await: programs leave the bus, windows close,
// the connection breaks, another coroutine reads the same window. After it, a coroutine uses only
//
// - what it owns: values, and objects that it holds by a shared pointer;
// - the object that it is a member of, and the query that runs it. Their classes declare with
//   OutlivesItsTasks that they outlive every task that they start;
// - what it looks up again by a name that it owns, and may not find.
//
// It does not use a reference, a pointer or an iterator to a part of something that others change.
// Nobody sees such a mistake in a review, so a parameter of that kind does not compile. For local
// variables there is no such check: a class whose contents come and go, such as FrameList, returns
// values and shared pointers only, so that there is no reference to keep.

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

// A view owns no items. The standard knows its own views only; QStringView and the like are
// recognised by being trivially copyable ranges, which an owner of items can only be if it holds a
// fixed number of them, as std::array does.
template <typename Type>
concept NonOwningRange = std::ranges::view<Type> || std::ranges::borrowed_range<Type> ||
    (std::ranges::range<Type>&& std::is_trivially_copyable_v<Type> &&
     !requires { std::tuple_size<Type>::value; });

// A value that owns all of its parts: no pointer, no iterator, no view.
template <typename Type>
concept OwnedValue = std::is_object_v<Type> && !std::is_pointer_v<Type> &&
                     !std::input_or_output_iterator<std::remove_const_t<Type>> &&
                     !NonOwningRange<std::remove_const_t<Type>> &&
                     !IsReferenceWrapper<std::remove_const_t<Type>>::value;

// A reference to an object whose class declares that it outlives the tasks that use it, or to a
// lambda without captures. The captures of a lambda die with it, also while its coroutine still
// waits.
template <typename Type>
concept OutlivesTasks = std::is_lvalue_reference_v<Type> &&(requires {
    typename std::remove_cvref_t<Type>::OutlivesItsTasks;
} || std::is_empty_v<std::remove_cvref_t<Type>>);

// The parameters that a coroutine may have.
template <typename Type>
concept SafeAcrossSuspension = OwnedValue<Type> || OutlivesTasks<Type>;

// A lazy coroutine: it starts when it is awaited, and resumes its caller with the value when it
// ends. Destroying a task that waits destroys its local variables and the tasks that it awaits in
// turn; that is how a query is cancelled.
template <typename Value>
class [[nodiscard]] Task {
public:
    struct Promise {
        std::optional<Value> value;
        std::coroutine_handle<> caller = std::noop_coroutine();

        struct ResumeCaller {
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
        ResumeCaller final_suspend() noexcept { return {}; }
        void return_value(Value result) { value.emplace(std::move(result)); }
        void unhandled_exception() { std::terminate(); }  // only std::bad_alloc gets here
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
        // The caller is resumed only after co_return has set the value.
        // NOLINTNEXTLINE(bugprone-unchecked-optional-access)
        return std::move(*handle_.promise().value);
    }

private:
    explicit Task(std::coroutine_handle<Promise> handle) : handle_(handle) {}

    std::coroutine_handle<Promise> handle_;
};

// The value of a task that is run for its effect.
struct Done {};

}  // namespace pinorama

// The compiler instantiates this for every coroutine that returns a task.
template <typename Value, typename... Parameters>
struct std::coroutine_traits<pinorama::Task<Value>, Parameters...> {
    static_assert((pinorama::SafeAcrossSuspension<Parameters> && ...),
                  "a coroutine takes values: what it borrows may be gone after a co_await");
    using promise_type = typename pinorama::Task<Value>::Promise;
};
