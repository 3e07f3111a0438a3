#include "host/controls/record_dialog.h"

#include "host/common/forms.h"
#include "host/controls/browse_frm.h"
#include "host/controls/changed_elsewhere_box.h"
#include "host/data/main_datas.h"
#include "toolkit/widgets/guard.h"

#include <QPushButton>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

QString parameterOf(const QString &sql)
{
    static const QRegularExpression pattern(u":(\\w+)"_s);
    return pattern.match(sql).captured(1);
}

// A key as a statement has it.
QString literal(const Variant &key)
{
    return key.typeId() == QMetaType::QString ? TDatabase::quoted(key.toString())
                                              : QString::number(qRound64(key.toDouble()));
}

QVariantMap valuesOf(const TQuery &row, Variant (TField::*which)() const)
{
    QVariantMap values;
    for (int i = 0; i < row.FieldCount(); ++i)
        if (const TField *field = row.Field(i); !field->isCalculated())
            values.insert(field->FieldName(), (field->*which)());
    return values;
}

// A value that the field has accepted before.
void setAgain(TField &field, const Variant &value)
{
    const auto rule = std::exchange(field.OnValidate, {});
    const auto consequence = std::exchange(field.OnChange, {});
    field.setValue(value);
    field.OnValidate = rule;
    field.OnChange = consequence;
}

// The row was posted, but its transaction did not go through: it is only typed again, and the next post
// writes whatever differs from what was read.
void typeAgain(TQuery &row, bool isNew, const QVariantMap &asRead)
{
    const QVariantMap typed = valuesOf(row, &TField::Value);
    if (isNew) {
        row.Append();
        for (const auto &[column, value] : typed.asKeyValueRange())
            setAgain(*row.FieldByName(column), value);
        return;
    }
    row.Edit();
    QList<TChangedColumn> columns;
    for (const auto &[column, value] : asRead.asKeyValueRange())
        if (!sameKey(value, typed.value(column)))
            columns.append({.field = column, .theirs = value});
    if (!columns.isEmpty())
        row.keepOwn(columns);
}

} // namespace

TRecordStart TRecordStart::onRowOf(const QString &listName)
{
    const TBrowseFrm *frm = TBrowseFrm::listInEdit(listName);
    if (!frm)
        throw Exception(u"Šis įrašas redaguojamas tik savo sąraše."_s);
    return on(*frm->dataSet());
}

TRecordDialog::TRecordDialog(TRecordDescription described, TRecordStart opened, QWidget *owner)
    : TDialog(owner),
      description(std::move(described)),
      opening(std::move(opened)),
      query(opening.list ? opening.list : new TQuery(sessionOf(description.session), description.sql, this))
{
    setObjectName(description.name);
    setHelpTopic(description.help);
    if (!opening.list) {
        query->RequestLive = true;
        query->setParam(parameterOf(description.sql), opening.key);
        if (description.byKeyOnly)
            query->UpdateMode = TUpdateMode::upWhereKeyOnly;
    }
    const bool startsNew = opening.kind == TRecordStart::Kind::New || query->State() == dsInsert;
    orNotOpened([&] {
        describe(startsNew || description.editCaption.isEmpty() ? description.newCaption
                                                                : description.editCaption,
                 description.rows, query, description.buttons);
    });
    connectGuarded(&form(), &TFieldForm::edited, this, [this] {
        changed = true;
        judgeSave();
    });
    // What is judged by a column has something new to judge when the column took what was typed.
    connectGuarded(query, &TDataSet::fieldChanged, this, [this] { judgeSave(); });
}

TRecordDialog::~TRecordDialog()
{
    query->disconnect(this); // dropping the row is no change to be judged
}

// --- opening

// Reads the row, or what is offered beside it.
void TRecordDialog::orNotOpened(const std::function<void()> &read)
{
    try {
        read();
    } catch (const EDatabaseError &) {
        if (description.openFailure.isEmpty())
            throw;
        throw EErrorNoOpen(description.openFailure);
    }
}

void TRecordDialog::openRow()
{
    orNotOpened([this] { query->Open(); });
    if (opening.kind == TRecordStart::Kind::New || (description.addsMissing && query->IsEmpty()))
        query->Append();
    else if (query->IsEmpty())
        throw ERowGone();
    else
        query->Edit();
}

// The settings may call the dialog, which is whole only by now.
void TRecordDialog::Load()
{
    if (description.prepare)
        description.prepare(*query);
    if (opening.kind != TRecordStart::Kind::ListRow)
        openRow();
    adds = query->State() == dsInsert;
    Loaded();
    if (!mayChange())
        DisableFormControls(this);
    changed = false;
    judgeSave();
}

bool TRecordDialog::mayChange() const
{
    return !CurrentUser().viewOnly;
}

bool TRecordDialog::isNew() const
{
    return adds;
}

Variant TRecordDialog::rowKey() const
{
    return field(description.keyColumn)->Value();
}

// --- the save button

bool TRecordDialog::CanSave() const
{
    switch (description.save) {
    case TSaveRule::Always:
        return true;
    case TSaveRule::WhenFilled:
        return form().requiredFilled();
    case TSaveRule::WhenFilledAndChanged:
        return changed && form().requiredFilled();
    }
    Q_UNREACHABLE();
}

void TRecordDialog::judgeSave()
{
    if (saveButton())
        saveButton()->setEnabled(mayChange() && CanSave());
}

// --- saving

void TRecordDialog::Validate()
{
    requireAllUnique();
}

void TRecordDialog::requireAllUnique()
{
    for (const TUniqueCode &code : description.unique)
        requireUnique(code);
}

// What a rule of a column refuses now that another station has written.
void TRecordDialog::requireValid()
{
    for (const TDBControl *control : TDBControl::allIn(this)) {
        TField *field = control->Field();
        if (!field || !field->OnValidate)
            continue;
        try {
            field->OnValidate(*field, field->Value());
        } catch (const Exception &error) {
            refuse(field->FieldName(), error.message());
        }
    }
}

void TRecordDialog::requireUnique(const TUniqueCode &code)
{
    if (field(code.column)->IsNull())
        return;
    const QString value = field(code.column)->AsString();
    QString sql =
        u"select count(%1) from %2 where %3 ="_s.arg(description.keyColumn, description.table, code.column) +
        TDatabase::quoted(value);
    if (!isNew())
        sql +=
            u" and %1 <> %2"_s.arg(description.keyColumn, literal(field(description.keyColumn)->OldValue()));
    if (Database()->fieldResult(sql).toInt() <= 0)
        return;
    const QString told = QString(code.message).replace(u"%s"_s, value);
    if (form().has(code.column))
        refuse(code.column, told);
    throw Exception(told); // a code that is composed of other fields
}

bool TRecordDialog::takesKey() const
{
    return description.key.draws(isNew());
}

void TRecordDialog::saveInTransaction(const std::function<void()> &step)
{
    for (bool again = true; again;) {
        again = false;
        try {
            saveOnce(step);
        } catch (const EChangedElsewhere &conflict) {
            again = settle(conflict);
        } catch (const ERowGone &) {
            throw;
        } catch (const EConnectionLost &) {
            throw;
        } catch (const EDatabaseError &error) {
            // Another station took the code between the check and the post: it is named then, too.
            if (dynamic_cast<const EUniqueViolation *>(&error)) {
                requireAllUnique();
                requireValid();
            }
            if (description.saveFailure.isEmpty())
                throw;
            throw Exception(description.saveFailure);
        }
    }
}

void TRecordDialog::saveOnce(const std::function<void()> &step)
{
    const Variant formerKey = rowKey();
    const bool wasNew = query->State() == dsInsert;
    const QVariantMap asRead = valuesOf(*query, &TField::OldValue);
    try {
        TTransaction transaction(Database());
        if (takesKey())
            field(description.keyColumn)->setValue(description.key.next(Database()));
        step();
        transaction.commit();
        if (query->CachedUpdates)
            query->CommitUpdates();
    } catch (...) {
        if (!query->editing() && !query->CachedUpdates)
            typeAgain(*query, wasNew, asRead);
        takeBack(formerKey);
        throw;
    }
}

// The row is in edit again, without a key that nobody has stored.
void TRecordDialog::takeBack(const Variant &formerKey)
{
    if (!query->editing())
        query->Edit();
    TField *key = field(description.keyColumn);
    if (!sameKey(key->Value(), formerKey))
        key->setValue(formerKey);
}

bool TRecordDialog::settle(const EChangedElsewhere &conflict)
{
    return settleChangedElsewhere(this, *query, conflict);
}

void TRecordDialog::reject()
{
    TDialog::reject();
    if (query->CachedUpdates && query->UpdatesPending())
        query->CancelUpdates();
}
