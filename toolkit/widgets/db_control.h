#pragma once

#include "toolkit/data/dataset.h"

#include <QPointer>
#include <QWidget>

#include <functional>

// What a list offers: text and key.
using TChoices = QList<std::pair<QString, QVariant>>;

// The one contract of every data-aware control: it shows one column of a data set's current record and takes
// what the user types.
//
// - It can be changed only while the set is being edited and the column allows it. A column that the opened
//   set does not have is asserted.
// - What the user typed is pending until it is committed: on leaving the control, by commit(), and by the
// set's
//   Post. A refused value keeps its text, and the control wears a red frame with the reason as its tool tip.
// - Esc brings back the column's value while something is pending, except in a dialog, which it closes.
class TDBControl {
public:
    virtual ~TDBControl();
    TDBControl(const TDBControl &) = delete;
    TDBControl &operator=(const TDBControl &) = delete;

    // Binds to a column; a null set unbinds.
    void bind(TDataSet *set, const QString &column);
    TDataSet *DataSet() const { return boundSet; }
    const QString &DataField() const { return boundColumn; }
    TField *Field() const; // null while unbound, closed, or without such a column

    // Never lets the user change anything, whatever the set's state.
    void setAlwaysReadOnly(bool on);
    bool canEdit() const;
    // Whether a value refused on leaving is told at once and the focus comes back, unless it went to a
    // control that only leaves the dialog. Otherwise the refusal is shown at the control alone.
    void setHoldsFocus(bool on) { isHolding = on; }

    // Whether the user changed something that the set does not have yet.
    bool pending() const { return isPending; }
    // Gives the pending text to the column. Raises what the column raises; the text stays as typed then.
    virtual void commit();
    // Gives up what is pending and shows the column's value.
    void restore();

    // Whether the control shows something now, what is pending included; blanks are nothing. Here: whether
    // the column has a value; a control that may show something else says so itself.
    virtual bool showsValue() const;
    // How the control words a value of its column; empty where the column's own text is what it shows.
    virtual QString textFor(const Variant &) { return {}; }
    // Calls the handler, guarded, after every keystroke and choice of the user, until context goes.
    void whenEdited(QObject *context, std::function<void()> handler);

    // The reason why the last commit was refused; empty when the control is valid.
    const QString &invalidReason() const { return reason; }
    virtual void markInvalid(const QString &why);
    void clearInvalid() { markInvalid({}); }

    QWidget *widget() const { return self; }
    // The control that a widget is or lies in; null when there is none.
    static TDBControl *of(QWidget *widget);
    // All controls inside a window, in the order of their creation.
    static QList<TDBControl *> allIn(const QWidget *window);

protected:
    explicit TDBControl(QWidget *self);

    // Shows the column's value; null: there is no record.
    virtual void showField(TField *field) = 0;
    // Gives what is typed to the column.
    virtual void storeField(TField &field) = 0;
    // Lets the user change the control, or not.
    virtual void setEditable(bool on) = 0;

    // Of a control made of several: the part that has the focus and wears the mark. For the constructor.
    void setFace(QWidget *part);

    // To be called when the user changed something.
    void changedByUser();
    // The same for a control whose value is complete with every change: commits at once. A refusal is marked.
    void chosenByUser();
    // Calls the handlers of whenEdited(): what showsValue() says is another thing than before.
    void tellEdited();
    bool isFocused() const;
    // Shows the column's value anew unless something is pending.
    void refresh();

private:
    friend class TDBControlEvents;
    void attach();
    void detach();
    void assertColumn() const;
    void leave() noexcept;
    void comeBack();
    void onState();
    void onField(const QString &name);

    QWidget *self;
    QWidget *face;
    QPointer<TDataSet> boundSet;
    QString boundColumn;
    QString reason;
    class TDBControlEvents *events;
    int flusher = 0;
    bool isPending = false;
    bool alwaysReadOnly = false;
    bool isHolding = false;
};
