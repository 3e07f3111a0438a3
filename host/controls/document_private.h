#pragma once

#include "host/controls/document_frm.h"
#include "host/controls/status_panels.h"

#include <QEventLoop>
#include <QMenu>
#include <QToolBar>
#include <QVBoxLayout>

#include <vector>

// What the files of the document window share.
struct TDocumentFrm::Private {
    // An action with what decides about it, and the separator that is seen with it.
    struct Judged {
        QAction *action;
        std::function<bool()> enabled, visible;
        QAction *separator;
    };

    QVBoxLayout *layout = nullptr;
    QToolBar *bar = nullptr;
    QAction *buttonsEnd = nullptr; // help and close come after it
    QMenu *menu = nullptr;
    QAction *menuEnd = nullptr; // view, help and close come after it
    QMenu *deleteMenu = nullptr;
    TStatusPanels *status = nullptr;
    std::vector<Judged> judged;
    QList<QAction *> escapes; // what Esc does: the window's own, then actions of the screen that come first

    bool captionsShown = true;
    bool toolBarShown = true;
    bool created = false;
    bool destroyed = false;
    int periodHolds = 0;
    bool periodWaits = false; // another one, told when the last hold ends
    bool wasPlaced = false;   // the kept placement was applied
    QEventLoop *modalLoop = nullptr;
};
