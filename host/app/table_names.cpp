#include "host/app/table_names.h"

#include <QHash>

using namespace Qt::StringLiterals;

QString tableName(const QString &table)
{
    static const QHash<QString, QString> names{
        {u"bd_period"_s, u"Periodai"_s},
        {u"bd_sasplan"_s, u"Sąskaitų planas"_s},
        {u"bd_asgisl"_s, u"Klasifikacijos knygos"_s},
        {u"bd_jve"_s, u"Klasifikacijos kodai"_s},
        {u"bd_fun"_s, u"Valstybės funkcijos"_s},
        {u"bd_saslik"_s, u"Sąskaitų likučiai"_s},
        {u"bd_isllik"_s, u"Išlaidų likučiai"_s},
        {u"bd_dbkrlik"_s, u"Debitorių ir kreditorių likučiai"_s},
        {u"bd_dbkrasm"_s, u"Debitoriai ir kreditoriai"_s},
        {u"bd_dbkrsut"_s, u"Sutartys"_s},
        {u"bd_baleil"_s, u"Balanso formos eilutės"_s},
        {u"bd_balsas"_s, u"Balanso formos sąskaitos"_s},
        {u"bd_opr"_s, u"Tipinės operacijos"_s},
        {u"bd_oprsaskor"_s, u"Tipinių operacijų sąskaitos"_s},
        {u"bd_samatos"_s, u"Sąmatos"_s},
        {u"bd_samkor"_s, u"Sąmatų koregavimai"_s},
        {u"bd_irasai"_s, u"Įrašai"_s},
        {u"bd_atsasm"_s, u"Atskaitingi asmenys"_s},
        {u"bd_matasm"_s, u"Materialiai atsakingi asmenys"_s},
        {u"bd_kasos"_s, u"Kasos"_s},
        {u"bd_einsas"_s, u"Einamosios sąskaitos"_s},
        {u"bd_bankai"_s, u"Bankai"_s},
        {u"bd_pad"_s, u"Skyriai"_s},
        {u"bd_laikymo_vieta"_s, u"Laikymo vietos"_s},
        {u"bd_prg"_s, u"Pareigybės"_s},
        {u"bd_tarn"_s, u"Valstybės tarnautojų kategorijos"_s},
        {u"du_drbklas"_s, u"Profesinės grupės"_s},
        {u"du_veikl"_s, u"Veiklos rūšys"_s},
        {u"bd_objektai"_s, u"Objektai"_s},
        {u"bd_pajamurusiukodai"_s, u"Pajamų rūšių kodai"_s},
        {u"it_pardtip"_s, u"Nurašymo ir pardavimo būdai"_s},
        {u"it_pirktip"_s, u"Įsigijimo būdai"_s},
        {u"it_turtas"_s, u"Turtas"_s},
        {u"pp_imok"_s, u"Mokesčių, rinkliavų ir kitų įmokų kodai"_s},
        {u"bd_nuomasm"_s, u"Nuomininkai"_s},
        {u"bd_savivaldybes"_s, u"Savivaldybės"_s},
        {u"bd_org"_s, u"Organizacijos atributai"_s},
        {u"bd_fin"_s, u"Finansavimo šaltiniai"_s},
        {u"bd_kdv"_s, u"Darbo vietos"_s},
        {u"bd_usr"_s, u"Vartotojai"_s},
        {u"bd_usrkdv"_s, u"Vartotojų teisės"_s},
        {u"bd_antspaudai"_s, u"Antspaudai"_s},
    };
    return names.value(table, table);
}
