#pragma once

#include "src/frame/host_services.h"

// What the editor of a counterparty and the dialog that copies one have in common: the row, its fields and
// rules, and the saving. They differ in which fields they show, in what order, and in what they start from.
class TDbKrDialog : public TRecordDialog {
    Q_OBJECT
protected:
    TDbKrDialog(const QString &name, const AnsiString &caption, const TRecordStart &start,
                const QList<TFieldRow> &rows, const QList<TDialogButton> &buttons = saveAndCancel());

    // A counterparty without separate payables has one account.
    void Validate() override;

    // The described field of a column.
    static TFieldRow dbKrRow(const QString &column);

private:
    const bool company; // keeps receivables and payables on two accounts; read once, when the dialog opens
};
