#include "src/users/Usersch.h"

#include "src/users/Confpas.h"
#include "toolkit/text/format.h"
#include "toolkit/widgets/edit_options.h"
#include "toolkit/widgets/guard.h"

#include <QApplication>
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
    return TEditUserDlg(QApplication::activeWindow(), edit ? std::nullopt : std::optional(id)).run();
}

TEditUserDlg::TEditUserDlg(QWidget *owner, std::optional<int> newId)
    : TDialog(owner),
      id(newId.value_or(Usr_Id)),
      exists(!newId),
      qryUsr(MainDatas()->mnRavl(), "select *\nfrom bd_usr\nwhere usr_id=:id", this),
      qryRights(MainDatas()->mnRavl(), "select *\nfrom bd_usrkdv\nwhere udv_usrid=:id", this)
{
    qryUsr.RequestLive = true;
    qryUsr.setParam("id", id);
    qryRights.RequestLive = true;
    qryRights.setParam("id", id);
    for (const auto &[column, label] :
         {std::pair("usr_name", "Prisijungimo vardas"), std::pair("usr_vardas", "Vartotojo vardas"),
          std::pair("usr_pavarde", "Vartotojo pavardė"), std::pair("usr_pasw", "Prisijungimo slaptažodis")})
        qryUsr.describe(column, [label = label](TField &field) { field.DisplayLabel = label; });
    buildForm();
    listen();
    setHelpTopic(2);
    EditUserDlg = this;
}

TEditUserDlg::~TEditUserDlg()
{
    EditUserDlg = nullptr;
}

// --- loading

void TEditUserDlg::Load()
{
    readSources();
    readWorkPlaces();
    workingMask = 0;
    if (Usr_Id != 0)
        readUser();
    passwordChanged = false;
    mayChange = CurrentUser().userAdmin && !CurrentUser().viewOnly;
    if (!mayChange)
        DisableFormControls(this);
    recheck();
    LogNameEdit->setFocus();
}

void TEditUserDlg::readSources()
{
    TQuery qryFin(MainDatas()->mnRavl(), "SELECT\n  fin_pavad,  \n  fin_id\nFROM bd_fin");
    ReadList(&qryFin, FinList->model());
    FinList->setCurrentRow(0);
}

// Only work places that the administrator himself may see can be given.
void TEditUserDlg::readWorkPlaces()
{
    TQuery qryKDV(MainDatas()->mnRavl(), "SELECT\n  kdv_pav,\n  kdv_id\nFROM bd_kdv\nWHERE\n"
                                         "  (POWER(2, (KDV_ID-1)) & :ORG_KDV) <> 0");
    qryKDV.setParam("ORG_KDV", int(CurrentUser().workPlaces));
    ReadList(&qryKDV, KDVCheckList->model());
    const QSignalBlocker silently(KDVCheckList);
    for (int i = 0; i < KDVCheckList->count(); ++i)
        KDVCheckList->item(i)->setCheckState(Qt::Unchecked);
}

// A user without rights gives no row here, and loads with empty fields.
void TEditUserDlg::readUser()
{
    TQuery qryUser(MainDatas()->mnRavl(),
                   "SELECT *\nFROM bd_usr, bd_usrkdv\nWHERE\n  usr_id=:id AND\n  udv_usrid=usr_id");
    qryUser.setParam("id", Usr_Id);
    qryUser.Open();
    for (qryUser.First(); !qryUser.Eof(); qryUser.Next()) {
        LogNameEdit->setText(qryUser.FieldByName("usr_name")->AsString());
        NameEdit->setText(qryUser.FieldByName("usr_vardas")->AsString());
        PavardeEdit->setText(qryUser.FieldByName("usr_pavarde")->AsString());
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

void TEditUserDlg::workPlaceTicked(const QListWidgetItem *item)
{
    workingMask ^= workPlaceBit(GetListObject(KDVCheckList->model(), KDVCheckList->row(item)));
}

void TEditUserDlg::addSelectedSources()
{
    for (int i = 0; i < FinList->count(); ++i)
        if (FinList->item(i)->isSelected())
            RightsTree->addSource(FinList->item(i)->text(), workingMask);
    recheck();
}

void TEditUserDlg::takeDrop(const QString &origin, QTreeWidgetItem *node)
{
    if (!mayChange)
        return;
    if (origin == FinList->objectName()) {
        addSelectedSources();
    } else if (node) {
        RightsTree->addWorkPlaces(node->parent() ? node->parent() : node, workingMask);
        recheck();
    }
}

// Insert in a list gives what is chosen there, Delete in the tree takes back. Unlike a drop, Insert leaves a
// selected work place as it is and does not go up to its source.
bool TEditUserDlg::rightsKey(QObject *watched, int key)
{
    if (!mayChange)
        return false;
    if (key == Qt::Key_Insert && watched == FinList && !FinList->selectedItems().isEmpty()) {
        addSelectedSources();
    } else if (key == Qt::Key_Insert && watched == KDVCheckList) {
        RightsTree->addWorkPlaces(RightsTree->selectedNode(), workingMask);
        recheck();
    } else if (key == Qt::Key_Delete && watched == RightsTree) {
        RightsTree->removeSelected();
        if (RightsTree->topLevelItemCount() > 0)
            recheck();
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
    return consumed || TDialog::eventFilter(watched, event);
}

void TEditUserDlg::recheck()
{
    const auto filled = [](const QLineEdit *edit) { return !edit->text().trimmed().isEmpty(); };
    OkBtn->setEnabled(mayChange && RightsTree->isComplete() && filled(LogNameEdit) && filled(NameEdit) &&
                      filled(PavardeEdit));
}

// --- saving

void TEditUserDlg::Validate()
{
    requireAdministrator();
    requireStorable();
    confirmPassword();
    requireSources();
}

void TEditUserDlg::requireAdministrator()
{
    const QString others =
        Format("select count() from bd_usr where usr_user_admin = 1 and usr_id <> %d", {exists ? id : 0});
    if (GetFieldResult(MainDatas()->mnRavl(), others).toInt() >= 1 || cb_userAdmin->isChecked())
        return;
    StdMsgBox(mkWarning, "Nors vienas vartotojas turi turėti teises administruoti vartotojus!");
    throw EAbort();
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
        if (GetFieldResult(MainDatas()->mnRavl(), sql).toInt() == 0)
            throw Exception(
                QString("Finansavimo šaltinis „%1“ jau ištrintas: pašalinkite jį iš vartotojo teisių.")
                    .arg(right.source));
    }
}

// Each post is committed by the database as it runs: a failure is told together with what is written already.
void TEditUserDlg::Save()
{
    userWritten = false;
    rightsWritten = 0;
    try {
        writeUser();
        writeRights();
    } catch (const Exception &error) {
        if (!userWritten)
            throw;
        throw Exception(QString("%1\n\nVartotojo duomenys įrašyti, bet teisių įrašyta tik %2 iš %3. "
                                "Išsaugokite dar kartą.")
                            .arg(error.message())
                            .arg(rightsWritten)
                            .arg(RightsTree->rights().size()));
    }
}

// What the database would not take is told before a password is asked for and anything is written.
void TEditUserDlg::requireStorable()
{
    const auto close = qScopeGuard([this] { abandon(qryUsr); });
    fillUser();
}

void TEditUserDlg::fillUser()
{
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
    qryUsr.FieldByName("usr_pasw")->setAsString(PassEdit->text());
    qryUsr.FieldByName("usr_perziurai")->setAsInteger(cb_tikPerz->isChecked() ? 1 : 0);
    qryUsr.FieldByName("usr_user_admin")->setAsInteger(cb_userAdmin->isChecked() ? 1 : 0);
}

void TEditUserDlg::writeUser()
{
    const auto close = qScopeGuard([this] { abandon(qryUsr); });
    fillUser();
    qryUsr.Post();
    userWritten = true;
}

void TEditUserDlg::writeRights()
{
    const auto close = qScopeGuard([this] { abandon(qryRights); });
    if (exists)
        MainDatas()->mnRavl()->ExecSQL("delete from bd_usrkdv where udv_usrid=:id", {{"id", id}});
    exists = true;
    qryRights.Open();
    for (const TRight &right : RightsTree->rights()) {
        qryRights.Append();
        qryRights.FieldByName("udv_usrid")->setAsInteger(id);
        qryRights.FieldByName("udv_finid")->setAsInteger(sourceId(right.source));
        qryRights.FieldByName("udv_kdv")->setAsInteger(right.workPlaces);
        qryRights.Post();
        ++rightsWritten;
    }
}

} // namespace Usersch
