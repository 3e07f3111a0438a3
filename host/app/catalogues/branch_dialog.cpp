#include "host/app/catalogues/branch_dialog.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

TBranchDlg::TBranchDlg(TRecordDescription described, const TRecordStart &start, const QString &column,
                       double parent, const QVariantMap &ofNew)
    : TJudgedDialog(std::move(described), start),
      parentColumn(column),
      above(parent),
      given(ofNew)
{
}

void TBranchDlg::Loaded()
{
    TJudgedDialog::Loaded();
    if (!isNew())
        return;
    for (const auto &[column, value] : given.asKeyValueRange())
        field(column)->setValue(value);
    if (above > 0)
        field(parentColumn)->setAsFloat(above);
    if (const QString told = hint(); !told.isEmpty()) {
        auto *label = new QLabel(told);
        label->setObjectName(u"hint"_s);
        label->setWordWrap(true);
        bodyLayout()->addWidget(label);
    }
}

void TBranchDlg::Judge()
{
    const QString there =
        u"select count(*) from %1 where %2 = :tevas"_s.arg(description.table, description.keyColumn);
    if (parentOfNew() > 0 && Database()->fieldResult(there, {{u"tevas"_s, above}}).toInt() == 0)
        throw Exception(u"Įrašas, po kuriuo dedama, jau ištrintas kitoje darbo vietoje"_s);
}
