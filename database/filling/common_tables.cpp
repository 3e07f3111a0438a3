#include "database/filling/common_tables.h"

#include "database/filling/row_writer.h"

using namespace Qt::StringLiterals;

void writeAccounts(TDatabase &fin, const QList<TCode> &accounts)
{
    TRowWriter writer(fin, u"bd_sasplan"_s, u"sas_id,sas_sasnr,sas_pavad,sas_tip,sas_tevid"_s);
    for (qsizetype i = 0; i < accounts.size(); ++i) {
        const TCode &account = accounts.at(i);
        writer.add({QString::number(i + 1), account.code, account.name, account.leaf ? u"D"_s : u"S"_s,
                    parentKey(account)});
    }
    writer.flush();
}

void writeStartOfWork(TDatabase &fin, int year, int month)
{
    Q_ASSERT(month >= 1 && month <= 12);
    TRowWriter writer(fin, u"bd_period"_s, u"per_id,per_metai,per_ketv,per_menuo"_s);
    const auto add = [&](int id, int quarter, int monthOfQuarter) {
        writer.add({QString::number(id), QString::number(year), QString::number(quarter),
                    QString::number(monthOfQuarter)});
    };
    for (int quarter = 0; quarter <= 4; ++quarter)
        add(quarter + 1, quarter, 0);
    add(6, (month - 1) / 3 + 1, (month - 1) % 3 + 1);
    writer.flush();
}
