#include "toolkit/widgets/form.h"

#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/lithuanian.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QToolButton>

namespace {

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
    const int width = control->fontMetrics().averageCharWidth() * (characters + 3);
    control->setMinimumWidth(width);
}

void nameControl(QWidget *control, const QString &name, const QString &label)
{
    control->setObjectName(name);
    if (control->accessibleName().isEmpty())
        control->setAccessibleName(plainCaption(label));
}

} // namespace

TFieldForm::TFieldForm(const QList<TFieldRow> &rows, TDataSet *dataSet, QWidget *parent)
    : QWidget(parent),
      set(dataSet)
{
    auto *layout = new QFormLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    addRows(layout, rows);
}

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
    Made made;
    made.control = row.maker(this);
    Q_ASSERT(made.control);
    nameControl(made.control, row.name, row.label);
    if (row.haveOptions)
        applyOptions(made.control, row.options);
    if (row.characters > 0)
        makeWide(made.control, row.characters);
    made.line = row.browseAction ? withBrowseButton(made, row) : made.control;
    if (row.ownLabel) {
        layout->addRow(QString(), made.line);
    } else {
        made.label = new QLabel(row.label, this);
        made.label->setBuddy(made.control);
        layout->addRow(made.label, made.line);
    }
    if (auto *control = row.bound ? dynamic_cast<TDBControl *>(made.control) : nullptr)
        control->bind(set, row.name);
    if (row.isReadOnly)
        makeReadOnly(made.control);
    if (last)
        setTabOrder(last, made.control);
    last = made.button ? made.button : made.control;
    if (made.button)
        setTabOrder(made.control, made.button);
    if (!first && made.control->focusPolicy() != Qt::NoFocus)
        first = made.control;
    Q_ASSERT(!fields.contains(row.name.toLower()));
    fields.insert(row.name.toLower(), made);
    if (row.isHidden)
        setRowVisible(row.name, false);
}

QWidget *TFieldForm::withBrowseButton(Made &made, const TFieldRow &row)
{
    auto *line = new QWidget(this);
    auto *layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(made.control, 1);
    auto *button = new QToolButton(line);
    button->setText(QStringLiteral(u"…"));
    button->setFocusPolicy(Qt::StrongFocus);
    const QString label = plainCaption(row.label);
    const QString hint =
        row.browseHint.isEmpty() ? QStringLiteral(u"%1: pasirinkti iš sąrašo").arg(label) : row.browseHint;
    button->setToolTip(hint);
    button->setAccessibleName(hint);
    layout->addWidget(button);
    connectGuarded(button, &QToolButton::clicked, this, row.browseAction);
    made.button = button;
    return line;
}

const TFieldForm::Made &TFieldForm::made(const QString &name) const
{
    const auto found = fields.constFind(name.toLower());
    Q_ASSERT(found != fields.constEnd());
    return *found;
}

QWidget *TFieldForm::control(const QString &name) const
{
    return made(name).control;
}

QLabel *TFieldForm::labelOf(const QString &name) const
{
    return made(name).label;
}

QWidget *TFieldForm::browseButton(const QString &name) const
{
    return made(name).button;
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
    const Made &row = made(name);
    if (row.label)
        row.label->setText(label);
    row.control->setAccessibleName(plainCaption(label));
}

void TFieldForm::focusFirst()
{
    if (first)
        first->setFocus();
}
