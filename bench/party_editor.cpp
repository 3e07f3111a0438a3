#include "bench/party_editor.h"

#include "bench/when_shown.h"
#include "src/debtors/Chdbkr.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

double saveInEditor(double id, TBrowseFrm *list)
{
    QElapsedTimer timer;
    whenShown<Chdbkr::TEditDbKrDlg>([&timer](Chdbkr::TEditDbKrDlg &dialog) {
        auto *address = dialog.findChild<QLineEdit *>(u"DKA_ADR"_s);
        address->setFocus();
        address->selectAll();
        QTest::keyClicks(address, address->text() == u"a" ? u"b"_s : u"a"_s);
        timer.start();
        dialog.trySave();
    });
    Chdbkr::EditDbKr(AnsiString(u"x"_s), false, id);
    if (list)
        list->RefreshData(id);
    return double(timer.nsecsElapsed()) / 1e6;
}
