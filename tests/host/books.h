#pragma once

#include "host/common/settings_store.h"
#include "host/data/main_datas.h"
#include "tests/support/engines.h"

// The host's data module over two fresh databases with the schema, nobody logged in, no settings kept.
class WithMainDatas : public OnBothEngines {
protected:
    void SetUp() override
    {
        OnBothEngines::SetUp();
        if (HasFatalFailure() || IsSkipped())
            return;
        settingsStore().clear();
        CurrentUser() = {};
        auto datas = std::make_unique<TMainDatas>(finSettings(), ravlSettings());
        datas->Open();
        setMainDatas(std::move(datas));
        fin = MainDatas()->mnFin_Db();
        ravl = MainDatas()->mnRavl();
    }

    void TearDown() override
    {
        setMainDatas(nullptr);
        CurrentUser() = {};
        OnBothEngines::TearDown();
    }

    // The sessions of the module.
    TDatabase *fin = nullptr;
    TDatabase *ravl = nullptr;
};

// Accounts in the order of their numbers; parent 0: none.
inline void addAccount(TDatabase *db, int id, const QString &number, const QString &name, const QString &kind,
                       int parent)
{
    db->ExecSQL(QStringLiteral("insert into bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip, sas_tevid) "
                               "values (:id, :nr, :pavad, :tip, :tevid)"),
                {{QStringLiteral("id"), id},
                 {QStringLiteral("nr"), number},
                 {QStringLiteral("pavad"), name},
                 {QStringLiteral("tip"), kind},
                 {QStringLiteral("tevid"), parent > 0 ? Variant(parent) : Variant()}});
}

// 2 Turtas (summary): 22 Gautinos sumos (summary): 221 Pirkėjų skolos, 222 Šilumos skolos (details); 24
// Pinigai (detail). 4 Įsipareigojimai (summary): 43 Mokėtinos sumos (detail).
inline void addSmallChart(TDatabase *db)
{
    addAccount(db, 1, QStringLiteral("2"), QStringLiteral("Turtas"), QStringLiteral("S"), 0);
    addAccount(db, 2, QStringLiteral("22"), QStringLiteral("Gautinos sumos"), QStringLiteral("S"), 1);
    addAccount(db, 3, QStringLiteral("221"), QStringLiteral("Pirkėjų skolos"), QStringLiteral("D"), 2);
    addAccount(db, 4, QStringLiteral("222"), QStringLiteral("Šilumos skolos"), QStringLiteral("D"), 2);
    addAccount(db, 5, QStringLiteral("24"), QStringLiteral("Pinigai"), QStringLiteral("D"), 1);
    addAccount(db, 6, QStringLiteral("4"), QStringLiteral("Įsipareigojimai"), QStringLiteral("S"), 0);
    addAccount(db, 7, QStringLiteral("43"), QStringLiteral("Mokėtinos sumos"), QStringLiteral("D"), 6);
}
