#pragma once

#include "src/frame/unit.h"

// One correction of an estimate.
namespace Samkor {

// Opens the correction with the id of the yearly estimate samId; a new one for an id of 0 or less. True when
// the user saved; id is then that of the correction, and otherwise stays as it was.
bool Koreguoti(double &id, const double samId);

class TSamKorDlg : public TRecordDialog {
    Q_OBJECT
public:
    TSamKorDlg(const TRecordStart &start, double samId);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void Loaded() override;
    void Validate() override;

private:
    void setRules(TQuery &correction);
    void checkQuarter(int quarter, double proposed) const;

    const double estimate;
};

extern TUnit unit;
extern TSamKorDlg *SamKorDlg;

} // namespace Samkor
