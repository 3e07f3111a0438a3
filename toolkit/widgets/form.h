#pragma once

#include "toolkit/widgets/field_row.h"

#include <QWidget>

class QFormLayout;

// The described fields as a form: labels with their buddies, controls in tab order, bound to the data set.
// The set's fields learn from the rows what they are called and what they accept; the form does that whenever
// the set is opened, and a row over a column that the set does not have is asserted then.
class TFieldForm : public QWidget {
    Q_OBJECT
public:
    TFieldForm(const QList<TFieldRow> &rows, TDataSet *set, QWidget *parent = nullptr);

    // The control of a column or name (case-insensitive); asserts that there is one.
    QWidget *control(const QString &name) const;
    template<typename T> T *control(const QString &name) const
    {
        auto *typed = qobject_cast<T *>(control(name));
        Q_ASSERT(typed);
        return typed;
    }
    QLabel *labelOf(const QString &name) const; // null when the control shows its label itself
    QWidget *browseButton(const QString &name, int which = 0) const; // null when there is none

    bool has(const QString &name) const; // there is such a row
    // Whether the control shows something now, what is still being typed included; blanks are nothing.
    bool isFilled(const QString &name) const;
    // The same of every required row that is neither hidden nor disabled.
    bool requiredFilled() const;
    // Refuses the first required row without a column that shows nothing; those over columns are the set's to
    // refuse.
    void requireOwnFilled();

    void setRowVisible(const QString &name, bool visible);
    void setLabel(const QString &name, const QString &label); // before the set is opened
    void focusFirst();
    // A row after which buttons of the dialog come, and their names.
    struct ButtonsPlace {
        QWidget *after;
        QStringList buttons;
    };
    QList<ButtonsPlace> buttonsPlaces() const;

    // Puts the cursor on a control, which wears a red frame with the reason until the user changes it.
    void refuse(const QString &name, const QString &why);

signals:
    void edited(); // after every keystroke and choice of the user in any control

private:
    struct Made {
        TFieldRow row;
        QWidget *control = nullptr;
        QLabel *label = nullptr;
        QWidget *line = nullptr; // what stands in the layout: the control, or it and its buttons
        QList<QWidget *> buttons;
    };
    void addRows(QFormLayout *layout, const QList<TFieldRow> &rows);
    void addRow(QFormLayout *layout, const TFieldRow &row);
    void readItems(const Made &made) const;
    QWidget *withButtons(Made &made);
    static bool isMissing(const Made &made);
    void chain(const Made &made);
    void listenTo(const Made &made);
    void describeFields();
    void judge();
    const Made &made(const QString &name) const;

    QPointer<TDataSet> set;
    QList<Made> fields;
    QHash<QString, qsizetype> places; // in the list, by name in small letters
    QWidget *last = nullptr;          // the last control in the tab order so far
    QWidget *first = nullptr;
};
