#pragma once

#include "toolkit/widgets/db_control.h"
#include "toolkit/widgets/edit_options.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

// A one-line edit of a column. While it has the focus it shows the text to be typed in, otherwise the
// column's display text. It lets no more characters through than the column holds.
class TDBEdit : public QLineEdit, public TDBControl {
    Q_OBJECT
public:
    explicit TDBEdit(QWidget *parent = nullptr);

    void setOptions(const TEditOptions &options);
    const TEditOptions &options() const { return given; }

    bool showsValue() const override;

protected:
    void showField(TField *field) override;
    void storeField(TField &field) override;
    void setEditable(bool on) override;

private:
    void applyFor(const TField *field);
    TEditOptions given;
    TEditOptions applied;
    bool haveApplied = false;
};

// An edit of a column with several lines.
class TDBMemo : public QPlainTextEdit, public TDBControl {
    Q_OBJECT
public:
    explicit TDBMemo(QWidget *parent = nullptr);

    bool showsValue() const override { return !toPlainText().trimmed().isEmpty(); }

protected:
    void showField(TField *field) override;
    void storeField(TField &field) override;
    void setEditable(bool on) override;

private:
    bool showing = false;
};

// The display text of a column, never changed by the user.
class TDBText : public QLabel, public TDBControl {
    Q_OBJECT
public:
    explicit TDBText(QWidget *parent = nullptr);

    bool showsValue() const override { return !text().trimmed().isEmpty(); }

protected:
    void showField(TField *field) override;
    void storeField(TField &field) override;
    void setEditable(bool on) override;
};
