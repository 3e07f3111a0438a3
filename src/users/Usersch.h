#pragma once

#include "src/frame/host_services.h"
#include "src/frame/unit.h"
#include "src/users/rights_tree.h"
#include "toolkit/widgets/dialog.h"

#include <optional>

class QCheckBox;
class QLineEdit;
class QPushButton;

// The editor of one user and his rights.
namespace Usersch {

extern TUnit unit;

// The user being changed; 0 while one is added.
extern int Usr_Id;

// Opens the editor modally: edit false adds a user under the given id, true changes the user of that id. True
// when the user's data were saved.
bool Add_ChUser(const bool edit, int id);

class TEditUserDlg : public TDialog {
    Q_OBJECT
public:
    // newId: the id of the user to add; without one the user Usr_Id is changed.
    TEditUserDlg(QWidget *owner, std::optional<int> newId);
    ~TEditUserDlg() override;

    QLineEdit *NameEdit, *PavardeEdit, *LogNameEdit, *PassEdit;
    QCheckBox *cb_tikPerz, *cb_userAdmin;
    TRightsTree *RightsTree;
    TRightsList *FinList, *KDVCheckList;
    QPushButton *OkBtn;

protected:
    void Load() override;
    void Validate() override;
    void Save() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Building.
    void buildForm();
    QWidget *userGroup();
    QWidget *rightsGroup();
    void addKeys();
    void listen();

    // Loading.
    void readSources();
    void readWorkPlaces();
    void readUser();

    // Giving rights.
    void workPlaceTicked(const QListWidgetItem *item);
    void takeDrop(const QString &origin, QTreeWidgetItem *node);
    void addSelectedSources();
    bool rightsKey(QObject *watched, int key);
    void recheck();

    // Saving.
    void requireAdministrator();
    void confirmPassword();
    void requireStorable();
    void requireSources();
    void fillUser();
    void writeUser();
    void writeRights();
    int sourceId(const QString &name) const;

    const int id;
    bool exists; // the user's row is there
    bool mayChange = true;
    bool passwordChanged = false;
    bool userWritten = false;
    size_t rightsWritten = 0;
    TWorkPlaceMask workingMask = 0; // the work places ticked
    TQuery qryUsr;
    TQuery qryRights;
};

extern TEditUserDlg *EditUserDlg;

} // namespace Usersch
