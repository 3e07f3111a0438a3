#include "toolkit/widgets/form.h"

namespace {

template<typename Control> QWidget *make(QWidget *parent)
{
    return new Control(parent);
}

} // namespace

TFieldRow TFieldRow::edit(const QString &label, const QString &column)
{
    TFieldRow row(label, column, make<TDBEdit>);
    row.bound = true;
    return row;
}

TFieldRow TFieldRow::memo(const QString &label, const QString &column)
{
    TFieldRow row(label, column, make<TDBMemo>);
    row.bound = true;
    return row;
}

TFieldRow TFieldRow::combo(const QString &label, const QString &column, const QStringList &items)
{
    TFieldRow row(label, column, [items](QWidget *parent) {
        auto *combo = new TDBComboBox(parent);
        combo->setItems(items);
        return combo;
    });
    row.bound = true;
    return row;
}

TFieldRow TFieldRow::lookup(const QString &label, const QString &column, TDataSet *list, const QString &key,
                            const QString &shown)
{
    TFieldRow row(label, column, [list, key, shown](QWidget *parent) {
        auto *combo = new TDBLookupComboBox(parent);
        combo->setList(list, key, shown);
        return combo;
    });
    row.bound = true;
    return row;
}

TFieldRow TFieldRow::choices(const QString &label, const QString &column,
                             const QList<std::pair<QString, QVariant>> &items)
{
    TFieldRow row(label, column, [items](QWidget *parent) {
        auto *combo = new TDBLookupComboBox(parent);
        combo->setChoices(items);
        return combo;
    });
    row.bound = true;
    return row;
}

TFieldRow TFieldRow::check(const QString &label, const QString &column, const QVariant &whenChecked,
                           const QVariant &whenUnchecked)
{
    TFieldRow row(label, column, [=](QWidget *parent) {
        auto *box = new TDBCheckBox(label, parent);
        box->setValues(whenChecked, whenUnchecked);
        return box;
    });
    row.bound = row.ownLabel = true;
    return row;
}

TFieldRow TFieldRow::radio(const QString &title, const QString &column,
                           const QList<std::pair<QString, QVariant>> &items)
{
    TFieldRow row(title, column, [=](QWidget *parent) {
        auto *group = new TDBRadioGroup(title, parent);
        group->setChoices(items);
        return group;
    });
    row.bound = row.ownLabel = true;
    return row;
}

TFieldRow TFieldRow::date(const QString &label, const QString &column)
{
    TFieldRow row(label, column, make<TDBDateTimePicker>);
    row.bound = true;
    return row;
}

TFieldRow TFieldRow::text(const QString &label, const QString &column)
{
    TFieldRow row(label, column, make<TDBText>);
    row.bound = true;
    return row;
}

TFieldRow TFieldRow::image(const QString &label, const QString &column)
{
    TFieldRow row(label, column, make<TDBImage>);
    row.bound = true;
    return row;
}

TFieldRow TFieldRow::freeEdit(const QString &label, const QString &name)
{
    return TFieldRow(label, name, make<QLineEdit>);
}

TFieldRow TFieldRow::freeCheck(const QString &label, const QString &name)
{
    TFieldRow row(label, name, [label](QWidget *parent) { return new QCheckBox(label, parent); });
    row.ownLabel = true;
    return row;
}

TFieldRow TFieldRow::freeList(const QString &label, const QString &name, const QStringList &items)
{
    return TFieldRow(label, name, [items](QWidget *parent) {
        auto *combo = new QComboBox(parent);
        combo->addItems(items);
        return combo;
    });
}

TFieldRow TFieldRow::custom(const QString &label, const QString &name, QWidget *control)
{
    TFieldRow row(label, name, [control](QWidget *parent) {
        control->setParent(parent);
        return control;
    });
    row.bound = dynamic_cast<TDBControl *>(control) && !dynamic_cast<TDBControl *>(control)->DataSet();
    row.ownLabel = label.isEmpty();
    return row;
}

TFieldRow TFieldRow::group(const QString &title, const QList<TFieldRow> &rows)
{
    TFieldRow row(title, {}, {});
    row.rows = rows;
    return row;
}

TFieldRow &TFieldRow::maxLength(int count)
{
    options.maxLength = count;
    haveOptions = true;
    return *this;
}

TFieldRow &TFieldRow::upperCase()
{
    options.upperCase = true;
    haveOptions = true;
    return *this;
}

TFieldRow &TFieldRow::digitsOnly()
{
    options.allowed = TEditOptions::Digits;
    haveOptions = true;
    return *this;
}

TFieldRow &TFieldRow::lettersAndDigits()
{
    options.allowed = TEditOptions::LettersAndDigits;
    haveOptions = true;
    return *this;
}

TFieldRow &TFieldRow::mask(const QString &described)
{
    options.mask = described;
    haveOptions = true;
    return *this;
}

TFieldRow &TFieldRow::password()
{
    options.password = true;
    haveOptions = true;
    return *this;
}

TFieldRow &TFieldRow::readOnly()
{
    isReadOnly = true;
    return *this;
}

TFieldRow &TFieldRow::hidden()
{
    isHidden = true;
    return *this;
}

TFieldRow &TFieldRow::width(int count)
{
    characters = count;
    return *this;
}

TFieldRow &TFieldRow::browse(std::function<void()> action, const QString &hint)
{
    browseAction = std::move(action);
    browseHint = hint;
    return *this;
}
