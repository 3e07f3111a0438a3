#include "host/app/catalogues/branch_dialog.h"

#include "host/app/catalogues/table_lock.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

TBranchDlg::TBranchDlg(TRecordDescription described, const TRecordStart &start, const QString &column,
                       double parent, const QVariantMap &ofNew)
    : TRecordDialog(std::move(described), start),
      parentColumn(column),
      above(parent),
      given(ofNew)
{
}

void TBranchDlg::Loaded()
{
    TRecordDialog::Loaded();
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

// What was judged while typing is judged once more: another station may have written since.
void TBranchDlg::Save()
{
    lockTable(Database(), description.table);
    Validate();
    Judge();
    const QString there =
        u"select count(*) from %1 where %2 = :tevas"_s.arg(description.table, description.keyColumn);
    if (parentOfNew() > 0 && Database()->fieldResult(there, {{u"tevas"_s, above}}).toInt() == 0)
        throw Exception(u"Įrašas, po kuriuo dedama, jau ištrintas kitoje darbo vietoje"_s);
    TRecordDialog::Save();
}
