#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>

/// The general error path. A handler runs inside RunHandler: an exception ends it with one message
/// box and never crosses a Qt signal; what it changed in the catalogue is committed when the
/// outermost handler ends, also after an error (what ran stays done).
///
/// While a box of the general error path is open, further errors of the same number end their
/// handlers silently; where an inner handler ends silently, the outer one's changes wait on. Only
/// what derives from std::exception is an error: anything else that is thrown is meant for whoever
/// started the handler and passes.
///
/// @return true when the handler ran to its end and nothing of it failed to be committed
bool RunHandler(const std::function<void()>& handler);

namespace HandlerDetail {

/// What an unattended handler and its commits failed with when that was shown last.
struct Shown;

} // namespace HandlerDetail

/// Remembers what an unattended handler (a timer's tick, a text's change: nobody calls it on
/// purpose) failed with, so that the same failure is shown once and again only after a clean run.
/// Failures are the same when number and texts are. A commit that fails is remembered apart from
/// what the handler itself fails with: neither ever hides the other.
class Unattended
{
public:
    Unattended();

    /// As RunHandler, but silent while the failure is the one shown last.
    bool Run(const std::function<void()>& handler);

private:
    // Shared with a run in progress: its handler may close the form that this belongs to.
    std::shared_ptr<HandlerDetail::Shown> m_shown;
};

/// Lives as long as a modal box or form runs its own event loop inside a handler. The changes so
/// far are committed when it begins, and handlers that run meanwhile count as outermost: a box that
/// stands open for an hour must not keep their changes in the air.
class ModalScope
{
public:
    /// @throws RuntimeError StoreFailure when the commit fails
    ModalScope();
    ~ModalScope();
    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;

private:
    int m_depth;
};

namespace HandlerDetail {

template <typename>
constexpr bool Never = false;

/// Calls handler with args of the places I, or with as many fewer as it takes.
/// @param context  comes first where the handler is a member function of it
template <typename Handler, typename Context, typename Args, std::size_t... I>
void CallWith(Handler& handler, Context* context, Args& args, std::index_sequence<I...>)
{
    if constexpr (std::is_invocable_v<Handler&, std::tuple_element_t<I, Args>...>)
        std::invoke(handler, std::get<I>(args)...);
    else if constexpr (std::is_invocable_v<Handler&, Context*, std::tuple_element_t<I, Args>...>)
        std::invoke(handler, context, std::get<I>(args)...);
    else if constexpr (sizeof...(I) > 0)
        CallWith(handler, context, args, std::make_index_sequence<sizeof...(I) - 1>());
    else
        static_assert(Never<Handler>, "the handler takes other arguments than the signal gives");
}

/// Calls handler with args, or with as many fewer as it takes.
template <typename Handler, typename Context, typename... Args>
void Call(Handler& handler, Context* context, const Args&... args)
{
    auto all = std::tie(args...);
    CallWith(handler, context, all, std::index_sequence_for<Args...>());
}

} // namespace HandlerDetail

/// Connects a signal to a handler that somebody calls on purpose: a button, a menu entry, a key.
/// The handler is anything that can be called or a member function of context. It may take fewer
/// arguments than the signal gives.
template <typename Sender, typename Signal, typename Context, typename Handler>
QMetaObject::Connection ConnectHandler(const Sender* sender, Signal signal, Context* context,
                                       Handler handler)
{
    return QObject::connect(sender, signal, context,
                            [context, handler](const auto&... args) mutable -> void {
                                RunHandler([&] { HandlerDetail::Call(handler, context, args...); });
                            });
}

/// Connects a signal to an unattended handler.
template <typename Sender, typename Signal, typename Context, typename Handler>
QMetaObject::Connection ConnectUnattended(const Sender* sender, Signal signal, Context* context,
                                          Handler handler)
{
    return QObject::connect(
        sender, signal, context,
        [context, handler, unattended = Unattended()](const auto&... args) mutable -> void {
            unattended.Run([&] { HandlerDetail::Call(handler, context, args...); });
        });
}
