#include "host/app/host_entries.h"

#include "host/app/catalogues/darbo_vietos.h"
#include "host/app/catalogues/funkcijos.h"
#include "host/app/catalogues/irasai.h"
#include "host/app/catalogues/klasifikacija.h"
#include "host/app/catalogues/knygos.h"
#include "host/app/catalogues/sas_plan.h"
#include "host/app/catalogues/savivaldybes.h"
#include "host/app/close_check/close_check_frm.h"
#include "host/app/close_check/roll_back_frm.h"
#include "host/app/history/history_frm.h"

using namespace Qt::StringLiterals;

namespace {

// These menus have entries of the package, too: no key in them may be taken twice.
const QString periods = u"Pe&riodas"_s;
const QString catalogues = u"&Žinynai"_s;
const QStringList classification{catalogues, u"Klas&ifikacija"_s};

template<class Form> TPackageEntry listScreen(const QStringList &menu, const QString &caption, int help)
{
    return {.name = QString::fromLatin1(Form::staticMetaObject.className()),
            .unit = u"host"_s,
            .kind = TPackageEntry::Kind::ListScreen,
            .menu = menu,
            .caption = caption,
            .help = help,
            .create = [](QWidget *owner) -> QWidget * { return createForm<Form>(owner); }};
}

} // namespace

const QString &programMenu()
{
    static const QString caption = u"Pr&ograma"_s;
    return caption;
}

const TPackageEntries &hostEntries()
{
    static const TPackageEntries entries{
        listScreen<THistoryFrm>({programMenu()}, u"Pakeitimų &istorija…"_s, 126),
        listScreen<TCloseCheckFrm>({periods}, u"&Tikrinimas prieš uždarymą…"_s, 128),
        listScreen<TRollBackFrm>({periods}, u"&Kas bus ištrinta atsukus periodą…"_s, 128),
        listScreen<TIrasaiFrm>({periods}, u"&Mėnesio įrašai…"_s, 128),
        listScreen<TSasPlanFrm>({catalogues}, u"&Sąskaitų planas…"_s, 121),
        listScreen<TKnygosFrm>(classification, u"&Knygos…"_s, 122),
        listScreen<TMazgaiFrm>(classification, u"Klasifikacijos ko&dai…"_s, 122),
        listScreen<TFunkcijosFrm>(classification, u"&Valstybės funkcijos…"_s, 123),
        listScreen<TDarboVietosFrm>({catalogues}, u"Da&rbo vietos…"_s, 124),
        listScreen<TSavivaldybesFrm>({catalogues}, u"Savivald&ybės…"_s, 125),
    };
    return entries;
}

TPackageEntries withHostEntries(const TPackageEntries &ofPackage)
{
    TPackageEntries all = ofPackage;
    all.insert(all.end(), hostEntries().begin(), hostEntries().end());
    return all;
}
