#include "host/controls/browse_private.h"
#include "host/controls/list_copy.h"
#include "host/controls/list_report.h"
#include "host/data/main_datas.h"
#include "toolkit/report/preview.h"
#include "toolkit/text/datetime.h"
#include "toolkit/widgets/db_grid.h"
#include "toolkit/widgets/progress.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QPointer>

using namespace Qt::StringLiterals;

void TBrowseFrm::CopyBtnClick()
{
    if (QMimeData *copied = copyOfRows(*d->grid))
        QApplication::clipboard()->setMimeData(copied);
}

// A report holds all rows or is not made.
void TBrowseFrm::readAllRows()
{
    if (d->query.stopped())
        throw Exception(u"Perskaityta tik dalis sąrašo. Atnaujinkite jį (F5) ir bandykite dar kartą."_s);
    TProgress progress(windowTitle(), u"Skaitomas sąrašas…"_s, 0, this);
    while (d->query.canFetchMore({})) {
        const int before = d->query.fetchedCount();
        d->query.fetchMore({});
        // The set has told why it cannot read.
        if (d->query.fetchedCount() == before && d->query.canFetchMore({}))
            throw EAbort();
        progress.step(0);
    }
}

void TBrowseFrm::BeforePrint(TReport &report)
{
    if (d->query.IsEmpty())
        throw Exception(u"Nėra duomenu!"_s);
    report = reportOfList({windowTitle(), organisationName(), Date().date()}, *d->grid, d->query);
}

void TBrowseFrm::PrintBtnClick()
{
    TReport report;
    BeforePrint(report);
    readAllRows();
    // The list may go, and its preview with it, while the program is being closed.
    const QPointer<TReportPreview> preview =
        new TReportPreview(std::move(report), std::make_unique<TDataSetRows>(&d->query), this);
    preview->ShowModal();
    delete preview;
}
