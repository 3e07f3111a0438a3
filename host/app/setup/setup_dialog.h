#pragma once

#include "host/app/setup/setup_page.h"
#include "toolkit/widgets/dialog.h"

class QLabel;
class QStackedWidget;

// Leads the open books through what they do not have yet; a message when there is nothing. True when
// something was written: period and institution are told to everybody then.
bool setUpOpenBooks(QWidget *owner);
// Whether anybody could log in to the open books.
bool haveUsers();

// Leads a new institution through what its books are begun with, a page for each step and a last one that
// sums up. A page may be left empty and come back to; nothing is written before the last page, and there all
// of it at once.
class TSetUpDlg : public TDialog {
    Q_OBJECT
public:
    using TWriter = std::function<void(const TSetUp &)>;

    // done: the steps that the books have already. writer writes the whole or raises; the dialog stays open
    // as it was filled in then.
    TSetUpDlg(const QSet<SetUpStep> &done, TWriter writer, QWidget *owner);

    // What the pages hold now.
    TSetUp setUp() const;

protected:
    void Save() override;

private:
    void addPage(const TSetUpPage &page);
    void preset();
    void goTo(int page);
    void goOn();
    bool onSummary() const;

    const QSet<SetUpStep> done;
    const QList<TSetUpPage> described;
    const TWriter write;
    QList<TFieldForm *> forms;
    QStackedWidget *pages;
    QLabel *heading;
    QLabel *summary;
};
