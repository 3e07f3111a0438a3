#pragma once

#include "host/data/known_books.h"
#include "toolkit/widgets/dialog.h"

#include <QLineEdit>
#include <QTreeWidget>

// The institutions that this workstation knows, the one opened last first and chosen. Every typed word must
// be found in name or place; the arrows move in the list meanwhile. Others are added, and those no longer
// needed are forgotten; their books stay.
class TInstitutionsDlg : public TDialog {
    Q_OBJECT
public:
    // Opens the chosen books while the dialog stands below; when it raises, the dialog stays open.
    using TOpen = std::function<void(const TBooksSettings &books, QWidget *over)>;

    // file has the list. Raises EConvertError when it cannot be read.
    TInstitutionsDlg(const QString &file, TOpen open, QWidget *owner);

    // After the dialog was accepted: the books that were opened.
    const TBooksSettings &opened() const { return books; }

protected:
    void Validate() override;
    void Save() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void readList();
    void showFitting();
    void choose(QTreeWidgetItem *item);
    const TKnownBooks *current() const;
    void add();
    void openNew(const TBooksSettings &place);
    void forget();

    const QString file;
    const TOpen open;
    QLineEdit *FilterEdit;
    QTreeWidget *List;
    QList<TKnownBooks> known;
    bool isNew = false; // the books are to be created while they are opened
    TBooksSettings books;
};
