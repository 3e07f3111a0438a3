#pragma once

#include "toolkit/widgets/db_choice.h"
#include "toolkit/widgets/db_combo.h"
#include "toolkit/widgets/db_date.h"
#include "toolkit/widgets/db_edit.h"
#include "toolkit/widgets/db_image.h"

#include <QWidget>

#include <functional>

// One field of a dialog, described: its label with the accelerator ("&Pavadinimas"), its control and its
// column. The description is written in tab order:
//
//     const QList<TFieldRow> rows{
//         TFieldRow::edit(u"&Kodas"_s, u"pad_kodas"_s).maxLength(10).upperCase(),
//         TFieldRow::lookup(u"&Skyrius"_s, u"mat_padid"_s, &departments, u"pad_id"_s, u"pad_pavad"_s),
//         TFieldRow::group(u"Likučiai"_s, {…}),
//     };
class TFieldRow {
public:
    // What the row makes; parent is the form.
    using Maker = std::function<QWidget *(QWidget *parent)>;

    // --- over a column
    static TFieldRow edit(const QString &label, const QString &column);
    static TFieldRow memo(const QString &label, const QString &column);
    static TFieldRow combo(const QString &label, const QString &column, const QStringList &items = {});
    static TFieldRow lookup(const QString &label, const QString &column, TDataSet *list, const QString &key,
                            const QString &shown);
    static TFieldRow choices(const QString &label, const QString &column,
                             const QList<std::pair<QString, QVariant>> &items);
    static TFieldRow check(const QString &label, const QString &column, const QVariant &whenChecked = 1,
                           const QVariant &whenUnchecked = 0);
    static TFieldRow radio(const QString &title, const QString &column,
                           const QList<std::pair<QString, QVariant>> &items);
    static TFieldRow date(const QString &label, const QString &column);
    static TFieldRow text(const QString &label, const QString &column);
    static TFieldRow image(const QString &label, const QString &column);

    // --- without a column; name is how the form finds the control again
    static TFieldRow freeEdit(const QString &label, const QString &name);
    static TFieldRow freeCheck(const QString &label, const QString &name);
    static TFieldRow freeList(const QString &label, const QString &name, const QStringList &items = {});
    // A control of the screen's own; the form takes it over.
    static TFieldRow custom(const QString &label, const QString &name, QWidget *control);
    // A titled frame around further rows.
    static TFieldRow group(const QString &title, const QList<TFieldRow> &rows);

    // --- options; each returns the row, so that they can be strung together
    TFieldRow &maxLength(int characters);
    TFieldRow &upperCase();
    TFieldRow &digitsOnly();
    TFieldRow &lettersAndDigits();
    TFieldRow &mask(const QString &mask);
    TFieldRow &password();
    TFieldRow &readOnly();
    TFieldRow &hidden();
    TFieldRow &width(int characters); // the control is about as wide as so many characters
    // A button behind the control, for choosing the value elsewhere.
    TFieldRow &browse(std::function<void()> action, const QString &hint = {});

private:
    friend class TFieldForm;
    TFieldRow(const QString &caption, const QString &controlName, Maker make)
        : label(caption),
          name(controlName),
          maker(std::move(make))
    {
    }

    QString label;
    QString name;
    Maker maker;
    bool bound = false;
    bool ownLabel = false; // the control shows the label itself
    TEditOptions options;
    bool haveOptions = false;
    bool isReadOnly = false;
    bool isHidden = false;
    int characters = 0;
    std::function<void()> browseAction;
    QString browseHint;
    QList<TFieldRow> rows; // of a group
};

// The described fields as a form: labels with their buddies, controls in tab order, bound to the data set.
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
    QLabel *labelOf(const QString &name) const;       // null when the control shows its label itself
    QWidget *browseButton(const QString &name) const; // null when there is none

    void setRowVisible(const QString &name, bool visible);
    void setLabel(const QString &name, const QString &label);
    void focusFirst();

private:
    struct Made {
        QWidget *control = nullptr;
        QLabel *label = nullptr;
        QWidget *line = nullptr; // what stands in the layout: the control, or it and its button
        QWidget *button = nullptr;
    };
    void addRows(class QFormLayout *layout, const QList<TFieldRow> &rows);
    void addRow(QFormLayout *layout, const TFieldRow &row);
    QWidget *withBrowseButton(Made &made, const TFieldRow &row);
    const Made &made(const QString &name) const;

    TDataSet *set;
    QHash<QString, Made> fields;
    QWidget *last = nullptr; // the last control in the tab order so far
    QWidget *first = nullptr;
};
