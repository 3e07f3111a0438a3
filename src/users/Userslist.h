#pragma once

#include "src/frame/unit.h"

// The people who may log in.
namespace Userslist {

class TUsersFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TUsersFrm(QWidget *owner);

    void CheckToolButtons() override;

protected:
    void NewRecord() override;
    void EditRecord() override; // the list is not read again afterwards
    void DeleteRow(const Variant &key) override;
};

extern TUnit unit;
extern TUsersFrm *UsersFrm;

} // namespace Userslist
