#include "database/standard/writing.h"

#include "database/filling/common_tables.h"
#include "database/filling/row_writer.h"
#include "toolkit/data/query.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int everyWorkPlace = 0xFFFF;
constexpr int firstYear = 1997, lastYear = 2100;

// A resource whose columns are those of the table.
void copyTable(TDatabase &db, const QString &name, const QString &table)
{
    const TTableText text = TTableText::read(u"standard/"_s + name);
    TRowWriter writer(db, table, text.columns.join(u','));
    for (const QStringList &row : text.rows)
        writer.add(row);
    writer.flush();
}

// One typed value of a new row; an empty text stays null.
struct TTyped {
    QString column;
    QString label; // as a refusal names it
    Variant value;
};

// Writes a row of what somebody typed: its fields refuse what their columns cannot hold.
void writeTyped(TDatabase &db, const QString &table, const QList<TTyped> &values)
{
    TTable set(&db, table);
    set.Open();
    set.Append();
    for (const TTyped &typed : values) {
        TField *field = set.FieldByName(typed.column);
        field->DisplayLabel = typed.label;
        if (!typed.value.toString().isEmpty())
            field->setValue(typed.value);
    }
    set.Post();
}

template<typename Number> Variant orNull(const std::optional<Number> &number)
{
    return number ? Variant(*number) : Variant();
}

} // namespace

bool hasRows(TDatabase &db, const QString &table)
{
    return db.fieldResult(u"select count(*) from "_s + table).toLongLong() > 0;
}

void writeInstitution(const TWriting &to)
{
    const TInstitution &typed = *to.setUp.institution;
    writeTyped(to.fin, u"bd_org"_s,
               {{u"org_id"_s, {}, 1},
                {u"org_pavad"_s, u"Pavadinimas"_s, typed.pavad.trimmed()},
                {u"org_adr"_s, u"Adresas"_s, typed.adr.trimmed()},
                {u"org_i_kod"_s, u"Įmonės kodas"_s, orNull(typed.kodas)},
                {u"org_pvm_kod"_s, u"PVM kodas"_s, typed.pvmKodas.trimmed()},
                {u"org_draud_kod"_s, u"Draudėjo kodas"_s, typed.draudKodas.trimmed()},
                {u"org_savivaldybe"_s, u"Savivaldybės kodas"_s, orNull(typed.savivaldybe)}});
}

void writeAdministrator(const TWriting &to)
{
    const TAdministrator &typed = *to.setUp.administrator;
    if (typed.name.trimmed().isEmpty())
        throw Exception(u"Įveskite administratoriaus prisijungimo vardą."_s);
    if (typed.password.isEmpty())
        throw Exception(u"Įveskite administratoriaus slaptažodį."_s);
    writeTyped(to.ravl, u"bd_usr"_s,
               {{u"usr_id"_s, {}, 1},
                {u"usr_name"_s, u"Prisijungimo vardas"_s, typed.name.trimmed()},
                {u"usr_vardas"_s, u"Vartotojo vardas"_s, typed.vardas.trimmed()},
                {u"usr_pavarde"_s, u"Vartotojo pavardė"_s, typed.pavarde.trimmed()},
                {u"usr_pasw"_s, u"Prisijungimo slaptažodis"_s, typed.password},
                {u"usr_perziurai"_s, {}, 0},
                {u"usr_user_admin"_s, {}, 1}});
}

void writeMunicipalities(const TWriting &to)
{
    for (TDatabase *db : {&to.fin, &to.ravl}) {
        if (!hasRows(*db, u"bd_savivaldybes"_s))
            copyTable(*db, u"savivaldybes"_s, u"bd_savivaldybes"_s);
    }
}

void writeStandardAccounts(const TWriting &to)
{
    writeAccounts(to.fin, accountTree(TTableText::read(u"standard/sasplan"_s)));
}

void writeClassification(const TWriting &to)
{
    to.fin.ExecSQL(u"insert into bd_asgisl (isl_id, isl_pavad) values (1, 'Išlaidų klasifikacija')"_s);
    const QList<TCode> codes = codeTree(TTableText::read(u"standard/ekonomine"_s));
    TRowWriter writer(to.fin, u"bd_jve"_s, u"jve_id,jve_islid,jve_tevid,jve_kodas,jve_pavad,jve_duom"_s);
    for (qsizetype i = 0; i < codes.size(); ++i) {
        const TCode &code = codes.at(i);
        writer.add({QString::number(i + 1), u"1"_s, parentKey(code), code.code, code.name,
                    code.leaf ? u"1"_s : u"0"_s});
    }
    writer.flush();
}

void writeFunctions(const TWriting &to)
{
    const QList<TCode> codes = codeTree(TTableText::read(u"standard/funkcine"_s));
    TRowWriter writer(to.fin, u"bd_fun"_s, u"fun_id,fun_tevid,fun_kodas,fun_pavad"_s);
    for (qsizetype i = 0; i < codes.size(); ++i)
        writer.add({QString::number(i + 1), parentKey(codes.at(i)), codes.at(i).code, codes.at(i).name});
    writer.flush();
}

void writeWorkPlaces(const TWriting &to)
{
    copyTable(to.ravl, u"darbo_vietos"_s, u"bd_kdv"_s);
}

void writeSources(const TWriting &to)
{
    copyTable(to.ravl, u"saltiniai"_s, u"bd_fin"_s);
}

void writeBanks(const TWriting &to)
{
    copyTable(to.fin, u"bankai"_s, u"bd_bankai"_s);
}

void writeFirstMonth(const TWriting &to)
{
    const QDate day = *to.setUp.startOfWork;
    if (!day.isValid() || day.year() < firstYear || day.year() > lastYear)
        throw Exception(u"Darbo pradžios metai turi būti nuo %1 iki %2."_s.arg(firstYear).arg(lastYear));
    writeStartOfWork(to.fin, day.year(), day.month());
}

void writeMissingRights(TDatabase &ravl)
{
    ravl.nativeExec(u"insert into bd_usrkdv (udv_usrid, udv_finid, udv_kdv) select usr_id, fin_id, %1 from "
                    "bd_usr cross join bd_fin where usr_user_admin = 1 and not exists "
                    "(select 1 from bd_usrkdv where udv_usrid = usr_id)"_s.arg(everyWorkPlace));
}
