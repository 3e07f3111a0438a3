#pragma once

#include "toolkit/data/server_link.h"

#include <QLabel>
#include <QTimer>

// The part of the status bar that tells where the books are. Of a server: its name, whether the way to it is
// encrypted, with a warning when others may read along; and while it is lost, that it is sought, or why it
// lets nobody in. What was found out about a save whose answer was lost is told to the user when whatever is
// under way has ended.
class TServerPanel : public QWidget {
    Q_OBJECT
public:
    explicit TServerPanel(QWidget *parent);
    ~TServerPanel() override;

    // Shows what holds for the open books.
    void showBooks();
    // Shows that the books are reached in this way.
    void showLink(const TServerLink &link);

private:
    void follow(TLinkEvent event);
    void tell(const QString &text, const QString &warning = {});
    void seek();
    void tellWritten();

    QLabel *sign;
    QLabel *text;
    QTimer seeking;
    const TLinkHook former;
};
