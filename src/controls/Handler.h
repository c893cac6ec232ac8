#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

class RuntimeError;

/// The general error path. A handler runs inside RunHandler: an exception ends it with one message
/// box and never crosses a Qt signal; what it changed in the catalogue is committed when the
/// outermost handler ends, also after an error (what ran stays done).
///
/// While a box of the general error path is open, further errors of the same number end their
/// handlers silently.
///
/// @return true when the handler ran to its end
bool RunHandler(const std::function<void()>& handler);

/// Remembers what an unattended handler (a timer's tick, a text's change: nobody calls it on
/// purpose) failed with, so that the same failure is shown once and again only after a clean run.
class Unattended
{
public:
    /// As RunHandler, but silent while the failure is the one shown last.
    bool Run(const std::function<void()>& handler);

private:
    std::optional<int> m_shown;
};

/// Connects a signal to a handler that somebody calls on purpose: a button, a menu entry, a key.
/// The handler may take fewer arguments than the signal gives.
template <typename Sender, typename Signal, typename Context, typename Handler>
QMetaObject::Connection ConnectHandler(const Sender* sender, Signal signal, Context* context,
                                       Handler handler);

/// Connects a signal to an unattended handler.
template <typename Sender, typename Signal, typename Context, typename Handler>
QMetaObject::Connection ConnectUnattended(const Sender* sender, Signal signal, Context* context,
                                          Handler handler);
