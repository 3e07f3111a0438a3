#include "src/users/Usersch.h"

#include "src/users/Confpas.h"
#include "toolkit/data/statement.h"
#include "toolkit/text/format.h"
#include "toolkit/widgets/guard.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>

namespace Usersch {

TUnit unit("UsersCh");
TEditUserDlg *EditUserDlg = nullptr;
int Usr_Id = 0;

namespace {

// Closes the set; a row that is still being edited is not written.
void abandon(TQuery &set)
{
    if (set.editing())
        set.Cancel();
    set.Close();
}

} // namespace

bool Add_ChUser(const bool edit, int id)
{
    Usr_Id = edit ? id : 0;
    TEditUserDlg dialog(edit, id);
    if (dialog.run())
        return true;
    const QString stored = dialog.storedByHalf();
    if (!stored.isEmpty())
        StdMsgBox(mkWarning, stored);
    return !stored.isEmpty();
}

// The row is opened for the moment of a save only: each post stands by itself, and the last save wins.
TEditUserDlg::TEditUserDlg(bool edit, int userId)
    : TRecordDialog({.name = "TEditUserDlg",
                     .newCaption = "Vartotojo informacija",
                     .help = 2,
                     .session = TSession::Budget,
                     .table = "bd_usr",
                     .keyColumn = "usr_id",
                     .sql = "select *\nfrom bd_usr\nwhere usr_id=:id",
                     .rows = userRows(),
                     .buttons = {{"Iš&saugoti", TDialogButton::Save, true, {}, "OkBtn"},
                                 {"&Atšaukti", TDialogButton::Cancel, false, {}, {}}},
                     .save = TSaveRule::WhenFilled},
                    TRecordStart::row(userId)),
      id(userId),
      exists(edit),
      qryRights(Database(), "select *\nfrom bd_usrkdv\nwhere udv_usrid=:id", this)
{
    qryRights.RequestLive = true;
    qryRights.setParam("id", id);
    buildForm();
    listen();
    keepIn(EditUserDlg);
}

// --- loading

void TEditUserDlg::Load()
{
    nameColumns(row());
    readSources();
    readWorkPlaces();
    if (exists)
        readUser();
    passwordChanged = false;
    if (!mayChange())
        DisableFormControls(this);
    judgeSave();
    LogNameEdit->setFocus();
}

// One who may administer users and otherwise only look is let in here: he may be the only one who can take
// that back.
bool TEditUserDlg::mayChange() const
{
    return CurrentUser().userAdmin;
}

bool TEditUserDlg::CanSave() const
{
    return TRecordDialog::CanSave() && RightsTree->isComplete();
}

void TEditUserDlg::readSources()
{
    TQuery qryFin(Database(), "SELECT\n  fin_pavad,  \n  fin_id\nFROM bd_fin");
    ReadList(&qryFin, FinList->model());
    FinList->setCurrentRow(0);
}

// Only work places that the administrator himself may see can be given.
void TEditUserDlg::readWorkPlaces()
{
    TQuery qryKDV(Database(), "SELECT\n  kdv_pav,\n  kdv_id\nFROM bd_kdv\nWHERE\n"
                              "  (POWER(2, (KDV_ID-1)) & :ORG_KDV) <> 0");
    qryKDV.setParam("ORG_KDV", int(CurrentUser().workPlaces));
    ReadList(&qryKDV, KDVCheckList->model());
    for (int i = 0; i < KDVCheckList->count(); ++i)
        KDVCheckList->item(i)->setCheckState(Qt::Unchecked);
}

// A user without rights gives no row here, and loads with empty fields.
void TEditUserDlg::readUser()
{
    const bool withPassword = mayChange() || !personsHaveLogins();
    TQuery qryUser(Database(),
                   QString("SELECT %1\nFROM bd_usr, bd_usrkdv\nWHERE\n  usr_id=:id AND\n  udv_usrid=usr_id")
                       .arg(withPassword ? "*"
                                         : "usr_name, usr_vardas, usr_pavarde, usr_perziurai, "
                                           "usr_user_admin, udv_finid, udv_kdv"));
    qryUser.setParam("id", Usr_Id);
    qryUser.Open();
    for (qryUser.First(); !qryUser.Eof(); qryUser.Next()) {
        LogNameEdit->setText(qryUser.FieldByName("usr_name")->AsString());
        NameEdit->setText(qryUser.FieldByName("usr_vardas")->AsString());
        PavardeEdit->setText(qryUser.FieldByName("usr_pavarde")->AsString());
        if (withPassword)
            PassEdit->setText(qryUser.FieldByName("usr_pasw")->AsString());
        cb_tikPerz->setChecked(qryUser.FieldByName("usr_perziurai")->AsInteger() == 1);
        cb_userAdmin->setChecked(qryUser.FieldByName("usr_user_admin")->AsInteger() == 1);
        const int source = IndexOfObject(FinList->model(), qryUser.FieldByName("udv_finid")->AsInteger());
        if (source >= 0)
            RightsTree->addSource(FinList->item(source)->text(),
                                  TWorkPlaceMask(qryUser.FieldByName("udv_kdv")->AsInteger() & 0xFFFF));
    }
}

// --- giving rights

TWorkPlaceMask TEditUserDlg::workingMask() const
{
    TWorkPlaceMask mask = 0;
    for (int i = 0; i < KDVCheckList->count(); ++i)
        if (KDVCheckList->item(i)->checkState() == Qt::Checked)
            mask |= workPlaceBit(GetListObject(KDVCheckList->model(), i));
    return mask;
}

void TEditUserDlg::addSelectedSources()
{
    for (int i = 0; i < FinList->count(); ++i)
        if (FinList->item(i)->isSelected())
            RightsTree->addSource(FinList->item(i)->text(), workingMask());
    judgeSave();
}

void TEditUserDlg::takeDrop(const QString &origin, QTreeWidgetItem *node)
{
    if (!mayChange())
        return;
    if (origin == FinList->objectName()) {
        addSelectedSources();
    } else if (node) {
        RightsTree->addWorkPlaces(node->parent() ? node->parent() : node, workingMask());
        judgeSave();
    }
}

// Insert in a list gives what is chosen there, Delete in the tree takes back. Unlike a drop, Insert leaves a
// selected work place as it is and does not go up to its source.
bool TEditUserDlg::rightsKey(QObject *watched, int key)
{
    if (!mayChange())
        return false;
    if (key == Qt::Key_Insert && watched == FinList && !FinList->selectedItems().isEmpty()) {
        addSelectedSources();
    } else if (key == Qt::Key_Insert && watched == KDVCheckList) {
        RightsTree->addWorkPlaces(RightsTree->selectedNode(), workingMask());
        judgeSave();
    } else if (key == Qt::Key_Delete && watched == RightsTree) {
        RightsTree->removeSelected();
        if (RightsTree->topLevelItemCount() > 0)
            judgeSave();
    } else {
        return false;
    }
    return true;
}

bool TEditUserDlg::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Shortcut && watched == RightsTree->parentWidget()) {
        RightsTree->setFocus(Qt::ShortcutFocusReason);
        return true;
    }
    bool consumed = false;
    if (event->type() == QEvent::KeyPress)
        runGuarded(this, [&] { consumed = rightsKey(watched, static_cast<QKeyEvent *>(event)->key()); });
    return consumed || TRecordDialog::eventFilter(watched, event);
}

// --- saving

void TEditUserDlg::Validate()
{
    requireAdministrator();
    requireOwnLogin();
    requireStorable();
    confirmPassword();
    requireSources();
}

void TEditUserDlg::requireAdministrator()
{
    const QString others =
        Format("select count() from bd_usr where usr_user_admin = 1 and usr_id <> %d", {exists ? id : 0});
    if (GetFieldResult(Database(), others).toInt() >= 1 || cb_userAdmin->isChecked())
        return;
    StdMsgBox(mkWarning, "Nors vienas vartotojas turi turėti teises administruoti vartotojus!");
    throw EAbort();
}

// Names are compared as the login compares them.
void TEditUserDlg::requireOwnLogin()
{
    const QString login = LogNameEdit->text().trimmed();
    TQuery others(Database(), "select usr_name from bd_usr where usr_id <> :id");
    others.setParam("id", id);
    others.Open();
    for (others.First(); !others.Eof(); others.Next()) {
        const QString name = others.FieldByName("usr_name")->AsString().trimmed();
        if (name.compare(login, Qt::CaseInsensitive) == 0)
            refuse("LogNameEdit",
                   QString("Prisijungimo vardas „%1“ jau naudojamas: parinkite kitą.").arg(name));
    }
}

void TEditUserDlg::confirmPassword()
{
    if (passwordChanged && !Confpas::ShowPass(AnsiString(PassEdit->text())))
        throw EAbort();
}

int TEditUserDlg::sourceId(const QString &name) const
{
    const QList<QListWidgetItem *> found =
        FinList->findItems(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
    return found.isEmpty() ? 0 : GetListObject(FinList->model(), FinList->row(found.first()));
}

// A source deleted meanwhile would stop the writing half way.
void TEditUserDlg::requireSources()
{
    for (const TRight &right : RightsTree->rights()) {
        const QString sql =
            QString("select count(*) from bd_fin where fin_id = %1").arg(sourceId(right.source));
        if (GetFieldResult(Database(), sql).toInt() == 0)
            throw Exception(
                QString("Finansavimo šaltinis „%1“ jau ištrintas: pašalinkite jį iš vartotojo teisių.")
                    .arg(right.source));
    }
}

// Each post is committed by the database as it runs. Where a login of the server goes with the row, all of it
// comes about or nothing.
void TEditUserDlg::saveInTransaction(const std::function<void()> &step)
{
    if (!personsHaveLogins()) {
        step();
        return;
    }
    const bool wasThere = exists;
    try {
        TTransaction transaction(Database());
        step();
        transaction.commit();
    } catch (...) {
        exists = wasThere;
        isHalfWritten = false;
        rightsWritten.reset();
        throw;
    }
}

bool TEditUserDlg::personsHaveLogins() const
{
    return Database()->isRoutine("tr_usr_prisijungimas");
}

// A failure is told together with what is written already.
void TEditUserDlg::Save()
{
    writeUser();
    try {
        writeRights();
    } catch (const Exception &error) {
        if (Database()->InTransaction())
            throw;
        const auto *refused = dynamic_cast<const EDatabaseError *>(&error);
        throw EDatabaseError(QString("%1\n\n%2 Išsaugokite dar kartą.").arg(error.message(), storedByHalf()),
                             refused ? refused->serverText : QString(),
                             refused ? refused->statement : QString());
    }
    isHalfWritten = false;
}

QString TEditUserDlg::storedByHalf() const
{
    if (!isHalfWritten)
        return {};
    if (!rightsWritten)
        return "Vartotojo duomenys įrašyti, bet jo teisės liko senos.";
    return QString("Vartotojo duomenys įrašyti, bet teisių įrašyta tik %1 iš %2.")
        .arg(*rightsWritten)
        .arg(RightsTree->rights().size());
}

// What the database would not take is told before a password is asked for and anything is written.
void TEditUserDlg::requireStorable()
{
    const auto close = qScopeGuard([this] { abandon(row()); });
    fillUser();
}

void TEditUserDlg::fillUser()
{
    TQuery &qryUsr = row();
    qryUsr.Open();
    if (exists && qryUsr.IsEmpty())
        throw Exception("Vartotojo jau nėra: jį ištrynė kitas administratorius.");
    if (!exists && !qryUsr.IsEmpty())
        throw Exception(QString("Numeriu %1 kitas administratorius ką tik įvedė kitą vartotoją. Uždarykite "
                                "šį langą ir kurkite vartotoją iš naujo.")
                            .arg(id));
    if (exists)
        qryUsr.Edit();
    else
        qryUsr.Append();
    qryUsr.FieldByName("usr_id")->setAsInteger(id);
    qryUsr.FieldByName("usr_name")->setAsString(LogNameEdit->text());
    qryUsr.FieldByName("usr_vardas")->setAsString(NameEdit->text());
    qryUsr.FieldByName("usr_pavarde")->setAsString(PavardeEdit->text());
    if (passwordChanged || !exists)
        qryUsr.FieldByName("usr_pasw")->setAsString(PassEdit->text());
    qryUsr.FieldByName("usr_perziurai")->setAsInteger(cb_tikPerz->isChecked() ? 1 : 0);
    qryUsr.FieldByName("usr_user_admin")->setAsInteger(cb_userAdmin->isChecked() ? 1 : 0);
}

// Another administrator who saves at the same moment waits, and then sees this user. The file of an embedded
// database has one writer at a time: the open transaction is the lock.
void TEditUserDlg::lockUsers()
{
    if (Database()->engine() == Engine::PostgreSql)
        Database()->prepareNative({SqlKind::Call, "lock table bd_usr in share row exclusive mode"})->exec();
}

void TEditUserDlg::writeUser()
{
    const auto close = qScopeGuard([this] { abandon(row()); });
    TTransaction transaction(Database());
    lockUsers();
    requireOwnLogin();
    fillUser();
    row().Post();
    transaction.commit();
    if (!exists)
        rightsWritten = 0;
    exists = isHalfWritten = true;
}

void TEditUserDlg::writeRights()
{
    const auto close = qScopeGuard([this] { abandon(qryRights); });
    Database()->ExecSQL("delete from bd_usrkdv where udv_usrid=:id", {{"id", id}});
    rightsWritten = 0;
    qryRights.Open();
    for (const TRight &right : RightsTree->rights()) {
        qryRights.Append();
        qryRights.FieldByName("udv_usrid")->setAsInteger(id);
        qryRights.FieldByName("udv_finid")->setAsInteger(sourceId(right.source));
        qryRights.FieldByName("udv_kdv")->setAsInteger(right.workPlaces);
        qryRights.Post();
        ++*rightsWritten;
    }
}

} // namespace Usersch
