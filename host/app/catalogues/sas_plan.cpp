#include "host/app/catalogues/sas_plan.h"

#include "host/app/catalogues/sas_rules.h"

using namespace Qt::StringLiterals;

namespace {

const TChoices kinds{{u"&Suminė"_s, u"S"_s}, {u"&Detali"_s, u"D"_s}, {u"&Uždaryta"_s, u"U"_s}};

QString kindName(const Variant &kind)
{
    for (const auto &[name, value] : kinds)
        if (value == kind)
            return QString(name).remove(u'&');
    return {};
}

} // namespace

TSasPlanFrm::TSasPlanFrm(QWidget *owner)
    : TTreeFrm({.name = u"TSasPlanFrm"_s,
                .caption = u"Sąskaitų planas"_s,
                .help = 121,
                .keyColumn = u"SAS_ID"_s,
                .table = u"bd_sasplan"_s,
                .sql = u"select sas_id, sas_sasnr, sas_pavad, sas_tip from bd_sasplan "
                       "where 0 = :tevas or sas_id = :tevas or sas_tevid = :tevas order by sas_sasnr"_s,
                .columns = {{u"SAS_SASNR"_s, u"Numeris"_s, 110},
                            {u"SAS_PAVAD"_s, u"Pavadinimas"_s, 430},
                            {.field = u"SAS_TIP"_s, .title = u"Rūšis"_s, .width = 80, .text = kindName}},
                .editing = TEditing::UnlessViewOnly,
                .used = {u"Sąskaita %s yra naudojama!"_s, u"SAS_SASNR"_s},
                .newCaption = u"Nauja sąskaita"_s,
                .editCaption = u"Sąskaita"_s},
               {.root = u"Visos sąskaitos"_s,
                .codeTitle = u"Numeris"_s,
                .parentColumn = u"sas_tevid"_s,
                .nodes = u"select sas_id, sas_tevid, sas_sasnr, sas_pavad, 1 as lapas from bd_sasplan"_s,
                .edit = editBranch<TSasPlanDlg>,
                .place = [](const QList<double> &branch, double parent,
                            bool) { placeAccount(branch.first(), parent); }},
               owner)
{
}

void TSasPlanFrm::CheckUsed()
{
    TTreeFrm::CheckUsed();
    requireNotInBudgetForm(dataSet()->FieldByName(u"SAS_SASNR"_s)->AsString());
}

TSasPlanDlg::TSasPlanDlg(const QString &caption, const TRecordStart &start, double parent)
    : TBranchDlg(
          {.name = u"TSasPlanDlg"_s,
           .newCaption = caption,
           .help = 121,
           .table = u"bd_sasplan"_s,
           .keyColumn = u"SAS_ID"_s,
           .key = TKeyRule::drawn(u"select GetNextTableColumnId('dba','bd_sasplan','sas_id') from dummy"_s),
           .sql = u"select * from bd_sasplan where sas_id = :id"_s,
           .rows = {TFieldRow::edit(u"&Numeris"_s, u"SAS_SASNR"_s).digitsTyped().required(),
                    TFieldRow::edit(u"&Pavadinimas"_s, u"SAS_PAVAD"_s).required().width(60),
                    TFieldRow::radio(u"Rūšis"_s, u"SAS_TIP"_s, kinds).defaultValue(u"D"_s)},
           .prepare =
               [](TQuery &row) {
                   row.describe(u"SAS_SASNR"_s, [](TField &number) { number.OnValidate = requireNumber; });
               }},
          start, u"SAS_TEVID"_s, parent)
{
}

void TSasPlanDlg::Judge()
{
    const TField &number = *field(u"SAS_SASNR"_s);
    if (parentOfNew() > 0)
        makeSummary(parentOfNew());
    if (isNew() || number.Value() != number.OldValue())
        requireNumber(number, number.Value());
    if (!isNew())
        requireAccountKind(row());
    TBranchDlg::Judge();
}
