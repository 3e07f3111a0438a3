#pragma once

#include "toolkit/text/errors.h"

#include <QObject>

#include <functional>
#include <type_traits>
#include <utility>

class QWidget;

// No exception crosses a Qt frame: what is called by Qt (handlers of signals, event overrides) runs under a
// guard that catches everything and hands it to the application's error display. EAbort ends an action
// silently.

// Shows an error to the user; where is the window that the error belongs to, or null.
using ErrorDisplay = std::function<void(QWidget *where, const Exception &error)>;

// Replaces the error display and returns the previous one; an empty one brings back the default, a message
// box.
ErrorDisplay setErrorDisplay(ErrorDisplay display);

// Hands an error to the display; an EAbort shows nothing. Never throws.
void showError(QWidget *where, const Exception &error) noexcept;

// To be called inside a catch block: shows the exception in flight. Never throws.
void showCurrentException(QWidget *where = nullptr) noexcept;

// Runs the action; false when it raised (the error is shown then).
template<typename Action> bool runGuarded(QWidget *where, Action &&action)
{
    try {
        std::invoke(std::forward<Action>(action));
        return true;
    } catch (...) {
        showCurrentException(where);
        return false;
    }
}

namespace guard_detail {

// Calls fn with as many of the leading arguments as it takes, as Qt does for its slots.
template<typename Fn, typename Tuple, std::size_t... I>
void callWith(Fn &fn, Tuple &&arguments, std::index_sequence<I...>)
{
    if constexpr (std::is_invocable_v<Fn &, std::tuple_element_t<I, std::decay_t<Tuple>>...>)
        std::invoke(fn, std::get<I>(arguments)...);
    else
        callWith(fn, std::forward<Tuple>(arguments), std::make_index_sequence<sizeof...(I) - 1>());
}

} // namespace guard_detail

// A callable that runs fn under the guard; superfluous arguments are dropped.
template<typename Fn> auto guarded(QWidget *where, Fn fn)
{
    return [where, fn = std::move(fn)](auto &&...arguments) mutable {
        runGuarded(where, [&] {
            guard_detail::callWith(fn, std::forward_as_tuple(arguments...),
                                   std::make_index_sequence<sizeof...(arguments)>());
        });
    };
}

template<typename Fn> auto guarded(Fn fn)
{
    return guarded(nullptr, std::move(fn));
}

// The window to which errors of an object's handlers belong.
QWidget *widgetOf(QObject *object);

// Connects a signal to a handler under the guard: a callable, or a method of context. The connection ends
// with sender or context.
template<typename Sender, typename Signal, typename Context, typename Fn>
QMetaObject::Connection connectGuarded(const Sender *sender, Signal signal, Context *context, Fn fn)
{
    if constexpr (std::is_member_function_pointer_v<Fn>)
        return QObject::connect(
            sender, signal, context,
            guarded(
                widgetOf(context), [ context, fn ](auto &&...arguments) requires(
                                       std::is_invocable_v<Fn, Context *, decltype(arguments)...>) {
                    std::invoke(fn, context, std::forward<decltype(arguments)>(arguments)...);
                }));
    else
        return QObject::connect(sender, signal, context, guarded(widgetOf(context), std::move(fn)));
}
