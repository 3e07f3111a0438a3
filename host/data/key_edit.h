#pragma once

#include "host/data/search_edit.h"

class QLabel;

// One row of a catalogue as a control shows it.
struct TKeyRow {
    double key = 0;
    QString code;
    QString name;       // beside the code; empty: the code is the whole text
    bool detail = true; // the row may carry data
};

// A control whose column, or own value, is the key of a catalogue's row: the code is typed or picked, and the
// name stands beside it. A text that no row fits stays as typed, is marked, and says itself what is wrong;
// every further commit refuses it.
//
// A key whose row is gone is kept by the column until the user chooses another one; the control tells it.
class TKeyEdit : public TSearchEdit {
    Q_OBJECT
    Q_PROPERTY(double value READ value WRITE setValue NOTIFY changed USER true)
public:
    ~TKeyEdit() override;

    // The key of the row; 0 for none, for a text that is no row's, and for a row that is gone.
    double value() const { return current; }
    // Takes a row as if the user had chosen it; 0 for none. Raises what the column and OnChange raise; what
    // is refused stays to be corrected. Without a column, a key that is no row's counts as 0. Nothing happens
    // while the column cannot be changed.
    void setValue(double key);

    // The column has a key that is no row's any more.
    bool isGone() const { return gone; }

    // Shows, and has as value, another row than the column's, which cannot be changed then; 0: the column's
    // again.
    void showInstead(double key);

    // A text that is being typed counts until it turns out to be no row's; a row that is gone does not.
    bool showsValue() const override;
    QString textFor(const Variant &value) override;

    void commit() override;
    void markInvalid(const QString &why) override;

protected:
    struct Words {
        QString pickHint; // "Pasirinkti iš …"
        QString noSuch;   // "%1" is what was typed
        QString gone;
    };
    TKeyEdit(Typing typing, const Words &words, QWidget *parent);

    // Fresh from the database; nothing when there is no such row.
    virtual std::optional<TKeyRow> rowOf(double key) = 0;
    virtual std::optional<TKeyRow> rowOfText(const QString &text);
    virtual QList<TOffer> offersFor(const QString &text);
    // Shows the picker; 0 when cancelled.
    virtual double pickFrom(double shownFirst) = 0;

    // Writes a row that exists, or none, into the column; raises to refuse.
    virtual void store(TField &field, const std::optional<TKeyRow> &row);
    // The text is no row's. The column keeps what it has.
    virtual void storeNothing(TField &) {}
    // Whether a row that is gone stands in the way of saving.
    virtual bool refusesGone() const { return false; }

    void lookFor(const QString &text) override;
    void openPicker() override;
    void commitUnbound() override;
    void showField(TField *field) override;
    void storeField(TField &field) override;
    void setEditable(bool on) override;

private:
    std::optional<TKeyRow> settled();
    std::optional<TKeyRow> found(const QString &text);
    void showRow(double wanted);
    void showNote();
    void moveTo(double newKey);

    Words words;
    QLabel *note;
    std::optional<double> shownKey; // what the row below was read for
    std::optional<TKeyRow> shown;
    double ownValue = 0; // without a column
    double instead = 0;
    double current = 0;
    bool gone = false;
};
