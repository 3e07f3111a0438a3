#pragma once

#include "host/common/package.h"

#include <QMdiArea>

// The open document windows. Exactly one window for each entry of the package; the active one has the
// keyboard.
class TDocumentArea : public QMdiArea {
    Q_OBJECT
public:
    explicit TDocumentArea(QWidget *parent);

    // Opens the entry's screen, or brings its window to the front. What the screen raises while it is made is
    // passed on, and nothing is open then.
    void open(const TPackageEntry &entry);

    // The help topic of the active window; 0 when there is none.
    int helpTopic() const;

private:
    QMdiSubWindow *windowOf(const QString &name) const;
    QMdiSubWindow *make(const TPackageEntry &entry);
    void moveOffOthers(QMdiSubWindow *window);
    void giveKeyboard(QMdiSubWindow *window);
};
