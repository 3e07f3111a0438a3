#pragma once

#include "toolkit/widgets/db_choice.h"
#include "toolkit/widgets/db_combo.h"
#include "toolkit/widgets/db_date.h"
#include "toolkit/widgets/db_edit.h"
#include "toolkit/widgets/db_image.h"

#include <functional>
#include <optional>

class TDatabase;
class TFieldForm;

// One field of a dialog, described: its label with the accelerator ("&Pavadinimas"), its control and its
// column. The description is written in tab order:
//
//     const QList<TFieldRow> rows{
//         TFieldRow::edit(u"&Kodas"_s, u"pad_kodas"_s).maxLength(10).upperCase().required(),
//         TFieldRow::pick(u"&Skyrius"_s, u"mat_padid"_s, u"select pad_pavad, pad_id from bd_pad"_s),
//         TFieldRow::group(u"Likučiai"_s, {TFieldRow::edit(u"Suma"_s, u"ssl_suma"_s).money(), …}),
//     };
class TFieldRow {
public:
    // What the row makes; parent is the form.
    using Maker = std::function<QWidget *(QWidget *parent)>;
    // Asked again after every change of the user and of the record.
    using Condition = std::function<bool(const TFieldForm &form)>;

    // --- over a column
    static TFieldRow edit(const QString &label, const QString &column);
    static TFieldRow memo(const QString &label, const QString &column);
    static TFieldRow date(const QString &label, const QString &column);
    static TFieldRow text(const QString &label, const QString &column); // shown only
    static TFieldRow check(const QString &label, const QString &column, const QVariant &whenChecked = 1,
                           const QVariant &whenUnchecked = 0);
    static TFieldRow radio(const QString &title, const QString &column, const TChoices &choices);
    // An editable drop-down: the items, or those of a statement's first column, may be taken or others typed.
    static TFieldRow combo(const QString &label, const QString &column, const QStringList &items = {});
    static TFieldRow suggest(const QString &label, const QString &column, const QString &sql);
    static TFieldRow suggest(const QString &label, const QString &column, TDatabase *session,
                             const QString &sql);
    // A drop-down that stores a key: of a data set or a statement with a column of keys and one of texts, of
    // given choices, or of a statement that gives text and key. A statement is read once, when the form is
    // made, and what it raises reaches the maker of the form; without a session it runs in that of the form's
    // set.
    static TFieldRow lookup(const QString &label, const QString &column, TDataSet *list, const QString &key,
                            const QString &shown);
    static TFieldRow lookup(const QString &label, const QString &column, TDatabase *session,
                            const QString &sql, const QString &key, const QString &shown);
    static TFieldRow choices(const QString &label, const QString &column, const TChoices &choices);
    static TFieldRow pick(const QString &label, const QString &column, const QString &sql);
    static TFieldRow pick(const QString &label, const QString &column, TDatabase *session,
                          const QString &sql);
    // A picture with a button that opens a file and one that empties the column.
    static TFieldRow picture(const QString &label, const QString &column);
    // A control that the maker makes, which must be a TDBControl: the form binds it to the column.
    static TFieldRow bound(const QString &label, const QString &column, const Maker &maker);

    // --- without a column; name is how the form finds the control again
    static TFieldRow freeEdit(const QString &label, const QString &name);
    static TFieldRow freeCheck(const QString &label, const QString &name);
    static TFieldRow freeList(const QString &label, const QString &name, const QStringList &items = {});
    // A control of the screen's own; the form takes it over, and binds it when it is an unbound TDBControl.
    static TFieldRow custom(const QString &label, const QString &name, QWidget *control);
    // A titled frame around further rows.
    static TFieldRow group(const QString &title, const QList<TFieldRow> &rows);

    // --- what the column is; each option returns the row, so that they can be strung together. The field
    // gets the label as its DisplayLabel unless the set describes one itself. A typed text of blanks is null
    // in every column but one of texts.
    TFieldRow &named(const QString &name); // in messages and for readers of the screen, instead of the label
    TFieldRow &required();                 // blanks count as empty
    TFieldRow &blankIsNull();              // a text of blanks is stored as null
    TFieldRow &money();                    // shown as "0.00"; a typed text with parts of a cent is refused
    TFieldRow &between(double low, double high); // a typed number outside is refused
    TFieldRow &format(const QString &format);
    TFieldRow &defaultValue(const QVariant &value); // of a new record
    TFieldRow &firstPreselected();                  // a new record has the first item of the list

    // --- what may be typed. "Typed" filters keys alone; "Only" drops other characters from a paste, too.
    TFieldRow &maxLength(int characters);
    TFieldRow &upperCase();
    TFieldRow &digitsTyped();
    TFieldRow &digitsOnly();
    TFieldRow &lettersAndDigitsTyped();
    TFieldRow &lettersAndDigitsOnly();
    TFieldRow &mask(const QString &mask);
    TFieldRow &password();

    // --- how the row stands in the form
    TFieldRow &readOnly();
    TFieldRow &hidden();
    TFieldRow &holdsFocus(); // a refused value is told when the field is left, and the focus comes back
    TFieldRow &width(int characters); // the control is at least about as wide as so many characters
    TFieldRow &enabledWhen(Condition condition);
    // A button behind the control, for choosing the value elsewhere.
    TFieldRow &browse(std::function<void()> action, const QString &hint = {});
    // Tab leads from this row to these buttons of the dialog (by name; none: those that save and cancel), and
    // from them to the next row.
    TFieldRow &buttonsAfter(const QStringList &buttons = {});

private:
    friend class TFieldForm;

    // A button behind the control.
    struct Button {
        QString text;
        QString hint;
        std::function<void(QWidget *control)> action;
        bool changes = false; // it is of use only while the control can be changed
    };

    TFieldRow(const QString &label, const QString &name, Maker maker);
    static TFieldRow over(const QString &label, const QString &column, Maker maker);

    QString spokenName() const; // without accelerator marks
    void applyTo(TField &field, const QWidget *control) const;
    std::function<Variant(TField &, const QString &)> rulesOfTyping(const TField &field) const;

    QString label;
    QString name;
    QString ownName;
    Maker maker;
    QString sql; // of the items
    TDatabase *session = nullptr;
    TEditOptions options;
    bool haveOptions = false;
    bool isBound = false;
    bool ownLabel = false; // the control shows the label itself
    bool isRequired = false;
    bool blanksAreNull = false;
    bool isMoney = false;
    std::optional<std::pair<double, double>> bounds;
    bool startsWithFirst = false;
    bool isReadOnly = false;
    bool isHidden = false;
    bool isHolding = false;
    bool holdsButtons = false; // the dialog's buttons come after it
    QString displayFormat;
    QVariant preset;
    int characters = 0;
    Condition enabling;
    QList<Button> buttons;
    QStringList dialogButtons;
    QList<TFieldRow> rows; // of a group
};
