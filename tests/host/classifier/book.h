#pragma once

#include "tests/host/books.h"

// Two books. The first, "Biudžetas": 01 Bendrosios paslaugos (folder): 2.1 Darbo užmokestis and 2.2 Prekės
// (folder, carries data too): 2.2.1 Mityba. 09 Švietimas (carries data). The second, "Fondai": 10 Fondas.
class WithClassification : public WithMainDatas {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        fin->ExecSQL(QStringLiteral("insert into bd_asgisl (isl_id, isl_pavad) values (1, 'Biudžetas')"));
        fin->ExecSQL(QStringLiteral("insert into bd_asgisl (isl_id, isl_pavad) values (2, 'Fondai')"));
        addNode(10, 1, 0, QStringLiteral("01"), QStringLiteral("Bendrosios paslaugos"), 0);
        addNode(11, 1, 10, QStringLiteral("2.1"), QStringLiteral("Darbo užmokestis"), 1);
        addNode(12, 1, 10, QStringLiteral("2.2"), QStringLiteral("Prekės"), 1);
        addNode(13, 1, 12, QStringLiteral("2.2.1"), QStringLiteral("Mityba"), 1);
        addNode(14, 1, 0, QStringLiteral("09"), QStringLiteral("Švietimas"), 1);
        addNode(20, 2, 0, QStringLiteral("10"), QStringLiteral("Fondas"), 1);
    }

    void addNode(int id, int book, int parent, const QString &code, const QString &name, int carries)
    {
        fin->ExecSQL(QStringLiteral(
                         "insert into bd_jve (jve_id, jve_islid, jve_tevid, jve_kodas, jve_pavad, jve_duom) "
                         "values (:id, :islid, :tevid, :kodas, :pavad, :duom)"),
                     {{QStringLiteral("id"), id},
                      {QStringLiteral("islid"), book},
                      {QStringLiteral("tevid"), parent > 0 ? Variant(parent) : Variant()},
                      {QStringLiteral("kodas"), code},
                      {QStringLiteral("pavad"), name},
                      {QStringLiteral("duom"), carries}});
    }
};
