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

    // The open screen of the entry of that name; null when there is none.
    QWidget *document(const QString &name) const;

    // What is seen while no document is open; null: nothing. The area becomes the owner, and the former page
    // is gone. help is its topic.
    void setHome(QWidget *page, int help);

    // The help topic of the active window or else of what is seen; 0 when there is none.
    int helpTopic() const;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void placeHome();
    QMdiSubWindow *windowOf(const QString &name) const;
    QMdiSubWindow *make(const TPackageEntry &entry);
    void moveOffOthers(QMdiSubWindow *window);
    void giveKeyboard(QMdiSubWindow *window);

    QWidget *home = nullptr;
};
