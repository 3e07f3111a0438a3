#include "src/accounts/balance_store.h"

#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

namespace Balans {

namespace {

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

void TBalStore::SaveBal(const TBalForm &form, const TAccountIds &accounts) const
{
    db->ExecSQL(u"DELETE FROM bd_baleil"_s);
    const auto line =
        db->prepare(u"insert into bd_baleil (bel_kod, bel_pavad) values (:bel_kod, :bel_pavad)"_s);
    const auto account = db->prepare(u"insert into bd_balsas values (NULL, :balkod, :sasid, :tip)"_s);
    const TKnowsAccount known = accounts.known();
    account->bind(u"tip"_s, u"D"_s);
    const auto add = [&account](const QString &code, const Variant &sasid) {
        account->bind(u"balkod"_s, code);
        account->bind(u"sasid"_s, sasid);
        account->exec();
    };
    for (const TBalList &side : form)
        for (std::size_t i = 0; i < side.size(); ++i) {
            const auto &[text, kodif] = side[i];
            line->bind(u"bel_kod"_s, kodif.kodas);
            line->bind(u"bel_pavad"_s, storedName(text));
            line->exec();
            if (!hasAccounts(text))
                continue;
            if (!second && !CheckSas(text, known))
                refuseDetail(qsizetype(i) + 1);
            for (const QString &piece : second ? accountRemainders(text) : accountPieces(text))
                add(kodif.kodas, second ? Variant(piece) : Variant(accounts.GetSasByNr(piece)));
        }
}

} // namespace Balans
