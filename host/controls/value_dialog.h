#pragma once

#include "toolkit/widgets/dialog.h"

#include <QApplication>

// What a dialog that only asks for values says about itself.
struct TValueDescription {
    QString name; // the dialog's class
    QString caption;
    int help = 0; // help topic; 0: none
    QList<TFieldRow> rows;
    QList<TDialogButton> buttons = saveAndCancel();
};

// A dialog that asks for values and writes nothing: a list that writes its rows itself shows it (see
// TListValues).
// Who may only look finds every control disabled.
class TValueDialog : public TDialog {
    Q_OBJECT
public:
    explicit TValueDialog(const TValueDescription &described, QWidget *owner = QApplication::activeWindow());

protected:
    void Load() override;
};
