#include "tests/src/written_rows.h"

#include "toolkit/data/query.h"

#include <QDate>
#include <QWidget>

#include <functional>

namespace {

constexpr int rowsLookedAt = 50; // for another value of a column

bool isWritten(const TQuery &query)
{
    return query.RequestLive || query.CachedUpdates;
}

// Rules of the database: constraints, and what triggers and routines raise in words of their own.
bool isRule(const EDatabaseError &error)
{
    return dynamic_cast<const EConstraintError *>(&error) || error.serverText.contains(error.message());
}

Variant changed(TFieldType type, const Variant &value)
{
    switch (type) {
    case TFieldType::ftInteger:
        return value.toLongLong() + 1;
    case TFieldType::ftFloat:
    case TFieldType::ftCurrency:
        return value.toDouble() + 1;
    case TFieldType::ftBoolean:
        return !value.toBool();
    case TFieldType::ftDate:
    case TFieldType::ftDateTime:
        return value.toDate().isValid() ? value.toDate().addDays(1) : QDate(2026, 1, 1);
    case TFieldType::ftBlob:
        return QByteArray("kita");
    default:
        break;
    }
    QString text = value.toString();
    const QChar last = text.isEmpty() || text.back() != u'1' ? u'1' : u'2';
    text.chop(1);
    return text + last;
}

// Writes rows of one query through a copy of it.
class Writer {
public:
    explicit Writer(const TQuery &like) : set(like.Database(), like.SQL())
    {
        set.RequestLive = like.RequestLive;
        set.UpdateMode = like.UpdateMode;
        set.CachedUpdates = like.CachedUpdates;
        set.InsertSQL = like.InsertSQL;
        set.ModifySQL = like.ModifySQL;
        set.DeleteSQL = like.DeleteSQL;
        set.readsAside = true;
        for (const QString &name : like.Database()->translator().translate(like.SQL()).parameters)
            set.setParam(name, like.param(name));
    }

    QStringList tryAll()
    {
        if (set.Database()->InTransaction())
            return {"a transaction is open while the window waits: " + set.SQL()};
        attempt("read", [] {});
        if (!refused.isEmpty())
            return refused;
        tryUpdates();
        attempt("insert", [this] { insertCopy(); });
        attempt("delete", [this] {
            if (!set.IsEmpty())
                set.Delete();
        });
        return refused;
    }

private:
    void tryUpdates()
    {
        const bool isEmpty = set.IsEmpty();
        for (int i = 0; !isEmpty && i < set.FieldCount(); ++i)
            if (!set.Field(i)->isCalculated())
                attempt("update " + set.Field(i)->FieldName(), [this, i] {
                    const Variant other = otherValue(*set.Field(i));
                    set.Edit();
                    set.Field(i)->setValue(other);
                    set.Post();
                });
    }

    // The value of another row, which what it refers to has, too; else one that is made up.
    Variant otherValue(TField &field)
    {
        const Variant own = field.Value();
        for (int row = 1; row < rowsLookedAt && !set.Eof(); ++row) {
            set.Next();
            const Variant theirs = field.Value();
            if (!theirs.isNull() && theirs != own) {
                set.First();
                return theirs;
            }
        }
        set.First();
        return changed(field.DataType(), own);
    }

    void insertCopy()
    {
        QList<Variant> values;
        for (int i = 0; i < set.FieldCount(); ++i)
            values << (set.IsEmpty() ? changed(set.Field(i)->DataType(), {}) : set.Field(i)->Value());
        set.Append();
        for (int i = 0; i < set.FieldCount(); ++i)
            if (!set.Field(i)->isCalculated())
                set.Field(i)->setValue(isKey(*set.Field(i)) ? newKey(*set.Field(i)) : values[i]);
        set.Post();
    }

    QStringList tables() const { return set.Database()->translator().translate(set.SQL()).tables; }
    bool isKey(const TField &field) const
    {
        return set.Database()->keyOf(tables().value(0)).contains(field.FieldName().toLower());
    }
    Variant newKey(const TField &field) const
    {
        const QString table = tables().value(0);
        if (set.Database()->isGivenByDatabase(table, field.FieldName().toLower()))
            return {};
        return changed(
            field.DataType(),
            set.Database()->fieldResult(QString("select max(%1) from %2").arg(field.FieldName(), table)));
    }

    void attempt(const QString &what, const std::function<void()> &write)
    {
        set.Close();
        set.Database()->StartTransaction();
        try {
            set.Open();
            write();
            if (set.CachedUpdates)
                set.ApplyUpdates();
        } catch (const EDatabaseError &error) {
            if (!isRule(error))
                refused << QString("%1: %2 (%3)").arg(what, error.message(), error.statement);
        } catch (const Exception &error) {
            refused << QString("%1: %2 (%3)").arg(what, error.message(), set.SQL());
        }
        if (set.editing())
            set.Cancel();
        if (set.CachedUpdates)
            set.CancelUpdates();
        set.Database()->Rollback();
    }

    TQuery set;
    QStringList refused;
};

} // namespace

QStringList writesRefused(const QWidget &window)
{
    QStringList refused;
    for (const TQuery *query : window.findChildren<TQuery *>())
        if (isWritten(*query))
            refused << Writer(*query).tryAll();
    return refused;
}
