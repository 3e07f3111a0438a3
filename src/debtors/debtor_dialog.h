#pragma once

#include "src/frame/host_services.h"
#include "toolkit/widgets/dialog.h"

class TSasEdit;

// What the editor of a counterparty and the dialog that copies one have in common: the row, its fields and
// rules, the account pickers, the pick lists and the saving. They differ in which fields they show, and in
// what they start from.
class TDbKrDialog : public TDialog {
    Q_OBJECT
public:
    double rowId();

protected:
    // id: the row that the query opens.
    TDbKrDialog(QWidget *owner, double id);

    // The fields of these columns, in tab order.
    QList<TFieldRow> rows(const QStringList &columns);
    // Builds the dialog; hidden are columns whose field is there but not to be seen.
    void build(const AnsiString &caption, const QStringList &columns, const QStringList &hidden,
               const QList<TDialogButton> &buttons);
    // The buttons follow a column in the tab order, and another column follows them.
    void putButtonsBetween(const QString &before, const QString &after);

    // Fills the pick lists; to be called when the row is being edited.
    void fillControls();
    void protectFromViewers();

    // The code must be nobody else's; a new row gets its key.
    void Validate() override;
    void saveInTransaction(const std::function<void()> &step) override;
    virtual bool takesNewKey() const;

    TQuery qryDbKr;
    TSasEdit *SasEdit;  // receivables, or the one account
    TSasEdit *SasEdit2; // payables

private:
    void describeColumns();
    void fillList(const QString &column);
    void checkCode();

    const bool twoAccounts;
};
