#include "host/app/startup.h"

#include "database/demo/demo.h"
#include "host/app/new_books_dialog.h"
#include "host/app/setup/setup_dialog.h"
#include "host/common/waiting.h"
#include "host/data/main_datas.h"

#include <QApplication>
#include <QDir>

namespace {

// Embedded books belong to this workstation alone, so the program brings them up to its own revision.
void open(const TBooksSettings &settings)
{
    const TWaiting waiting;
    const TBooks books = settings.books();
    auto datas = std::make_unique<TMainDatas>(books.fin, books.ravl);
    try {
        datas->Open();
    } catch (const EOlderDatabase &) {
        if (!settings.isEmbedded())
            throw;
        upgradeBooks(books);
        datas->Open();
    }
    setMainDatas(std::move(datas));
}

// Books that were left half filled by an earlier start are no books to work in: they are filled under a name
// of their own and take their place at the end.
void createWholeBooks(const QString &folder, const std::function<void(TDatabase &, TDatabase &)> &fill)
{
    const QString growing = folder + ".kuriama";
    QDir(growing).removeRecursively();
    createEmbeddedBooks(growing);
    {
        const TBooks books = TBooksSettings::embedded(growing).books();
        TDatabase fin(books.fin);
        TDatabase ravl(books.ravl);
        fin.Open();
        ravl.Open();
        fill(fin, ravl);
    }
    if (QDir(folder).exists() && !QDir().rmdir(folder))
        throw Exception(QString("Aplankas %1 netuščias").arg(QDir::toNativeSeparators(folder)));
    if (!QDir().rename(growing, folder))
        throw Exception(QString("Nepavyko sukurti aplanko %1").arg(QDir::toNativeSeparators(folder)));
}

bool createFirstBooks(const QString &folder, QWidget *owner)
{
    TNewBooksDlg dialog(folder, owner);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    if (dialog.newInstitution())
        return TSetUpDlg(
                   {}, [&folder](const TSetUp &chosen) { createSetUpBooks(folder, chosen); }, owner)
                   .exec() == QDialog::Accepted;
    const TWaiting waiting;
    if (dialog.demonstration())
        createDemonstrationBooks(folder);
    else
        createEmptyBooks(folder, dialog.administrator(), dialog.password());
    return true;
}

} // namespace

bool openBooks(const TBooksSettings &settings, QWidget *owner)
{
    if (settings.isEmbedded() && !embeddedBooksExist(settings.folder) &&
        !createFirstBooks(settings.folder, owner))
        return false;
    open(settings);
    return true;
}

void openEmbeddedBooks(const QString &folder)
{
    open(TBooksSettings::embedded(folder));
}

void createDemonstrationBooks(const QString &folder)
{
    createWholeBooks(folder, [](TDatabase &fin, TDatabase &ravl) {
        fillDemoBooks(fin, ravl, 1, [](const QString &) {
            QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        });
    });
}

void createSetUpBooks(const QString &folder, const TSetUp &setUp)
{
    createWholeBooks(folder, [&setUp](TDatabase &fin, TDatabase &ravl) { setUpBooks(fin, ravl, setUp); });
}

void createEmptyBooks(const QString &folder, const QString &administrator, const QString &password)
{
    createEmbeddedBooks(folder);
    TDatabase budget(TBooksSettings::embedded(folder).books().ravl);
    budget.Open();
    budget.ExecSQL("insert into bd_usr (usr_id, usr_name, usr_vardas, usr_pavarde, usr_pasw, usr_perziurai, "
                   "usr_user_admin) values (1, :name, :name, :name, :pasw, 0, 1)",
                   {{"name", administrator}, {"pasw", password}});
}
