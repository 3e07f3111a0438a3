#include "src/accounts/balance_store.h"

#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

namespace Balans {

namespace {

constexpr std::size_t rowsAtOnce = 20;

QString textOf(const TStatement &row, int column)
{
    return QString::fromUtf8(row.utf8(column));
}

// The accounts of all lines by code, in the order in which they were written.
QHash<QString, QStringList> accountsOfLines(TDatabase &db, bool second)
{
    const auto rows = db.prepare(second ? u"select bss_balkod, bss_sasnr from bd_balsas order by bss_id"_s
                                        : u"select bss_balkod, sas_sasnr from bd_balsas, bd_sasplan "
                                          "where sas_id=bss_sasid order by bss_id"_s);
    QHash<QString, QStringList> accounts;
    for (rows->exec(); rows->next();)
        accounts[textOf(*rows, 0)] << textOf(*rows, 1);
    return accounts;
}

struct TStoredRow {
    QString code;
    Variant value;
};

// Some rows to a statement: on a server each statement costs a way there and back.
void insertRows(TDatabase &db, const QString &insert, const QString &rowWording,
                const std::vector<TStoredRow> &rows)
{
    std::unique_ptr<TStatement> statement;
    for (std::size_t first = 0; first < rows.size(); first += rowsAtOnce) {
        const std::size_t count = std::min(rowsAtOnce, rows.size() - first);
        if (first == 0 || count < rowsAtOnce) {
            QStringList wordings;
            for (std::size_t i = 0; i < count; ++i)
                wordings << rowWording.arg(i);
            statement = db.prepare(insert + wordings.join(u", "_s));
        }
        for (std::size_t i = 0; i < count; ++i) {
            statement->bind(u"kod%1"_s.arg(i), rows[first + i].code);
            statement->bind(u"reiksme%1"_s.arg(i), rows[first + i].value);
        }
        statement->exec();
    }
}

} // namespace

TAccountIds::TAccountIds(TDatabase &fin)
{
    const auto rows = fin.prepare(u"select sas_sasnr, sas_id from bd_sasplan"_s);
    for (rows->exec(); rows->next();)
        ids.insert(textOf(*rows, 0), rows->number(1));
}

TKnowsAccount TAccountIds::known() const
{
    return [all = *this](const QString &number) { return all.GetSasByNr(number) > 0; };
}

TBalForm TBalStore::ReadList() const
{
    const QHash<QString, QStringList> accounts = accountsOfLines(*db, second);
    const auto lines = db->prepare(u"select bel_kod, bel_pavad from bd_baleil order by bel_kod"_s);
    TBalForm form;
    TBalSide side{};
    for (lines->exec(); lines->next();) {
        const QString code = textOf(*lines, 0);
        if (sideOfCode(code, side))
            form[std::size_t(side)].push_back({shownText(textOf(*lines, 1), accounts.value(code)), {code}});
    }
    return form;
}

// The file of an embedded database has one writer at a time: the open transaction is the lock.
void TBalStore::lock() const
{
    Q_ASSERT(db->InTransaction());
    if (db->engine() == Engine::PostgreSql)
        db->prepareNative({SqlKind::Call, u"lock table bd_baleil in share row exclusive mode"_s})->exec();
}

void TBalStore::SaveBal(const TBalForm &form, const TAccountIds &accounts) const
{
    const TKnowsAccount known = accounts.known();
    std::vector<TStoredRow> lines;
    std::vector<TStoredRow> assigned;
    for (const TBalList &side : form)
        for (std::size_t i = 0; i < side.size(); ++i) {
            const auto &[text, kodif] = side[i];
            lines.push_back({kodif.kodas, storedName(text)});
            if (!hasAccounts(text))
                continue;
            if (!second && !CheckSas(text, known))
                refuseDetail(qsizetype(i) + 1);
            for (const QString &piece : second ? accountRemainders(text) : accountPieces(text))
                assigned.push_back(
                    {kodif.kodas, second ? Variant(piece) : Variant(accounts.GetSasByNr(piece))});
        }
    db->ExecSQL(u"DELETE FROM bd_baleil"_s);
    insertRows(*db, u"insert into bd_baleil (bel_kod, bel_pavad) values "_s, u"(:kod%1, :reiksme%1)"_s,
               lines);
    insertRows(*db, u"insert into bd_balsas values "_s, u"(NULL, :kod%1, :reiksme%1, 'D')"_s, assigned);
}

} // namespace Balans
