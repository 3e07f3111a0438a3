// New, edit and delete.

#include "host/common/msgbox.h"
#include "host/controls/browse_private.h"
#include "host/controls/row_of_table.h"
#include "toolkit/data/server_link.h"
#include "toolkit/widgets/dialog.h"
#include "toolkit/widgets/guard.h"

#include <QAction>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

// What the database refuses is told in these words; empty: in its own.
template<typename Action> Variant inWordsOf(const QString &failure, const Action &action)
{
    try {
        return action();
    } catch (const EChangedElsewhere &) {
        throw;
    } catch (const EConnectionLost &) {
        throw;
    } catch (const EDatabaseError &) {
        if (failure.isEmpty())
            throw;
        throw Exception(failure);
    }
}

void tellOnlySentIsWritten(QWidget *where)
{
    showError(where, Exception(u"Įrašyta tai, kas buvo įvesta prieš nutrūkstant ryšiui su serveriu. Vėlesni "
                               "pakeitimai neįrašyti: pataisykite įrašą sąraše."_s));
}

} // namespace

void TBrowseFrm::NewBtnClick()
{
    if (acNew->isEnabled() && acNew->isVisible())
        NewRecord();
}

void TBrowseFrm::EditBtnClick()
{
    if (acEdit->isEnabled() && acEdit->isVisible())
        EditRecord();
}

void TBrowseFrm::DelBtnClick()
{
    if (acDelete->isEnabled() && acDelete->isVisible())
        DeleteRecord();
}

// Shows the dialog for the current row or a new one; whether something may have been saved.
bool TBrowseFrm::askFor(bool isNew, Variant &key)
{
    if (description.editRow) {
        editListRow(isNew);
        return true;
    }
    if (description.values.ask)
        return askForValues(isNew, key);
    Q_ASSERT(description.edit);
    return description.edit(isNew ? description.newCaption : description.editCaption, isNew, key);
}

void TBrowseFrm::NewRecord()
{
    Variant key;
    TNextOffer next;
    do {
        key = Variant();
        if (!askFor(true, key))
            return;
        if (!description.editRow)
            RefreshData(key);
    } while (next.taken() && acNew->isEnabled());
}

void TBrowseFrm::EditRecord()
{
    Variant key = currentKey();
    if (key.isNull())
        return;
    requireRow();
    if (description.editRow)
        d->query.RefreshRecord();
    TNextOffer next;
    if (!askFor(false, key))
        return;
    if (!description.editRow)
        RefreshData(key);
    if (next.taken() && acNew->isEnabled())
        NewRecord();
}

// The dialog stands on the list's own row, which nothing but the dialog may leave meanwhile. Whatever is left
// of it unsaved is dropped.
void TBrowseFrm::editListRow(bool isNew)
{
    d->tmrFind.stop();
    d->finder.stop();
    const TSamePeriod samePeriod(this);
    const int former = d->query.RecNo();
    if (isNew)
        d->query.Append();
    else
        d->query.Edit();
    const int rows = d->query.rowCount();
    const auto leave = qScopeGuard([this, former, rows] {
        if (d->query.editing())
            d->query.Cancel();
        if (d->query.UpdatesPending())
            d->query.CancelUpdates();
        if (d->query.rowCount() < rows)
            d->query.setRecNo(former);
        forgetTexts();
    });
    description.editRow(isNew ? description.newCaption : description.editCaption, isNew);
}

// What the database refuses is told and asked for again, as it was given. What another station changed is
// told once: the user then keeps his own by confirming again, or gives up. What was written although its
// answer was lost is not written again.
bool TBrowseFrm::askForValues(bool isNew, Variant &key)
{
    QVariantMap asRead;
    for (int i = 0; !isNew && i < d->query.FieldCount(); ++i)
        asRead.insert(d->query.Field(i)->FieldName().toLower(), d->query.Field(i)->Value());
    QVariantMap now = asRead;
    QVariantMap sent;
    qlonglong unknown = 0; // the write whose answer was lost
    for (;;) {
        const auto given =
            description.values.ask(isNew ? description.newCaption : description.editCaption, now);
        if (!given)
            return false;
        now.insert(*given);
        try {
            if (foundWritten(unknown)) {
                if (*given != sent)
                    tellOnlySentIsWritten(this);
                return true;
            }
            sent = *given;
            key = isNew ? insertValues(sent) : updateValues(key, sent, asRead);
            return true;
        } catch (const EChangedElsewhere &conflict) {
            for (const TChangedColumn &column : conflict.columns)
                asRead[column.field] = column.theirs;
            showError(this, conflict);
        } catch (const ECommitUnknown &lost) {
            unknown = lost.openNumber();
            showError(this, lost);
        } catch (...) {
            showCurrentException(this);
        }
    }
}

Variant TBrowseFrm::insertValues(const QVariantMap &given)
{
    const TRowOfTable row{Database(), description.table, description.keyColumn, d->query};
    return inWordsOf(description.values.newFailure,
                     [&] { return row.insert(given, description.values.key); });
}

Variant TBrowseFrm::updateValues(const Variant &key, const QVariantMap &given, const QVariantMap &asRead)
{
    const TRowOfTable row{Database(), description.table, description.keyColumn, d->query};
    return inWordsOf(description.values.editFailure, [&] { return row.update(key, given, asRead); });
}

void TBrowseFrm::requireRow()
{
    const QString sql =
        u"select count(*) from %1 where %2 = :key"_s.arg(description.table, description.keyColumn);
    if (description.table.isEmpty() || Database()->fieldResult(sql, {{u"key"_s, currentKey()}}).toInt() > 0)
        return;
    RefreshData(Variant());
    throw ERowGone();
}

void TBrowseFrm::CheckUsed()
{
    if (description.used.message.isEmpty())
        return;
    const QString sql = u"select f_CheckUsed('%1', '%2', %3) from dummy"_s.arg(
        description.table, description.keyColumn, TDatabase::quoted(currentKey().toString()));
    if (Database()->fieldResult(sql).toInt() <= 0)
        return;
    QString refusal = description.used.message;
    throw Exception(refusal.replace(u"%s"_s, d->query.FieldByName(description.used.nameColumn)->AsString()));
}

bool TBrowseFrm::mayDelete()
{
    if (!description.used.afterQuestion)
        CheckUsed();
    if (StdMsgBox(mkQuestion, u"Ar tikrai norite ištrinti?"_s) != mrYes)
        return false;
    if (description.used.afterQuestion)
        CheckUsed();
    return true;
}

void TBrowseFrm::DeleteRow(const Variant &key)
{
    const QString oldKey = u"OLD_"_s + description.keyColumn;
    const QString sql =
        d->query.DeleteSQL.isEmpty()
            ? u"delete from %1 where %2 = :%3"_s.arg(description.table, description.keyColumn, oldKey)
            : d->query.DeleteSQL;
    d->deleted = Database()->ExecSQL(sql, {{oldKey, key}});
}

void TBrowseFrm::DeleteRecord()
{
    const Variant key = currentKey();
    if (key.isNull() || !mayDelete())
        return;
    d->deleted = 1;
    TTransaction transaction(Database());
    DeleteRow(key);
    transaction.commit();
    reposition();
    if (d->deleted == 0)
        setMessage(u"Įrašas jau buvo ištrintas kitoje darbo vietoje"_s);
}

// The row is gone from the books but still in the list: the cursor goes to the row before it, from the first
// row to the one after it.
void TBrowseFrm::reposition()
{
    const int row = d->query.RecNo();
    if (row > 0)
        d->query.Prior();
    else
        d->query.Next();
    RefreshData(d->query.RecNo() == row || d->query.Eof() ? Variant() : currentKey());
}
