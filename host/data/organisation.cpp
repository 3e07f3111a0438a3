#include "host/data/organisation.h"

#include "host/data/main_datas.h"

namespace {

constexpr int companyType = 1;

Variant ofOrganisation(const QString &column)
{
    if (!MainDatas())
        return {};
    return MainDatas()->mnFin_Db()->fieldResult(QStringLiteral("select %1 from bd_org").arg(column));
}

} // namespace

QString organisationName()
{
    return ofOrganisation(QStringLiteral("org_pavad")).toString();
}

bool UAB()
{
    return ofOrganisation(QStringLiteral("org_tipas")).toInt() == companyType;
}

void setUAB(bool on)
{
    Q_ASSERT(MainDatas());
    const qlonglong changed =
        MainDatas()->mnFin_Db()->ExecSQL(QStringLiteral("update bd_org set org_tipas = :tipas"),
                                         {{QStringLiteral("tipas"), on ? companyType : 0}});
    if (changed == 0)
        throw EDatabaseError(QStringLiteral("Neįvesti organizacijos atributai!"));
}

TOrganisationNotifier &organisationNotifier()
{
    static TOrganisationNotifier notifier;
    return notifier;
}

void OrganisationChanged()
{
    emit organisationNotifier().organisationChanged();
}
