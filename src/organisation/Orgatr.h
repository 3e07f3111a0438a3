#pragma once

#include "src/frame/unit.h"

class QLabel;

// The institution's own record: the one row of bd_org.
namespace Orgatr {

class TOrgFrm : public TDocumentFrm {
    Q_OBJECT
public:
    explicit TOrgFrm(QWidget *owner);

    void RefreshData(); // reads the row anew
    void mnDelClick();  // takes the emblem away

    QAction *acEdit, *acSave, *acCancel, *mnOpen, *mnDel;

protected:
    void FormCreate() override;
    bool FormClose() override;

private:
    void buildActions();
    QWidget *buildBody();
    QWidget *buildMunicipality();
    QWidget *buildEmblem();
    QWidget *buttonOf(QAction *action);
    void orderByTab();
    void describeColumns();
    void requireMunicipality(TField &field, const Variant &code);
    void tbOrgBeforePost() const;

    void edit();
    void save();
    bool write();
    void cancel();
    bool mayLeave();
    void showState();
    void showPicture();

    TTable tbOrg;
    TQuery qrySav;
    QLabel *missing;
    TFieldForm *form = nullptr;
    TDBLookupComboBox *municipality;
    TDBEdit *codeEdit = nullptr; // of the municipality
    TDBImage *emblem;
};

extern TUnit unit;
extern TOrgFrm *OrgFrm;

} // namespace Orgatr
