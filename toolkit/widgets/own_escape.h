#pragma once

#include <QWidget>

// The property of a window in which Esc is an action of its own, whatever is being typed at the moment.
inline constexpr char ownsEscape[] = "ownsEscape";

inline bool isEscapeOwned(const QWidget *inside)
{
    while (inside && !inside->property(ownsEscape).toBool())
        inside = inside->parentWidget();
    return inside != nullptr;
}
