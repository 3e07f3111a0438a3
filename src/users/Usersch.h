#pragma once

#include "src/frame/unit.h"
#include "src/users/rights_tree.h"

#include <optional>

class QCheckBox;
class QLineEdit;
class QPushButton;

// The editor of one user and his rights.
namespace Usersch {

// The user being changed; 0 while one is added.
extern int Usr_Id;

// Opens the editor modally: edit false adds a user under the given id, true changes the user of that id. True
// when the user's data were saved; also when his rights were not, or in part only, and the editor was left
// then: a message says so.
bool Add_ChUser(const bool edit, int id);

class TEditUserDlg : public TRecordDialog {
    Q_OBJECT
public:
    TEditUserDlg(bool edit, int userId);

    // What a save that failed among the rights has written, in words; empty when nothing is half written.
    QString storedByHalf() const;

    QLineEdit *NameEdit, *PavardeEdit, *LogNameEdit, *PassEdit;
    QCheckBox *cb_tikPerz, *cb_userAdmin;
    TRightsTree *RightsTree;
    TRightsList *FinList, *KDVCheckList;
    QPushButton *OkBtn;

protected:
    void Load() override;
    void Validate() override;
    void Save() override;
    void saveInTransaction(const std::function<void()> &step) override;
    bool mayChange() const override;
    bool CanSave() const override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Building.
    void buildForm();
    static QList<TFieldRow> userRows();
    static void nameColumns(TQuery &user);
    QWidget *rightsGroup();
    void addKeys();
    void listen();

    // Loading.
    void readSources();
    void readWorkPlaces();
    void readUser();

    // Giving rights.
    TWorkPlaceMask workingMask() const; // the work places ticked
    void takeDrop(const QString &origin, QTreeWidgetItem *node);
    void addSelectedSources();
    bool rightsKey(QObject *watched, int key);

    // Saving.
    bool personsHaveLogins() const;
    void requireAdministrator();
    void requireOwnLogin();
    void confirmPassword();
    void requireStorable();
    void requireSources();
    void fillUser();
    void lockUsers();
    void writeUser();
    void writeRights();
    int sourceId(const QString &name) const;

    const int id;
    bool exists; // the user's row is there
    bool passwordChanged = false;
    bool isHalfWritten = false;
    std::optional<size_t> rightsWritten; // none while the old rights stand
    TQuery qryRights;
};

extern TUnit unit;
extern TEditUserDlg *EditUserDlg;

} // namespace Usersch
