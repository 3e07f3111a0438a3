#include "toolkit/widgets/field_row.h"

#include "toolkit/data/query.h"
#include "toolkit/text/format.h"
#include "toolkit/widgets/lithuanian.h"

using namespace Qt::StringLiterals;

namespace {

template<typename Control> QWidget *make(QWidget *parent)
{
    return new Control(parent);
}

bool isText(const TField &field)
{
    return field.DataType() == TFieldType::ftString || field.DataType() == TFieldType::ftMemo ||
           field.DataType() == TFieldType::ftUnknown;
}

// An amount as a person writes it: no powers of ten, no parts of a cent.
double amountOf(const TField &field, const QString &typed)
{
    const auto refuse = [&](const QString &why) {
        throw EConvertError(u"Laukas \"%1\" %2"_s.arg(field.label(), why));
    };
    double amount = 0;
    try {
        amount = StrToFloat(typed);
    } catch (const EConvertError &) {
        refuse(u"turi būti suma, o ne „%1“!"_s.arg(typed));
    }
    if (typed.contains(u'e', Qt::CaseInsensitive))
        refuse(u"turi būti suma, o ne „%1“!"_s.arg(typed));
    if (StrToFloat(FormatFloat(u"0.00"_s, amount)) != amount)
        refuse(u"gali turėti tik du skaitmenis po kablelio!"_s);
    return amount;
}

// The column itself tells a text that is no number. A power of ten is nothing that a person writes.
void requireBetween(const TField &field, const QString &typed, const std::pair<double, double> &bounds)
{
    bool isNumber = false;
    const double number = QString(typed).replace(u',', u'.').toDouble(&isNumber);
    const bool isPower = typed.contains(u'e', Qt::CaseInsensitive);
    if (isNumber && (isPower || number < bounds.first || number > bounds.second))
        throw EConvertError(u"Laukas \"%1\" turi būti nuo %2 iki %3!"_s.arg(
            field.label(), FloatToStr(bounds.first), FloatToStr(bounds.second)));
}

} // namespace

TFieldRow::TFieldRow(const QString &caption, const QString &controlName, Maker make)
    : label(caption),
      name(controlName),
      maker(std::move(make))
{
}

TFieldRow TFieldRow::over(const QString &label, const QString &column, Maker maker)
{
    TFieldRow row(label, column, std::move(maker));
    row.isBound = true;
    return row;
}

// --- over a column

TFieldRow TFieldRow::edit(const QString &label, const QString &column)
{
    return over(label, column, make<TDBEdit>);
}

TFieldRow TFieldRow::memo(const QString &label, const QString &column)
{
    return over(label, column, make<TDBMemo>);
}

TFieldRow TFieldRow::date(const QString &label, const QString &column)
{
    return over(label, column, make<TDBDateTimePicker>);
}

TFieldRow TFieldRow::text(const QString &label, const QString &column)
{
    return over(label, column, make<TDBText>);
}

TFieldRow TFieldRow::check(const QString &label, const QString &column, const QVariant &whenChecked,
                           const QVariant &whenUnchecked)
{
    TFieldRow row = over(label, column, [=](QWidget *parent) {
        auto *box = new TDBCheckBox(label, parent);
        box->setValues(whenChecked, whenUnchecked);
        return box;
    });
    row.ownLabel = true;
    return row;
}

TFieldRow TFieldRow::radio(const QString &title, const QString &column, const TChoices &choices)
{
    TFieldRow row = over(title, column, [=](QWidget *parent) {
        auto *group = new TDBRadioGroup(title, parent);
        group->setChoices(choices);
        return group;
    });
    row.ownLabel = true;
    return row;
}

TFieldRow TFieldRow::combo(const QString &label, const QString &column, const QStringList &items)
{
    return over(label, column, [items](QWidget *parent) {
        auto *combo = new TDBComboBox(parent);
        combo->setItems(items);
        return combo;
    });
}

TFieldRow TFieldRow::suggest(const QString &label, const QString &column, const QString &sql)
{
    return suggest(label, column, nullptr, sql);
}

TFieldRow TFieldRow::suggest(const QString &label, const QString &column, TDatabase *session,
                             const QString &sql)
{
    TFieldRow row = over(label, column, make<TDBComboBox>);
    row.session = session;
    row.sql = sql;
    return row;
}

TFieldRow TFieldRow::lookup(const QString &label, const QString &column, TDataSet *list, const QString &key,
                            const QString &shown)
{
    return over(label, column, [=](QWidget *parent) {
        auto *combo = new TDBLookupComboBox(parent);
        combo->setList(list, key, shown);
        return combo;
    });
}

TFieldRow TFieldRow::lookup(const QString &label, const QString &column, TDatabase *session,
                            const QString &statement, const QString &key, const QString &shown)
{
    return over(label, column, [=](QWidget *parent) {
        auto *combo = new TDBLookupComboBox(parent);
        combo->setList(new TQuery(session, statement, combo), key, shown);
        return combo;
    });
}

TFieldRow TFieldRow::choices(const QString &label, const QString &column, const TChoices &choices)
{
    return over(label, column, [choices](QWidget *parent) {
        auto *combo = new TDBLookupComboBox(parent);
        combo->setChoices(choices);
        return combo;
    });
}

TFieldRow TFieldRow::pick(const QString &label, const QString &column, const QString &sql)
{
    return pick(label, column, nullptr, sql);
}

TFieldRow TFieldRow::pick(const QString &label, const QString &column, TDatabase *session, const QString &sql)
{
    TFieldRow row = over(label, column, make<TDBLookupComboBox>);
    row.session = session;
    row.sql = sql;
    return row;
}

TFieldRow TFieldRow::picture(const QString &label, const QString &column)
{
    TFieldRow row = over(label, column, make<TDBImage>);
    const QString spoken = row.spokenName();
    row.buttons = {
        {.text = u"Atidaryti…"_s,
         .hint = u"%1: atidaryti paveikslėlio failą"_s.arg(spoken),
         .action = [](QWidget *control) { qobject_cast<TDBImage *>(control)->openFile(); },
         .changes = true},
        {.text = u"Išvalyti"_s,
         .hint = u"%1: išvalyti paveikslėlį"_s.arg(spoken),
         .action = [](QWidget *control) { qobject_cast<TDBImage *>(control)->clearPicture(); },
         .changes = true},
    };
    return row;
}

TFieldRow TFieldRow::bound(const QString &label, const QString &column, const Maker &maker)
{
    return over(label, column, maker);
}

// --- without a column

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
    const auto *bindable = dynamic_cast<TDBControl *>(control);
    row.isBound = bindable && !bindable->DataSet();
    row.ownLabel = label.isEmpty();
    return row;
}

TFieldRow TFieldRow::group(const QString &title, const QList<TFieldRow> &rows)
{
    TFieldRow row(title, {}, {});
    row.rows = rows;
    return row;
}

// --- what the column is

TFieldRow &TFieldRow::named(const QString &spoken)
{
    ownName = spoken;
    return *this;
}

TFieldRow &TFieldRow::required()
{
    isRequired = true;
    return *this;
}

TFieldRow &TFieldRow::blankIsNull()
{
    blanksAreNull = true;
    return *this;
}

TFieldRow &TFieldRow::money()
{
    isMoney = true;
    return format(u"0.00"_s);
}

TFieldRow &TFieldRow::between(double low, double high)
{
    bounds.emplace(low, high);
    return *this;
}

TFieldRow &TFieldRow::format(const QString &picture)
{
    displayFormat = picture;
    return *this;
}

TFieldRow &TFieldRow::defaultValue(const QVariant &value)
{
    preset = value;
    return *this;
}

TFieldRow &TFieldRow::firstPreselected()
{
    startsWithFirst = true;
    return *this;
}

QString TFieldRow::spokenName() const
{
    return ownName.isEmpty() ? plainCaption(label).trimmed() : ownName;
}

void TFieldRow::applyTo(TField &field, const QWidget *control) const
{
    if (!ownName.isEmpty() || field.DisplayLabel.isEmpty())
        field.DisplayLabel = spokenName();
    if (isRequired)
        field.Required = true;
    if (!displayFormat.isEmpty())
        field.DisplayFormat = displayFormat;
    if (preset.isValid())
        field.DefaultExpression = preset;
    if (const auto *list = startsWithFirst ? qobject_cast<const QComboBox *>(control) : nullptr)
        field.DefaultExpression = list->itemData(0).isValid() ? list->itemData(0) : list->itemText(0);
    // A set that reads typed texts in its own way goes before; a set opened again has this rule already.
    if (!field.OnSetText)
        field.OnSetText = rulesOfTyping(field);
}

// The rule outlives the form where the set does, so it keeps nothing of the row.
std::function<Variant(TField &, const QString &)> TFieldRow::rulesOfTyping(const TField &field) const
{
    const bool blanksCount = isText(field) && !isRequired && !blanksAreNull;
    return [blanksCount, amounts = isMoney, limits = bounds](TField &typedInto,
                                                             const QString &typed) -> Variant {
        const bool isNothing = blanksCount ? typed.isEmpty() : typed.trimmed().isEmpty();
        if (isNothing)
            return {};
        if (limits)
            requireBetween(typedInto, typed, *limits);
        return amounts ? Variant(amountOf(typedInto, typed)) : Variant(typed);
    };
}

// --- what may be typed

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

TFieldRow &TFieldRow::digitsTyped()
{
    options.typed = TEditOptions::Digits;
    haveOptions = true;
    return *this;
}

TFieldRow &TFieldRow::digitsOnly()
{
    options.allowed = TEditOptions::Digits;
    haveOptions = true;
    return *this;
}

TFieldRow &TFieldRow::lettersAndDigitsTyped()
{
    options.typed = TEditOptions::LettersAndDigits;
    haveOptions = true;
    return *this;
}

TFieldRow &TFieldRow::lettersAndDigitsOnly()
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

// --- how the row stands in the form

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

TFieldRow &TFieldRow::holdsFocus()
{
    isHolding = true;
    return *this;
}

TFieldRow &TFieldRow::width(int count)
{
    characters = count;
    return *this;
}

TFieldRow &TFieldRow::enabledWhen(Condition condition)
{
    enabling = std::move(condition);
    return *this;
}

TFieldRow &TFieldRow::browse(std::function<void()> action, const QString &hint)
{
    buttons += {.text = u"…"_s,
                .hint = hint.isEmpty() ? u"%1: pasirinkti iš sąrašo"_s.arg(spokenName()) : hint,
                .action = [action = std::move(action)](QWidget *) { action(); }};
    return *this;
}

TFieldRow &TFieldRow::buttonsAfter(const QStringList &names)
{
    holdsButtons = true;
    dialogButtons = names;
    return *this;
}
