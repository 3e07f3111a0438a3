#include "host/app/add_institution_dialog.h"
#include "host/common/help.h"
#include "tests/host/app/institutions.h"
#include "tests/host/books_settings.h"
#include "tests/support/engines.h"

#include <QLabel>

namespace {

class Institutions : public Workstation {
protected:
    // The dialog as the user has it before him; what he opens is kept in opened.
    TInstitutionsDlg &dialog()
    {
        if (!shown) {
            const auto open = [this](const TBooksSettings &books, QWidget *) { opened << placeOf(books); };
            shown = std::make_unique<TInstitutionsDlg>(institutionsFile(), open, nullptr);
            shown->show();
            shown->activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(shown.get()));
        }
        return *shown;
    }
    QStringList rows() { return shownRows(dialog()); }
    QString refusal()
    {
        NextBoxes told{QMessageBox::Ok};
        pressButton(dialog(), "&Atidaryti");
        EXPECT_TRUE(dialog().isVisible());
        return told.at(0).text;
    }

    std::unique_ptr<TInstitutionsDlg> shown;
    QStringList opened;
};

class AddedInstitution : public OnBothEngines {
protected:
    void SetUp() override
    {
        OnBothEngines::SetUp();
        mnFin_Db->ExecSQL("insert into bd_org (org_pavad) values ('Šilo mokykla')");
        books = settingsOf(finSettings(), ravlSettings(), folder());
    }
    bool embedded() const { return engine() == Engine::Sqlite; }
    void typeInto(TAddInstitutionDlg &dialog, const QString &folderOrWords) const
    {
        dialog.findChild<QRadioButton *>(embedded() ? "FolderRadio" : "ServerRadio")->setChecked(true);
        dialog.findChild<QLineEdit *>(embedded() ? "FolderEdit" : "ServerEdit")->setText(folderOrWords);
    }

    TBooksSettings books;
};
ON_BOTH_ENGINES(AddedInstitution);

} // namespace

TEST_F(Institutions, TheOneOpenedLastStandsFirstAndEnterOpensIt)
{
    const TKnownBooks school = books("mokykla", "Mokykla");
    know({books("darzelis", "Darželis"), books("gimnazija", "Gimnazija")});
    rememberBooks(institutionsFile(), school);
    EXPECT_EQ(rows(), QStringList({"*Mokykla", "Darželis", "Gimnazija"}));
    QTest::keyClick(dialog().focusWidget(), Qt::Key_Return);
    EXPECT_EQ(opened, QStringList{folder("mokykla")});
    EXPECT_EQ(dialog().opened().folder, folder("mokykla"));
    EXPECT_EQ(dialog().result(), QDialog::Accepted);
}

TEST_F(Institutions, TypingFiltersByNameAndPlaceAndTheArrowsChoose)
{
    know({books("a", "Žąsų mokykla"), books("b", "Ąžuolo gimnazija"), books("c", "Šilo mokykla")});
    QTest::keyClicks(dialog().focusWidget(), "mokykl");
    EXPECT_EQ(rows(), QStringList({"*Žąsų mokykla", "Šilo mokykla"}));
    QTest::keyClick(dialog().focusWidget(), Qt::Key_Down);
    EXPECT_EQ(rows(), QStringList({"Žąsų mokykla", "*Šilo mokykla"}));
    QTest::keyClicks(dialog().focusWidget(), " zas");
    EXPECT_EQ(rows(), QStringList{"*Žąsų mokykla"});

    auto *filter = dialog().findChild<QLineEdit *>("FilterEdit");
    filter->setText(QFileInfo(root.path()).fileName() + "/b");
    EXPECT_EQ(rows(), QStringList{"*Ąžuolo gimnazija"});
    filter->setText("nėra tokios");
    EXPECT_EQ(rows(), QStringList());
    EXPECT_FALSE(dialog().findChild<QPushButton *>("OpenBtn")->isEnabled());
    EXPECT_FALSE(dialog().findChild<QPushButton *>("ForgetBtn")->isEnabled());
    filter->clear();
    EXPECT_EQ(rows().size(), 3);
    QTest::keyClick(filter, Qt::Key_Return);
    EXPECT_EQ(opened.size(), 1);
}

TEST_F(Institutions, ForgettingAsksAndLeavesTheBooks)
{
    know({books("a", "Mokykla"), books("b", "Gimnazija")});
    {
        NextBoxes kept{QMessageBox::No};
        pressButton(dialog(), "Pamiršti");
        EXPECT_EQ(kept.at(0).kind, 18);
        EXPECT_TRUE(kept.at(0).text.startsWith("Ar pamiršti įstaigą „Mokykla“?\n" + folder("a")))
            << qPrintable(kept.at(0).text);
    }
    EXPECT_EQ(rows().size(), 2);
    NextBoxes forgotten{QMessageBox::Yes};
    pressButton(dialog(), "Pamiršti");
    EXPECT_EQ(rows(), QStringList{"*Gimnazija"});
    EXPECT_EQ(knownNames(), QStringList{"Gimnazija"});
    EXPECT_TRUE(embeddedBooksExist(folder("a")));
}

TEST_F(Institutions, ADamagedEntrySaysWhyAndOpensNothing)
{
    know({books("a", "Mokykla")});
    const QByteArray sound = contentOf(institutionsFile());
    writeFile(institutionsFile(), "{\"name\":\"Gimnazija\",\"folder\":\"/kny\n" + sound);
    EXPECT_EQ(rows(), QStringList({"*(sugadintas įrašas)", "Mokykla"}));
    EXPECT_TRUE(refusal().startsWith("Įrašas sugadintas."));
    EXPECT_TRUE(opened.isEmpty());
    NextBoxes forgotten{QMessageBox::Yes};
    pressButton(dialog(), "Pamiršti");
    EXPECT_EQ(contentOf(institutionsFile()), sound);
}

TEST_F(Institutions, WhereTheFolderIsGoneNothingIsOpenedAndNothingMade)
{
    know({{.name = "Mokykla", .books = TBooksSettings::embedded(folder("nera"))}});
    EXPECT_TRUE(refusal().contains("„" + folder("nera") + "“ įstaigos „Mokykla“ knygų nėra"));
    EXPECT_TRUE(opened.isEmpty());
    EXPECT_FALSE(QDir(folder("nera")).exists());
    EXPECT_EQ(knownNames(), QStringList{"Mokykla"});
}

TEST_F(Institutions, WhatDoesNotOpenLeavesTheDialog)
{
    know({books("a", "Mokykla")});
    TInstitutionsDlg failing(
        institutionsFile(),
        [](const TBooksSettings &, QWidget *) { throw EDatabaseError("Serveris neatsako."); }, nullptr);
    failing.show();
    NextBoxes told{QMessageBox::Ok};
    pressButton(failing, "&Atidaryti");
    EXPECT_EQ(told.at(0).text, "Serveris neatsako.");
    EXPECT_TRUE(failing.isVisible());
    EXPECT_EQ(shownRows(failing), QStringList{"*Mokykla"});
}

TEST_F(Institutions, AnAddedOneStandsFirstAndIsChosen)
{
    know({books("a", "Mokykla")});
    books("b", "Gimnazija");
    OnNextDialog<TAddInstitutionDlg> add([this](TAddInstitutionDlg &shownDialog) {
        shownDialog.findChild<QLineEdit *>("FolderEdit")->setText(folder("b") + '/');
        pressButton(shownDialog, "&Pridėti");
    });
    pressButton(dialog(), "Pridėti…");
    EXPECT_EQ(rows(), QStringList({"*Gimnazija", "Mokykla"}));
    EXPECT_EQ(knownNames(), QStringList({"Gimnazija", "Mokykla"}));
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(Institutions, AFolderWithoutBooksIsOpenedOnlyWhenTheyAreWantedThere)
{
    know({books("a", "Mokykla")});
    OnNextDialog<TAddInstitutionDlg> add([this](TAddInstitutionDlg &shownDialog) {
        shownDialog.findChild<QLineEdit *>("FolderEdit")->setText(folder("nauja"));
        NextBoxes asked{QMessageBox::No, QMessageBox::Yes};
        pressButton(shownDialog, "&Pridėti");
        EXPECT_TRUE(shownDialog.isVisible());
        EXPECT_EQ(asked.at(0).text,
                  QString("Aplanke „%1“ knygų nėra.\nAr jas ten sukurti?").arg(folder("nauja")));
        pressButton(shownDialog, "&Pridėti");
    });
    pressButton(dialog(), "Pridėti…");
    EXPECT_EQ(opened, QStringList{folder("nauja")});
    EXPECT_EQ(dialog().result(), QDialog::Accepted);
    EXPECT_EQ(knownNames(), QStringList{"Mokykla"});
}

TEST_F(Institutions, AFolderThatIsNotTypedWholeIsRefused)
{
    TAddInstitutionDlg dialogOfOne(nullptr);
    dialogOfOne.show();
    auto *edit = dialogOfOne.findChild<QLineEdit *>("FolderEdit");
    NextBoxes told{QMessageBox::Ok, QMessageBox::Ok};
    pressButton(dialogOfOne, "&Pridėti");
    edit->setText("knygos");
    pressButton(dialogOfOne, "&Pridėti");
    EXPECT_EQ(told.texts(), QStringList({"Neįvestas aplankas", "Įveskite visą kelią iki aplanko"}));
    EXPECT_EQ(edit->text(), "knygos");
}

TEST_F(Institutions, ServerWordsThatAreNoneAreRefusedAndStay)
{
    TAddInstitutionDlg dialogOfOne(nullptr);
    dialogOfOne.show();
    dialogOfOne.findChild<QRadioButton *>("ServerRadio")->setChecked(true);
    auto *edit = dialogOfOne.findChild<QLineEdit *>("ServerEdit");
    edit->setText("serveris be lygybės");
    {
        NextBoxes told{QMessageBox::Ok};
        pressButton(dialogOfOne, "&Pridėti");
        EXPECT_TRUE(told.at(0).text.contains("žodžiai")) << qPrintable(told.at(0).text);
    }
    edit->setText("host=/nera port=1 user=x");
    NextBoxes told{QMessageBox::Ok};
    pressButton(dialogOfOne, "&Pridėti");
    EXPECT_FALSE(told.at(0).text.isEmpty());
    EXPECT_TRUE(dialogOfOne.isVisible());
    EXPECT_EQ(edit->text(), "host=/nera port=1 user=x");
}

TEST_F(Institutions, ServerWordsWithoutAUserAreTakenAsTheyAreAndWithoutAPassword)
{
    TAddInstitutionDlg dialogOfOne(nullptr);
    dialogOfOne.show();
    dialogOfOne.findChild<QRadioButton *>("ServerRadio")->setChecked(true);
    dialogOfOne.findChild<QLineEdit *>("ServerEdit")->setText("host=/nera port=1");
    dialogOfOne.findChild<QLineEdit *>("PassEdit")->setText("slapta");
    {
        NextBoxes told{QMessageBox::Ok};
        pressButton(dialogOfOne, "&Pridėti");
        EXPECT_TRUE(told.at(0).text.contains("kiekvienas jungiasi savo vardu ir slaptažodžiu"));
    }
    dialogOfOne.findChild<QLineEdit *>("PassEdit")->clear();
    pressButton(dialogOfOne, "&Pridėti");
    EXPECT_EQ(dialogOfOne.result(), QDialog::Accepted);
    EXPECT_EQ(dialogOfOne.books().connection, "host=/nera port=1");
}

TEST_P(AddedInstitution, HasTheNameThatTheBooksHave)
{
    TAddInstitutionDlg dialog(nullptr);
    dialog.show();
    typeInto(dialog, embedded() ? books.folder : books.connection);
    dialog.findChild<QLineEdit *>("PassEdit")->setText("ne'klausia \\");
    pressButton(dialog, "&Pridėti");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.name(), "Šilo mokykla");
    EXPECT_FALSE(dialog.isNew());
    EXPECT_EQ(placeOf(dialog.books()), placeOf(books));
    EXPECT_EQ(dialog.books().connection.contains(R"(password='ne\'klausia \\')"), !embedded());
}
