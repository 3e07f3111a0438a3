#pragma once

#include "host/data/key_edit.h"
#include "toolkit/widgets/form.h"

// A state function: a text that is only read, and a button that opens the picker. Delete empties it where the
// column may be null.
class TFunEdit : public TKeyEdit {
    Q_OBJECT
public:
    explicit TFunEdit(QWidget *parent = nullptr);

protected:
    std::optional<TKeyRow> rowOf(double key) override;
    double pickFrom(double shownFirst) override;
};

// A classification book: its name, and a button that asks for the user's book. Delete empties it where the
// column may be null; cancelling changes nothing.
class TBookEdit : public TKeyEdit {
    Q_OBJECT
public:
    explicit TBookEdit(QWidget *parent = nullptr);

protected:
    std::optional<TKeyRow> rowOf(double key) override;
    double pickFrom(double shownFirst) override;
};

// Rows of a dialog over the key's column.
TFieldRow FunRow(const QString &label, const QString &column);
TFieldRow BookRow(const QString &label, const QString &column);
TFieldRow DrbKlasRow(const QString &label, const QString &column);
