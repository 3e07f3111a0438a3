#include "host/app/stand_on.h"

#include "host/classifier/book_frm.h"
#include "host/common/lists.h"
#include "host/controls/browse_frm.h"
#include "host/controls/period_box.h"

namespace {

// Picking another period reads the screen anew.
void pickCurrentPeriod(const QWidget &document)
{
    auto *periods = document.findChild<TPeriodBox *>();
    if (!periods)
        return;
    const int current = GetListIndex(periods->model(), qlonglong(EinPer_Id()));
    if (current >= 0)
        periods->setCurrentIndex(current);
}

} // namespace

void standOn(QWidget &document, double key)
{
    if (key <= 0)
        return;
    pickCurrentPeriod(document);
    if (auto *book = dynamic_cast<TBookFrm *>(&document))
        book->SetJungId(key);
    else if (auto *list = dynamic_cast<TBrowseFrm *>(&document))
        list->RefreshData(key);
}
