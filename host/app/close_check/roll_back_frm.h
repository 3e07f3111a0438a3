#pragma once

#include "host/app/close_check/sheet_frm.h"
#include "toolkit/data/database.h"
#include "toolkit/text/datetime.h"

#include <optional>

// What taking the last close back would delete from one table, or one kind of amounts of it.
struct TRolledBack {
    QString what;
    qlonglong rows = 0;
    std::optional<qint64> debit, credit; // in ten-thousandths; none where the rows have no amounts

    bool operator==(const TRolledBack &) const = default;
};

struct TRollBack {
    TDateTime month;  // the last one of the books
    TDateTime before; // the one that is current again afterwards
    std::vector<TRolledBack> deleted;
};

// Nothing when only the start of work is left, which is not taken back. Raises EDatabaseError.
std::optional<TRollBack> rollBackOf(TDatabase &fin);

// "Kas bus ištrinta atsukus periodą": the same as a window.
class TRollBackFrm : public TSheetFrm {
    Q_OBJECT
public:
    explicit TRollBackFrm(QWidget *owner);

protected:
    void Read() override;
};
