#include "host/app/catalogues/savivaldybes.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int highestCode = 32767;

TDatabase *budget()
{
    return sessionOf(TSession::Budget);
}

bool editMunicipality(int &code, bool isNew)
{
    return editRecord<TSavivaldybeDlg>(code, TRecordStart::rowOrNew(isNew, code));
}

// Institutions are kept under the code: it stays as it was given.
TFieldRow codeRow(bool isNew)
{
    TFieldRow row =
        TFieldRow::edit(u"&Kodas"_s, u"SAV_KOD"_s).digitsTyped().between(0, highestCode).required();
    return isNew ? row : row.readOnly();
}

void writeToBudget(const QVariantMap &row)
{
    if (budget()->ExecSQL(u"update bd_savivaldybes set sav_pavad = :pavad where sav_kod = :kod"_s, row) == 0)
        budget()->ExecSQL(u"insert into bd_savivaldybes (sav_kod, sav_pavad) values (:kod, :pavad)"_s, row);
}

} // namespace

TSavivaldybesFrm::TSavivaldybesFrm(QWidget *owner)
    : TBrowseFrm({.name = u"TSavivaldybesFrm"_s,
                  .caption = u"Savivaldybės"_s,
                  .help = 125,
                  .keyColumn = u"SAV_KOD"_s,
                  .table = u"bd_savivaldybes"_s,
                  .sql = u"select * from bd_savivaldybes order by sav_pavad"_s,
                  .columns = {{u"SAV_KOD"_s, u"Kodas"_s, 80}, {u"SAV_PAVAD"_s, u"Pavadinimas"_s, 360}},
                  .editing = TEditing::UnlessViewOnly,
                  .edit = keyed<int>(editMunicipality)},
                 owner)
{
}

void TSavivaldybesFrm::CheckUsed()
{
    const QString uses =
        u"select f_CheckUsed('bd_savivaldybes', 'sav_kod', '%1') from dummy"_s.arg(currentKey().toInt());
    for (TDatabase *book : {Database(), budget()})
        if (book->fieldResult(uses).toInt() > 0)
            throw Exception(u"Savivaldybė \"%1\" yra naudojama!"_s.arg(
                dataSet()->FieldByName(u"SAV_PAVAD"_s)->AsString()));
}

void TSavivaldybesFrm::DeleteRow(const Variant &key)
{
    TTransaction inBudget(budget());
    CheckUsed();
    TBrowseFrm::DeleteRow(key);
    budget()->ExecSQL(u"delete from bd_savivaldybes where sav_kod = :kod"_s, {{u"kod"_s, key}});
    inBudget.commit();
}

TSavivaldybeDlg::TSavivaldybeDlg(const TRecordStart &start)
    : TRecordDialog({.name = u"TSavivaldybeDlg"_s,
                     .newCaption = u"Nauja savivaldybė"_s,
                     .editCaption = u"Savivaldybė"_s,
                     .help = 125,
                     .table = u"bd_savivaldybes"_s,
                     .keyColumn = u"SAV_KOD"_s,
                     .sql = u"select * from bd_savivaldybes where sav_kod = :kod"_s,
                     .unique = {{u"SAV_KOD"_s}},
                     .rows = {codeRow(start.kind == TRecordStart::Kind::New),
                              TFieldRow::edit(u"&Pavadinimas"_s, u"SAV_PAVAD"_s).required().width(50)}},
                    start)
{
}

void TSavivaldybeDlg::Save()
{
    TTransaction inBudget(budget());
    TRecordDialog::Save();
    writeToBudget({{u"kod"_s, field(u"SAV_KOD"_s)->Value()}, {u"pavad"_s, field(u"SAV_PAVAD"_s)->Value()}});
    inBudget.commit();
}
