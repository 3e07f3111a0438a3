#include "host/app/startup.h"

#include "database/demo/demo.h"
#include "database/private_place.h"
#include "database/seals.h"
#include "host/app/new_books_dialog.h"
#include "host/app/setup/setup_dialog.h"
#include "host/common/waiting.h"
#include "host/data/main_datas.h"
#include "host/data/own_login.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>

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

// Whole books take the place of their folder, so nothing else may stand in it. What an earlier start left
// unfinished goes.
void requireEmpty(const QString &folder)
{
    const QDir dir(folder);
    for (const QString &left : dir.entryList({"velmora_*.db.new*", "velmora.lock"}, QDir::Files))
        QFile::remove(dir.filePath(left));
    if (dir.exists() && !dir.isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot))
        throw Exception(QString("Aplanke %1 jau yra kitų failų. Pasirinkite tuščią aplanką.")
                            .arg(QDir::toNativeSeparators(folder)));
}

// Books that were left half filled by an earlier start are no books to work in: they are filled under a name
// of their own and take their place at the end.
void createWholeBooks(const QString &wanted, const std::function<void(TDatabase &, TDatabase &)> &fill)
{
    const QString folder = QDir::cleanPath(wanted);
    requireEmpty(folder);
    const QString growing = folder + ".kuriama";
    QLockFile lock(growing + ".lock");
    if (!makePrivateFolder(QFileInfo(folder).absolutePath()) || !lock.tryLock(0))
        throw Exception(QString("Aplanke %1 knygas kuria kita programa, arba jame negalima rašyti.")
                            .arg(QDir::toNativeSeparators(folder)));
    const auto removeGrowing = qScopeGuard([&growing] { QDir(growing).removeRecursively(); });
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
    QDir().rmdir(folder);
    if (!QDir().rename(growing, folder))
        throw Exception(QString("Nepavyko sukurti aplanko %1").arg(QDir::toNativeSeparators(folder)));
}

bool createFirstBooks(const QString &folder, QWidget *owner)
{
    TNewBooksDlg dialog(folder, owner);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    if (dialog.existing())
        throw EOtherBooksWanted();
    if (dialog.newInstitution())
        requireEmpty(QDir::cleanPath(folder)); // told before the pages are filled in
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
    if (haveOwnLogins(settings))
        setMainDatas(nullptr);
    else
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
    appendSeal(budget, TSealEvent::Beginning);
}
