#include "toolkit/widgets/form.h"

#include "toolkit/data/query.h"
#include "toolkit/widgets/accessible_combo.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/invalid_mark.h"
#include "toolkit/widgets/lithuanian.h"
#include "toolkit/widgets/user_input.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

// A record that was begun before the form was made knows nothing of what the rows preset.
void preset(TField &field)
{
    if (field.DataSet()->State() == dsInsert && field.IsNull() && !field.DefaultExpression.isNull())
        field.setValue(field.DefaultExpression);
}

// The line edit inside a control, to which the options of typing apply; null when there is none.
QLineEdit *lineEditOf(QWidget *control)
{
    if (auto *combo = qobject_cast<QComboBox *>(control))
        return combo->lineEdit();
    return qobject_cast<QLineEdit *>(control);
}

void applyOptions(QWidget *control, const TEditOptions &options)
{
    if (auto *edit = qobject_cast<TDBEdit *>(control))
        edit->setOptions(options);
    else if (auto *combo = qobject_cast<TDBComboBox *>(control))
        combo->setOptions(options);
    else if (QLineEdit *line = lineEditOf(control))
        applyEditOptions(line, options);
}

void makeReadOnly(QWidget *control)
{
    if (auto *bound = dynamic_cast<TDBControl *>(control))
        bound->setAlwaysReadOnly(true);
    else if (QLineEdit *line = lineEditOf(control))
        line->setReadOnly(true);
    else
        control->setEnabled(false);
}

void makeWide(QWidget *control, int characters)
{
    control->setMinimumWidth(control->fontMetrics().averageCharWidth() * (characters + 3));
}

} // namespace

TFieldForm::TFieldForm(const QList<TFieldRow> &rows, TDataSet *dataSet, QWidget *parent)
    : QWidget(parent),
      set(dataSet)
{
    nameComboBoxes();
    auto *layout = new QFormLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    addRows(layout, rows);
    if (set) {
        describeFields();
        connectGuarded(set.data(), &TDataSet::modelReset, this, [this] { describeFields(); });
        connectGuarded(set.data(), &TDataSet::stateChanged, this, [this] { judge(); });
        connectGuarded(set.data(), &TDataSet::scrolled, this, [this] { judge(); });
        connectGuarded(set.data(), &TDataSet::fieldChanged, this, [this] { judge(); });
    }
    judge();
}

// --- building

void TFieldForm::addRows(QFormLayout *layout, const QList<TFieldRow> &rows)
{
    for (const TFieldRow &row : rows) {
        if (row.rows.isEmpty()) {
            addRow(layout, row);
            continue;
        }
        auto *box = new QGroupBox(row.label, this);
        addRows(new QFormLayout(box), row.rows);
        layout->addRow(box);
    }
}

void TFieldForm::addRow(QFormLayout *layout, const TFieldRow &row)
{
    Made made{.row = row};
    made.control = row.maker(this);
    Q_ASSERT(made.control);
    made.control->setObjectName(row.name);
    if (!row.ownName.isEmpty() || made.control->accessibleName().isEmpty())
        made.control->setAccessibleName(row.spokenName());
    if (row.haveOptions)
        applyOptions(made.control, row.options);
    if (row.characters > 0)
        makeWide(made.control, row.characters);
    readItems(made);
    made.line = row.buttons.isEmpty() ? made.control : withButtons(made);
    if (row.ownLabel || row.label.isEmpty()) {
        layout->addRow(QString(), made.line);
    } else {
        made.label = new QLabel(row.label, this);
        made.label->setBuddy(made.control);
        layout->addRow(made.label, made.line);
    }
    if (row.isBound) {
        auto *bound = dynamic_cast<TDBControl *>(made.control);
        Q_ASSERT_X(bound, "TFieldForm", qPrintable("no bound control for the column " + row.name));
        bound->bind(set, row.name);
    }
    if (row.isHolding)
        dynamic_cast<TDBControl &>(*made.control).setHoldsFocus(true);
    if (row.isReadOnly)
        makeReadOnly(made.control);
    chain(made);
    listenTo(made);
    const QString key = row.name.toLower();
    Q_ASSERT_X(!places.contains(key), "TFieldForm", qPrintable("two rows are called " + row.name));
    places.insert(key, fields.size());
    fields += made;
    if (row.isHidden)
        setRowVisible(row.name, false);
}

void TFieldForm::readItems(const Made &made) const
{
    if (made.row.sql.isEmpty())
        return;
    const auto *query = qobject_cast<TQuery *>(set.data());
    TDatabase *session = made.row.session || !query ? made.row.session : query->Database();
    Q_ASSERT_X(session, "TFieldForm", qPrintable("no session for the items of " + made.row.name));
    if (auto *combo = qobject_cast<TDBComboBox *>(made.control))
        combo->readItems(session, made.row.sql);
    else if (auto *list = qobject_cast<TDBLookupComboBox *>(made.control))
        list->readChoices(session, made.row.sql);
}

QWidget *TFieldForm::withButtons(Made &made)
{
    auto *line = new QWidget(this);
    auto *layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(made.control, 1);
    for (const TFieldRow::Button &described : made.row.buttons) {
        auto *button = new QToolButton(line);
        button->setText(described.text);
        button->setFocusPolicy(Qt::StrongFocus);
        button->setToolTip(described.hint);
        button->setAccessibleName(described.hint);
        layout->addWidget(button, 0, Qt::AlignTop);
        connectGuarded(button, &QToolButton::clicked, this,
                       [control = made.control, action = described.action] { action(control); });
        made.buttons += button;
    }
    return line;
}

// Tab leads through the rows in the order of the description, from a control to its buttons.
void TFieldForm::chain(const Made &made)
{
    for (QWidget *next : QList<QWidget *>{made.control} + made.buttons) {
        if (last)
            setTabOrder(last, next);
        last = next;
    }
    if (!first && made.control->focusPolicy() != Qt::NoFocus)
        first = made.control;
}

void TFieldForm::listenTo(const Made &made)
{
    QWidget *control = made.control;
    const bool isBound = dynamic_cast<TDBControl *>(control);
    whenEdited(control, this, [this, control, isBound] {
        if (!isBound)
            TInvalidMark::put(control, {});
        judge();
        emit edited();
    });
}

// --- what the rows say of the columns

void TFieldForm::describeFields()
{
    if (!set->Active())
        return;
    for (const Made &made : fields) {
        TField *field = made.row.isBound ? set->FindField(made.row.name) : nullptr;
        if (!field)
            continue;
        made.row.applyTo(*field, made.control);
        preset(*field);
    }
    // They showed the columns before these were described.
    for (const Made &made : fields) {
        if (made.row.isBound)
            dynamic_cast<TDBControl *>(made.control)->restore();
    }
}

// While nothing can be changed, the conditions of enabling have nothing to say: who may only look has every
// control disabled by then.
void TFieldForm::judge()
{
    const bool changeable = !set || set->editing();
    for (const Made &made : fields) {
        if (made.row.enabling && changeable)
            made.line->setEnabled(made.row.enabling(*this));
        for (qsizetype i = 0; i < made.buttons.size(); ++i) {
            if (made.row.buttons[i].changes)
                made.buttons[i]->setEnabled(dynamic_cast<TDBControl *>(made.control)->canEdit());
        }
    }
}

// --- asking and changing

const TFieldForm::Made &TFieldForm::made(const QString &name) const
{
    const auto found = places.constFind(name.toLower());
    Q_ASSERT_X(found != places.constEnd(), "TFieldForm", qPrintable("no row " + name));
    return fields[*found];
}

bool TFieldForm::has(const QString &name) const
{
    return places.contains(name.toLower());
}

QWidget *TFieldForm::control(const QString &name) const
{
    return made(name).control;
}

QLabel *TFieldForm::labelOf(const QString &name) const
{
    return made(name).label;
}

QWidget *TFieldForm::browseButton(const QString &name, int which) const
{
    return made(name).buttons.value(which);
}

bool TFieldForm::isFilled(const QString &name) const
{
    return showsValue(control(name));
}

bool TFieldForm::isMissing(const Made &made)
{
    const bool asked = made.row.isRequired && !made.line->isHidden() && made.line->isEnabled();
    return asked && !showsValue(made.control);
}

bool TFieldForm::requiredFilled() const
{
    return std::ranges::none_of(fields, isMissing);
}

void TFieldForm::requireOwnFilled()
{
    for (const Made &made : std::as_const(fields)) {
        if (made.row.isBound || !isMissing(made))
            continue;
        const QString why = u"Laukas \"%1\" negali būti tuščias!"_s.arg(made.row.spokenName());
        refuse(made.row.name, why);
        throw Exception(why);
    }
}

QList<TFieldForm::ButtonsPlace> TFieldForm::buttonsPlaces() const
{
    QList<ButtonsPlace> result;
    for (const Made &made : fields) {
        if (made.row.holdsButtons)
            result += {made.buttons.isEmpty() ? made.control : made.buttons.last(), made.row.dialogButtons};
    }
    return result;
}

void TFieldForm::setRowVisible(const QString &name, bool visible)
{
    const Made &row = made(name);
    row.line->setVisible(visible);
    if (row.label)
        row.label->setVisible(visible);
}

void TFieldForm::setLabel(const QString &name, const QString &label)
{
    auto &named = const_cast<Made &>(made(name));
    named.row.label = label;
    if (named.label)
        named.label->setText(label);
    named.control->setAccessibleName(named.row.spokenName());
}

void TFieldForm::focusFirst()
{
    if (first)
        first->setFocus();
}

void TFieldForm::refuse(const QString &name, const QString &why)
{
    QWidget *refused = control(name);
    if (auto *bound = dynamic_cast<TDBControl *>(refused))
        bound->markInvalid(why);
    else
        TInvalidMark::put(refused, why);
    refused->setFocus(Qt::TabFocusReason); // selects the text as coming by Tab does
}
