#pragma once

#include "host/controls/browse_frm.h"

// An ordinary catalogue as a screen would write it: everything is description.
class TBankaiFrm : public TBrowseFrm {
public:
    explicit TBankaiFrm(QWidget *owner);
};
extern TBankaiFrm *BankaiFrm;

// What the screen's editor does instead of showing a dialog; returns whether the user saved.
extern std::function<bool(const QString &caption, bool isNew, Variant &key)> bankEditor;
