#include "src/money/Fined.h"
#include "src/money/Finlist.h"
#include "tests/src/catalogue.h"
#include "tests/support/files.h"
#include "tests/support/key_on_box.h"
#include "toolkit/widgets/db_image.h"

#include <QCheckBox>
#include <QImage>
#include <QTemporaryDir>

using Fined::TFinEdDlg;

namespace {

class Financing : public OnCatalogue<Finlist::FinListFrm, Fined::FinEdDlg> {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        ravl().ExecSQL("insert into bd_savivaldybes (sav_kod, sav_pavad) values (13, 'Žiogelių')");
        ravl().ExecSQL("insert into bd_fin (fin_pavad, fin_dir) values ('Biudžetas', '01')");
        open();
    }
    static TDatabase &ravl() { return *MainDatas()->mnRavl(); }
    static QStringList stored()
    {
        return rows(ravl(), "select fin_id, fin_pavad, fin_dir, fin_org_pavad, fin_adr, fin_i_kod, "
                            "fin_savivaldybe, fin_rodyti from bd_fin order by fin_id");
    }
    // From now on the database refuses to store a source of that name.
    static void refuseTheName(const QString &name)
    {
        const QString condition = "new.fin_pavad = " + TDatabase::quoted(name);
        if (ravl().engine() == Engine::Sqlite)
            ravl().nativeExec("create trigger t_fail before insert on bd_fin when " + condition +
                              " begin select raise(abort, 'sugadinta tyčia'); end");
        else
            ravl().nativeExec("create function f_fail() returns trigger language plpgsql as "
                              "$$ begin raise exception 'sugadinta tyčia'; end $$;"
                              "create trigger t_fail before insert on bd_fin for each row when (" +
                              condition + ") execute function f_fail()");
    }
    static TDBImage *emblem(QWidget &dialog) { return dialog.findChild<TDBImage *>("fin_org_zenklas"); }
    QString picture(const char *format)
    {
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(Qt::darkGreen);
        const QString file = folder.filePath(QString("zenklas.") + format);
        EXPECT_TRUE(image.save(file, format));
        return file;
    }
    static QString question(const QString &heading)
    {
        return "Kai užpildytas organizacijos pavadinimas laukas \"" + heading +
               "\" negali būti tuščias! Kad užpildyti lauka spauskite \"Taip\", kad išvalyti organizacijos "
               "pavadinimą spauskite \"Ne\".";
    }

    QTemporaryDir folder;
};
ON_BOTH_ENGINES(Financing);

} // namespace

TEST_P(Financing, SourcesAreAddedUnderTheKeyThatTheDatabaseGives)
{
    EXPECT_EQ(titles(), QStringList({"Pavadinimas", "DB", "Organizacija", "Adresas", "Įmonės kodas",
                                     "Draudėjo kodas", "Savivaldybės kodas", "Rodyti ataskaitose"}));
    add([](TFinEdDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Finansavimo šaltinio keitimas");
        type(edit(dialog, "fin_pavad"), "Spec. lėšos");
        type(edit(dialog, "fin_dir"), "02");
        EXPECT_EQ(items(dialog, "Fin_Savivaldybe"), QStringList("Žiogelių"));
        choose(dialog, "Fin_Savivaldybe", "Žiogelių");
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList({"1|Biudžetas|01|NULL|NULL|NULL|NULL|NULL",
                                     "2|Spec. lėšos|02|NULL|NULL|NULL|13|1"}));
    EXPECT_EQ(key(), 2) << "the key is read back";
    change(2, [](TFinEdDlg &dialog) {
        type(edit(dialog, "fin_pavad"), "Spec. programa");
        save(dialog);
    });
    EXPECT_EQ(rows(ravl(), "select fin_pavad from bd_fin where fin_id = 2"), QStringList("Spec. programa"));
}

TEST_P(Financing, AnOrganisationNeedsItsAddressAndItsCode)
{
    change(1, [](TFinEdDlg &dialog) {
        type(edit(dialog, "fin_org_pavad"), "Gimnazija");
        {
            NextBoxes asked{QMessageBox::Yes};
            save(dialog);
            EXPECT_EQ(asked.texts(), QStringList(question("Adresas")));
            EXPECT_EQ(asked.at(0).kind, 18);
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(dialog.focusWidget(), edit(dialog, "fin_adr"));
            EXPECT_EQ(edit(dialog, "fin_org_pavad")->text(), "Gimnazija");
        }
        type(edit(dialog, "fin_adr"), "Šilo g. 7");
        {
            NextBoxes asked{QMessageBox::Yes};
            save(dialog);
            EXPECT_EQ(asked.texts(), QStringList(question("Įmonės kodas")));
        }
        type(edit(dialog, "fin_i_kod"), "190000000");
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList("1|Biudžetas|01|Gimnazija|Šilo g. 7|190000000|NULL|NULL"));
}

TEST_P(Financing, NoInsteadClearsTheNameOfTheOrganisation)
{
    change(1, [](TFinEdDlg &dialog) {
        type(edit(dialog, "fin_org_pavad"), "Gimnazija");
        NextBoxes asked{QMessageBox::No};
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList("1|Biudžetas|01|NULL|NULL|NULL|NULL|NULL"));
}

TEST_P(Financing, EnterAndEscLeaveTheNameOfTheOrganisationAsItWasTyped)
{
    change(1, [](TFinEdDlg &dialog) {
        type(edit(dialog, "fin_org_pavad"), "Gimnazija");
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
            {
                KeyOnBox pressed(key);
                save(dialog);
            }
            EXPECT_EQ(edit(dialog, "fin_org_pavad")->text(), "Gimnazija") << key;
            EXPECT_EQ(dialog.focusWidget(), edit(dialog, "fin_adr")) << key;
        }
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(), QStringList("1|Biudžetas|01|NULL|NULL|NULL|NULL|NULL"));
}

TEST_P(Financing, BlanksAreNoNameAndLettersAreNoCompanyCode)
{
    add([](TFinEdDlg &dialog) {
        type(edit(dialog, "fin_pavad"), "   ");
        EXPECT_EQ(refusal(dialog), "Laukas \"Pavadinimas\" negali būti tuščias!");
        type(edit(dialog, "fin_pavad"), "Spec.");
        paste(edit(dialog, "fin_i_kod"), "AB1");
        EXPECT_EQ(refusal(dialog), "Laukas \"Įmonės kodas\": „AB1“ nėra skaičius.");
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored().size(), 1);
}

TEST_P(Financing, AnEmblemIsTakenFromAFileAndTakenAway)
{
    for (const char *format : {"png", "jpeg", "bmp"}) {
        const QString file = picture(format);
        change(1, [&](TFinEdDlg &dialog) {
            emblem(dialog)->loadFromFile(file);
            save(dialog);
        });
        EXPECT_EQ(ravl().fieldResult("select fin_org_zenklas from bd_fin").toByteArray(), contentOf(file));
    }
    change(1, [](TFinEdDlg &dialog) {
        EXPECT_TRUE(emblem(dialog)->hasPicture());
        pressButton(dialog, "Išvalyti");
        save(dialog);
    });
    EXPECT_TRUE(ravl().fieldResult("select fin_org_zenklas from bd_fin").isNull());
}

TEST_P(Financing, AnEmblemThatBothStationsChangedIsToldWithoutItsBytes)
{
    change(1, [this](TFinEdDlg &dialog) {
        emblem(dialog)->loadFromFile(picture("png"));
        secondRavl()->ExecSQL("update bd_fin set fin_org_zenklas = :z", {{"z", contentOf(picture("bmp"))}});
        OnNextDialog<QMessageBox> told([](QMessageBox &box) {
            EXPECT_EQ(box.text(),
                      "Kita darbo vieta tuo tarpu pakeitė: Ženklas: buvo tuščia, dabar „paveikslėlis“.");
            pressButton(box, "Palikti savo");
        });
        save(dialog);
    });
    EXPECT_EQ(ravl().fieldResult("select fin_org_zenklas from bd_fin").toByteArray(),
              contentOf(folder.filePath("zenklas.png")));
}

TEST_P(Financing, ABrokenPictureAndAHugeOneAreRefusedInWords)
{
    const QString broken = folder.filePath("perkirstas.bmp");
    const QString huge = folder.filePath("didelis.png");
    QFile(picture("bmp")).copy(broken);
    ASSERT_TRUE(QFile::resize(broken, QFileInfo(broken).size() / 2));
    QFile file(huge);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(11 * 1024 * 1024));
    change(1, [&](TFinEdDlg &dialog) {
        const auto refused = [&dialog](const QString &name) {
            try {
                emblem(dialog)->loadFromFile(name);
            } catch (const Exception &error) {
                return error.message();
            }
            return QString();
        };
        EXPECT_EQ(refused(broken), "Failas „" + broken + "“ sugadintas: paveikslėlio parodyti negalima");
        EXPECT_EQ(refused(huge),
                  "Failas „" + huge + "“ per didelis: paveikslėlis gali užimti ne daugiau kaip 10 MB");
        EXPECT_FALSE(emblem(dialog)->hasPicture());
        leaveUnsaved(dialog);
    });
}

TEST_P(Financing, ASourceOfUsersRightsIsNotDeleted)
{
    ravl().ExecSQL("insert into bd_usr (usr_id, usr_name) values (1, 'ona')");
    ravl().ExecSQL("insert into bd_usrkdv (udv_usrid, udv_finid, udv_kdv) values (1, 1, 1)");
    EXPECT_EQ(erase(1, {QMessageBox::Ok}), QStringList("Finansavimo šaltinis \"Biudžetas\" yra naudojamas!"));
    ravl().ExecSQL("delete from bd_usrkdv");
    EXPECT_EQ(erase(1), QStringList("Ar tikrai norite ištrinti?"));
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(Financing, ARefusedSaveLeavesWhatIsHeldToBeMended)
{
    refuseTheName("Draudžiama");
    add([](TFinEdDlg &dialog) {
        type(edit(dialog, "fin_pavad"), "Draudžiama");
        type(edit(dialog, "fin_dir"), "02");
        EXPECT_TRUE(refusal(dialog).contains("sugadinta tyčia"));
        EXPECT_EQ(edit(dialog, "fin_pavad")->text(), "Draudžiama");
        EXPECT_FALSE(ravl().InTransaction());
        type(edit(dialog, "fin_pavad"), "Leidžiama");
        save(dialog);
    });
    EXPECT_EQ(rows(ravl(), "select fin_pavad, fin_dir from bd_fin order by fin_dir"),
              QStringList({"Biudžetas|01", "Leidžiama|02"}));
    EXPECT_EQ(shown(0), QStringList({"Biudžetas", "Leidžiama"}));
}

TEST_P(Financing, CancellingDropsWhatIsHeld)
{
    change(1, [](TFinEdDlg &dialog) {
        type(edit(dialog, "fin_pavad"), "Kitaip");
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(shown(0), QStringList("Biudžetas"));
    EXPECT_EQ(stored(), QStringList("1|Biudžetas|01|NULL|NULL|NULL|NULL|NULL"));
}
