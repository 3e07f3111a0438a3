#pragma once

#include <QIcon>

// The pictures of actions, one table for the whole system.
enum class TIcon {
    New,
    Edit,
    View,
    Delete,
    Refresh,
    Find,
    Print,
    First,
    Previous,
    Next,
    Last,
    Close,
    Help,
    Order,
    Copy,
    Save,
    Cancel,
    Lock,
    Unlock,
    Calendar,
    Browse,
    Open,
    Add,
    Remove,
    Calculate,
    Folder,
    Document,
    User,
    Information,
    Settings,
    Quit,
    ZoomIn,
    ZoomOut,
    FitWidth,
    FitPage,
    Up,
    OpenPicture,
    Merge,
    StoragePlace,
    DeleteAll,
    History,
};
inline constexpr int iconCount = int(TIcon::History) + 1;

// The icon from the desktop's theme, from the theme that the system is installed with, or a drawn one: never
// empty.
QIcon icon(TIcon which);

// What the icon is called in icon themes.
QString iconName(TIcon which);
