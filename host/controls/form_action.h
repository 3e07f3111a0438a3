#pragma once

#include "toolkit/widgets/icons.h"

#include <QKeySequence>
#include <QList>
#include <QString>

#include <functional>
#include <optional>

// Where an action of a document window stands.
enum class TActionPlace { ToolBarAndMenu, Menu, DeleteMenu, KeyOnly };

// An action of a document window, described.
struct TFormAction {
    QString name; // its object name: "acCopyData"
    QString text; // with its accelerator
    QString hint; // its tool tip, to which the first key is added; empty: the text
    std::optional<TIcon> picture;
    QList<QKeySequence> keys;
    std::function<void()> handler; // guarded by the window

    // Judged anew whenever the window's actions are; empty: always.
    std::function<bool()> enabled;
    std::function<bool()> visible;

    TActionPlace place = TActionPlace::ToolBarAndMenu;
    bool separated = false;    // stands behind a separator, which is seen only while the action is
    QWidget *keysIn = nullptr; // its keys work only in this part of the window; null: in all of it
};
