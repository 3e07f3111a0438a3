#pragma once

#include "toolkit/widgets/db_control.h"

#include <QLineEdit>

// A date edit with a calendar to open (the button at its end, Alt+Down or F4). The date is typed and shown in
// the short date format; an empty edit means no date.
class TDateEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit TDateEdit(QWidget *parent = nullptr);

    // Invalid when the edit is empty. Raises EConvertError when the text is no date.
    QDate date() const;
    void setDate(QDate date);

    void showCalendar();

signals:
    void chosen(QDate date); // in the calendar, or by Up and Down

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void step(int days);
    QAction *open;
};

// The same over a column.
class TDBDateTimePicker : public TDateEdit, public TDBControl {
    Q_OBJECT
public:
    explicit TDBDateTimePicker(QWidget *parent = nullptr);

    bool showsValue() const override { return !text().trimmed().isEmpty(); }

protected:
    void showField(TField *field) override;
    void storeField(TField &field) override;
    void setEditable(bool on) override;
};
