#pragma once

#include "host/classifier/book_data.h"
#include "toolkit/widgets/dialog.h"

class QListWidget;

// The small modal picker of a classification book: a list by name. Enter and double click choose, Esc
// cancels.
class TBookPicker : public TDialog {
    Q_OBJECT
public:
    TBookPicker(QWidget *owner, const QList<TKnyga> &books, double current);

    // Shows it; the key of the chosen book, 0 when cancelled. Without books it says so and gives 0.
    double choose();

private:
    QListWidget *list;
};
