#include "host/app/add_institution_dialog.h"

#include "host/common/msgbox.h"
#include "host/common/waiting.h"
#include "host/data/known_books.h"
#include "host/data/own_login.h"
#include "toolkit/widgets/guard.h"

#include <QFileDialog>
#include <QPushButton>

namespace {

constexpr int helpOfInstitutions = 119;

} // namespace

TAddInstitutionDlg::TAddInstitutionDlg(QWidget *owner)
    : TDialog(owner),
      FolderRadio(new QRadioButton("Šio &kompiuterio aplanke", this)),
      ServerRadio(new QRadioButton("Duomenų bazės &serveryje", this))
{
    setObjectName("TAddInstitutionDlg");
    setHelpTopic(helpOfInstitutions);
    describe("Kur įstaigos knygos",
             {TFieldRow::custom({}, "FolderRadio", FolderRadio),
              TFieldRow::freeEdit("&Aplankas:", "FolderEdit")
                  .width(50)
                  .browse([this] { browse(); }, "Pasirinkti aplanką"),
              TFieldRow::custom({}, "ServerRadio", ServerRadio),
              TFieldRow::freeEdit("Prisijungimo &žodžiai:", "ServerEdit"),
              TFieldRow::freeEdit("S&laptažodis:", "PassEdit").password()},
             nullptr,
             {{"&Pridėti", TDialogButton::Save, true, {}, "AddBtn"},
              {"A&tšaukti", TDialogButton::Cancel, false, {}, {}},
              {"Pa&galba", TDialogButton::Help, false, {}, {}}});
    FolderEdit = control<QLineEdit>("FolderEdit");
    ServerEdit = control<QLineEdit>("ServerEdit");
    PassEdit = control<QLineEdit>("PassEdit");
    ServerEdit->setPlaceholderText("host=serveris user=vardas");
    saveButton()->setIcon({});
    FolderRadio->setChecked(true);
    connectGuarded(ServerRadio, &QRadioButton::toggled, this, [this] { showChoice(); });
    showChoice();
}

void TAddInstitutionDlg::showChoice()
{
    const bool server = ServerRadio->isChecked();
    FolderEdit->setEnabled(!server);
    form().browseButton("FolderEdit")->setEnabled(!server);
    ServerEdit->setEnabled(server);
    PassEdit->setEnabled(server);
    (server ? ServerEdit : FolderEdit)->setFocus();
}

void TAddInstitutionDlg::browse()
{
    const QString folder = QFileDialog::getExistingDirectory(this, "Knygų aplankas", FolderEdit->text());
    if (!folder.isEmpty())
        FolderEdit->setText(QDir::toNativeSeparators(folder));
}

TBooksSettings TAddInstitutionDlg::typedFolder()
{
    const QString folder = QDir::fromNativeSeparators(FolderEdit->text().trimmed());
    if (folder.isEmpty())
        refuse("FolderEdit", "Neįvestas aplankas");
    if (QDir::isRelativePath(folder))
        refuse("FolderEdit", "Įveskite visą kelią iki aplanko");
    return TBooksSettings::embedded(QDir::cleanPath(folder));
}

TBooksSettings TAddInstitutionDlg::typedServer()
{
    QString words = ServerEdit->text().trimmed();
    if (words.isEmpty())
        refuse("ServerEdit", "Neįvesti prisijungimo prie serverio žodžiai");
    if (!PassEdit->text().isEmpty())
        words += " password=" + quotedWord(PassEdit->text());
    TBooksSettings typed = TBooksSettings::server(words);
    try {
        typed.books();
    } catch (const EConvertError &error) {
        refuse("ServerEdit", error.message());
    }
    if (haveOwnLogins(typed) && !PassEdit->text().isEmpty())
        refuse("PassEdit", "Be user= kiekvienas jungiasi savo vardu ir slaptažodžiu: čia jo nerašykite");
    return typed;
}

bool TAddInstitutionDlg::booksAreToBeMade()
{
    if (!place.isEmbedded() || embeddedBooksExist(place.folder))
        return false;
    const QString question = QString("Aplanke „%1“ knygų nėra.\nAr jas ten sukurti?").arg(placeOf(place));
    if (StdMsgBox(mkQuestion, question) != mrYes)
        throw EAbort();
    return true;
}

void TAddInstitutionDlg::Validate()
{
    place = FolderRadio->isChecked() ? typedFolder() : typedServer();
    fresh = booksAreToBeMade();
    if (fresh || haveOwnLogins(place))
        return;
    const TWaiting waiting;
    institution = nameInBooks(place);
}
