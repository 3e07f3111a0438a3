#include "database/history.h"
#include "host/app/main_window.h"
#include "host/app/server_panel.h"
#include "host/controls/browse_frm.h"
#include "tests/host/books.h"
#include "tests/support/cutting_proxy.h"
#include "tests/support/editor_hands.h"
#include "tests/support/files.h"
#include "tests/support/postgres.h"
#include "toolkit/data/server_link.h"
#include "toolkit/widgets/dialog.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// A list and its editor in the real main window, over a way to the server that is cut.
class LostServer : public WithMainDatas, protected EditorHands {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        auto datas = std::make_unique<TMainDatas>(overProxy(finSettings()), overProxy(ravlSettings()));
        datas->Open();
        setMainDatas(std::move(datas));
        fin = MainDatas()->mnFin_Db();
        ravl = MainDatas()->mnRavl();
        keepHistory(*fin, {u"ona"_s, u"pirma"_s});
        package = std::make_unique<TLoadedPackage>(buildFolder() + u"/lib/libvelmora.so"_s);
        window = std::make_unique<TMainWindow>(*package);
        window->setLoggedIn(true);
        window->show();
        window->openEntry(u"TImokosFrm"_s);
        list = window->findChild<TBrowseFrm *>();
        ASSERT_TRUE(list);
    }
    void TearDown() override
    {
        window.reset();
        package.reset();
        WithMainDatas::TearDown();
    }

    TSessionSettings overProxy(TSessionSettings settings) const
    {
        settings.connInfo.replace(postgresFolder(), proxy.folder());
        return settings;
    }

    // The user adds a code and does in its editor what the function does.
    void addCode(const std::function<void(TDialog &)> &user, const QString &number = u"77"_s)
    {
        OnNextDialog<TDialog> editor([&](TDialog &dialog) {
            type(edit(dialog, "IMO_KOD"), number);
            type(edit(dialog, "IMO_PAVAD"), u"Rinkliava"_s);
            user(dialog);
        });
        list->NewBtnClick();
        QCoreApplication::processEvents();
    }
    static QStringList typed(TDialog &dialog)
    {
        return {edit(dialog, "IMO_KOD")->text(), edit(dialog, "IMO_PAVAD")->text()};
    }

    QStringList stored() { return rows(*secondFin(), u"select imo_kod, imo_pavad from pp_imok"_s); }
    QStringList shown() const
    {
        QStringList keys;
        list->dataSet()->RecordCount();
        QCoreApplication::processEvents();
        for (int row = 0; row < list->dataSet()->rowCount(); ++row)
            keys << list->dataSet()->index(row, 0).data().toString();
        return keys;
    }
    QString told() const { return window->findChild<QLabel *>(u"engine"_s)->text(); }
    bool comesToTell(const QString &text) const
    {
        constexpr int patience = 30'000;
        return QTest::qWaitFor([&] { return told().contains(text); }, patience);
    }

    const QStringList code{u"77|Rinkliava"_s};
    const QStringList typedCode{u"77"_s, u"Rinkliava"_s};
    CuttingProxy proxy{postgresFolder()};
    std::unique_ptr<TLoadedPackage> package;
    std::unique_ptr<TMainWindow> window;
    TBrowseFrm *list = nullptr;
};
ON_ENGINE(LostServer, Engine::PostgreSql);

// The server is not sought for long while it is away.
class AwayServer : public LostServer {
protected:
    void SetUp() override
    {
        LostServer::SetUp();
        former = setSeekPatience(2'000);
    }
    void TearDown() override
    {
        setSeekPatience(former);
        LostServer::TearDown();
    }

    void comeBack()
    {
        proxy.comeBack();
        setSeekPatience(former);
    }

private:
    int former = 0;
};
ON_ENGINE(AwayServer, Engine::PostgreSql);

} // namespace

TEST_P(LostServer, ACommitThatWasDoneWithoutAnAnswerClosesTheDialogAndIsToldAsWritten)
{
    NextBoxes boxes{QMessageBox::Ok};
    addCode([&](TDialog &dialog) {
        proxy.cutAt(CuttingProxy::Cut::AfterCommit);
        save(dialog);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(proxy.cuts(), 1);
    EXPECT_EQ(boxes.at(0).kind, 33);
    EXPECT_TRUE(boxes.at(0).text.contains(u"Įrašyta."_s)) << boxes.at(0).text.toStdString();
    EXPECT_EQ(stored(), code);
    EXPECT_EQ(shown(), QStringList{u"77"_s});
    EXPECT_TRUE(comesToTell(u"Duomenų bazės serveris"_s));
}

TEST_P(LostServer, ACommitThatWasNotDoneIsToldAndTheDialogStaysAsTyped)
{
    addCode([&](TDialog &dialog) {
        proxy.cutAt(CuttingProxy::Cut::BeforeCommit);
        EXPECT_TRUE(refusal(dialog).contains(u"Neįrašyta."_s));
        EXPECT_EQ(typed(dialog), typedCode);
        EXPECT_EQ(stored(), QStringList());
        save(dialog);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(stored(), code);
    EXPECT_EQ(shown(), QStringList{u"77"_s});
}

// The way stands, so that nothing but the time tells.
TEST_P(LostServer, ACommitThatAHangingServerDoesNotAnswerIsLookedUp)
{
    NextBoxes boxes{QMessageBox::Ok};
    addCode([&](TDialog &dialog) {
        proxy.cutAt(CuttingProxy::Cut::Silence);
        const int former = setCommitPatience(2'000);
        save(dialog);
        setCommitPatience(former);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_TRUE(boxes.at(0).text.contains(u"Įrašyta."_s)) << boxes.at(0).text.toStdString();
    EXPECT_EQ(stored(), code);
}

// A server that took over without the transaction gives its number to somebody else, who commits.
TEST_P(LostServer, AnotherTransactionOfTheSameNumberIsNotTakenForTheOwn)
{
    keepHistory(*secondFin(), {u"ona"_s, u"antra"_s});
    secondFin()->StartTransaction();
    const QString number = nativeValue(*secondFin(), u"select pg_current_xact_id()::text"_s);
    secondFin()->ExecSQL(u"insert into pp_imok (imo_kod, imo_pavad) values (5, 'Kita')"_s);
    secondFin()->Commit();
    const QString question = u"select sys_ar_irasyta('%1'::xid8)"_s.arg(number);
    EXPECT_EQ(nativeValue(*secondFin(), question), u"true"_s);
    EXPECT_EQ(nativeValue(*fin, question), u"false"_s);
    setCommitWitness(*fin, u"select sys_ar_irasyta('%1'::xid8) and false"_s);
    addCode([&](TDialog &dialog) {
        proxy.cutAt(CuttingProxy::Cut::AfterCommit);
        EXPECT_TRUE(refusal(dialog).contains(u"Neįrašyta."_s));
        leaveUnsaved(dialog);
    });
}

// It proves nothing either way.
TEST_P(LostServer, ATransactionWithoutRecordsIsNobodys)
{
    secondFin()->StartTransaction();
    const QString number = nativeValue(*secondFin(), u"select pg_current_xact_id()::text"_s);
    secondFin()->Commit();
    EXPECT_EQ(
        nativeValue(*fin, u"select coalesce(sys_ar_irasyta('%1'::xid8)::text, 'nežinia')"_s.arg(number)),
        u"nežinia"_s);
}

TEST_P(AwayServer, WhatCannotBeToldYetIsLookedUpBeforeTheNextAttempt)
{
    NextBoxes written{QMessageBox::Ok};
    addCode([&](TDialog &dialog) {
        proxy.cutAt(CuttingProxy::Cut::AfterCommit, true);
        EXPECT_TRUE(refusal(dialog).contains(u"kol kas nežinoma"_s));
        EXPECT_EQ(typed(dialog), typedCode);
        EXPECT_FALSE(edit(dialog, "IMO_PAVAD")->isEnabled());
        EXPECT_TRUE(told().contains(u"Ieškoma ryšio su serveriu…"_s)) << told().toStdString();
        comeBack();
        save(dialog);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_TRUE(written.at(0).text.contains(u"Įrašyta."_s));
    EXPECT_EQ(stored(), code);
}

TEST_P(AwayServer, WhatWasNotWrittenIsWrittenByTheNextAttempt)
{
    addCode([&](TDialog &dialog) {
        proxy.cutAt(CuttingProxy::Cut::BeforeCommit, true);
        EXPECT_TRUE(refusal(dialog).contains(u"kol kas nežinoma"_s));
        comeBack();
        save(dialog);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(stored(), code);
}

TEST_P(AwayServer, WhatNobodyCanTellIsToldOnceBeforeTheNextAttempt)
{
    setCommitWitness(*fin, u"select null::boolean where '%1' <> ''"_s);
    addCode([&](TDialog &dialog) {
        proxy.cutAt(CuttingProxy::Cut::AfterCommit, true);
        EXPECT_TRUE(refusal(dialog).contains(u"kol kas nežinoma"_s));
        comeBack();
        EXPECT_TRUE(refusal(dialog).contains(u"sužinoti nepavyko"_s));
        EXPECT_TRUE(edit(dialog, "IMO_PAVAD")->isEnabled());
        EXPECT_FALSE(refusal(dialog).contains(u"sužinoti nepavyko"_s)); // the code is there
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(), code);
}

TEST_P(AwayServer, WhatBecameOfASaveIsToldBeforeAnotherOneBegins)
{
    addCode([&](TDialog &dialog) {
        proxy.cutAt(CuttingProxy::Cut::AfterCommit, true);
        EXPECT_TRUE(refusal(dialog).contains(u"kol kas nežinoma"_s));
        leaveUnsaved(dialog);
        comeBack();
    });
    addCode(
        [&](TDialog &dialog) {
            const QString before = refusal(dialog);
            EXPECT_TRUE(before.contains(u"ankstesnį įrašymą. Patikrinta: Įrašyta."_s))
                << before.toStdString();
            EXPECT_EQ(stored(), code);
            save(dialog);
            EXPECT_FALSE(dialog.isVisible());
        },
        u"78"_s);
    EXPECT_EQ(stored(), code + QStringList{u"78|Rinkliava"_s});
}

// A list that writes what its dialog only asks for.
TEST_P(AwayServer, AListDoesNotWriteOnceMoreWhatWasWritten)
{
    window->openEntry(u"TObjektFrm"_s);
    auto *objects = window->findChild<TBrowseFrm *>(u"TObjektFrm"_s);
    ASSERT_TRUE(objects);
    NextBoxes boxes{QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
    OnNextDialog<TDialog> first([&](TDialog &dialog) {
        type(edit(dialog, "Name"), u"Mokykla"_s);
        proxy.cutAt(CuttingProxy::Cut::AfterCommit, true);
        save(dialog);
    });
    OnNextDialog<TDialog> again([&](TDialog &dialog) {
        comeBack();
        type(edit(dialog, "Name"), u"Mokyklos pastatas"_s);
        save(dialog);
    });
    objects->NewBtnClick();
    QCoreApplication::processEvents();
    EXPECT_TRUE(boxes.at(0).text.contains(u"kol kas nežinoma"_s)) << boxes.at(0).text.toStdString();
    EXPECT_TRUE(boxes.texts().join(u'|').contains(u"Vėlesni pakeitimai neįrašyti"_s));
    EXPECT_TRUE(boxes.texts().join(u'|').contains(u"patikrinta: Įrašyta."_s));
    EXPECT_EQ(rows(*secondFin(), u"select obj_pavad from bd_objektai"_s), QStringList{u"Mokykla"_s});
}

TEST_P(LostServer, AServerThatIsFoundButLetsNobodyInSaysWhy)
{
    const QString limit =
        u"alter database %1 connection limit %2"_s.arg(finSettings().connInfo.section(u"dbname="_s, 1));
    addCode([&](TDialog &dialog) {
        postgresExec(limit.arg(0));
        proxy.cutNow();
        EXPECT_TRUE(refusal(dialog).contains(u"Nutrūko ryšys"_s));
        EXPECT_TRUE(comesToTell(u"Serveris neįsileidžia"_s)) << told().toStdString();
        const auto *panel = window->findChild<TServerPanel *>();
        EXPECT_TRUE(panel->toolTip().contains(u"tiek kartų, kiek jis leidžia"_s))
            << panel->toolTip().toStdString();
        postgresExec(limit.arg(-1));
        EXPECT_TRUE(comesToTell(u"Duomenų bazės serveris"_s)) << told().toStdString();
        leaveUnsaved(dialog);
    });
}

TEST_P(LostServer, OpenWindowsStayAndTheNextAttemptGoesOn)
{
    EXPECT_TRUE(told().contains(u"šiame kompiuteryje"_s)) << told().toStdString();
    addCode([&](TDialog &dialog) {
        proxy.cutNow(true);
        EXPECT_TRUE(refusal(dialog).contains(u"Nutrūko ryšys"_s));
        EXPECT_TRUE(told().startsWith(u"Ieškoma ryšio su serveriu…"_s)) << told().toStdString();
        EXPECT_EQ(typed(dialog), typedCode);
        EXPECT_TRUE(refusal(dialog).contains(u"Nepavyko prisijungti"_s));
        proxy.comeBack();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !told().startsWith(u"Ieškoma"_s); }, 30'000));
        EXPECT_EQ(stored(), QStringList());
        save(dialog);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(stored(), code);
    EXPECT_EQ(shown(), QStringList{u"77"_s});
    EXPECT_TRUE(comesToTell(u"šiame kompiuteryje"_s)) << told().toStdString();
}
