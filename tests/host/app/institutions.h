#pragma once

#include "host/app/institutions.h"
#include "host/app/institutions_dialog.h"
#include "host/app/startup.h"
#include "host/data/main_datas.h"
#include "tests/support/files.h"
#include "tests/support/message_box.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

// A workstation of its own, with folders for books and an empty list of institutions.
class Workstation : public testing::Test {
protected:
    void SetUp() override { forgetAll(); }
    void TearDown() override
    {
        setProgramStarter({});
        setMainDatas(nullptr);
        CurrentUser() = {};
        forgetAll();
    }

    QString folder(const QString &name) const { return root.filePath(name); }
    // Empty books whose institution has this name and whose administrator is "ona" with the password "x".
    TKnownBooks books(const QString &place, const QString &name) const
    {
        const TBooksSettings settings = TBooksSettings::embedded(folder(place));
        createEmptyBooks(settings.folder, "ona", "x");
        TDatabase fin(settings.books().fin);
        fin.Open();
        fin.ExecSQL("insert into bd_org (org_pavad) values (:name)", {{"name", name}});
        return {.name = name, .books = settings};
    }
    static void know(const QList<TKnownBooks> &list) { writeKnownBooks(institutionsFile(), list); }
    static QStringList knownNames()
    {
        QStringList names;
        for (const TKnownBooks &each : readKnownBooks(institutionsFile()))
            names << each.name;
        return names;
    }
    static void forgetAll() { QDir(QFileInfo(institutionsFile()).path()).removeRecursively(); }

    QTemporaryDir root{scratchRoot() + "/velmora-XXXXXX"};
};

// What the rows that are to be seen say, the chosen one marked by "*".
inline QStringList shownRows(const TInstitutionsDlg &dialog)
{
    QStringList rows;
    const auto *list = dialog.findChild<QTreeWidget *>("List");
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *row = list->topLevelItem(i);
        if (!row->isHidden())
            rows << (row == list->currentItem() ? "*" : "") + row->text(0);
    }
    return rows;
}
