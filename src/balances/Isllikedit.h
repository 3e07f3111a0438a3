#pragma once

#include "src/frame/unit.h"

// The opening balance of the expenses of one node.
namespace Isllikedit {

// Adds the balance of the current node of the open screen (edit false), or changes it. True when the user
// saved; false without showing anything when there is no open screen, or no row to be changed.
bool EditIslLik(bool edit);

class TIslLikDlg : public TRecordDialog {
    Q_OBJECT
public:
    explicit TIslLikDlg(const TRecordStart &start);

protected:
    void Loaded() override;
    void Validate() override;

private:
    struct TKind; // of expenses, with its two columns
    static const std::array<TKind, 3> &kinds();
    static TFieldRow groupOf(const TKind &kind);
    bool onDebit(const TKind &kind) const;
    qint64 settleSides(); // the other sides are nothing; the sum of the chosen ones in ten-thousandths
};

extern TUnit unit;
extern TIslLikDlg *IslLikDlg;

} // namespace Isllikedit
