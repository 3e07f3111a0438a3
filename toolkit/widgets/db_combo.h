#pragma once

#include "toolkit/widgets/db_control.h"
#include "toolkit/widgets/edit_options.h"

#include <QComboBox>

class TDatabase;

// What a list offers: text and key.
// An editable drop-down list over a text column: an item may be chosen or another text typed.
class TDBComboBox : public QComboBox, public TDBControl {
    Q_OBJECT
public:
    explicit TDBComboBox(QWidget *parent = nullptr);

    void setItems(const QStringList &items); // keeps what is shown
    // The first column of a statement as items.
    void readItems(TDatabase *session, const QString &sql);
    void setOptions(const TEditOptions &options);

    bool showsValue() const override;

protected:
    void showField(TField *field) override;
    void storeField(TField &field) override;
    void setEditable(bool on) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void showPopup() override;

private:
    TEditOptions given;
};

// A drop-down list that shows a column of another data set and stores that set's key. Delete clears the value
// where the column may be null.
class TDBLookupComboBox : public QComboBox, public TDBControl {
    Q_OBJECT
public:
    explicit TDBLookupComboBox(QWidget *parent = nullptr);

    // Where the items come from. The set is opened when it is closed, and read anew whenever it is opened.
    void setList(TDataSet *list, const QString &keyColumn, const QString &shownColumn);
    // Reads the items anew. A key that is no longer in the list is shown as an empty choice.
    void readList();

    // Items without a set.
    void setChoices(const TChoices &choices);
    // A statement's rows as choices: its first column is the text, its second the key.
    void readChoices(TDatabase *session, const QString &sql);

    QVariant currentKey() const { return currentData(); }
    bool showsValue() const override;
    QString textFor(const Variant &value) override;

protected:
    void showField(TField *field) override;
    void storeField(TField &field) override;
    void setEditable(bool on) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void showPopup() override;

private:
    int indexOf(const Variant &key) const; // -1: no item has it

    QPointer<TDataSet> list;
    QString keyColumn;
    QString shownColumn;
};
