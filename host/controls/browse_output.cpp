#include "host/controls/browse_private.h"
#include "host/controls/list_report.h"
#include "host/data/main_datas.h"
#include "host/data/reports.h"
#include "toolkit/report/dataset_rows.h"
#include "toolkit/report/preview.h"
#include "toolkit/text/datetime.h"
#include "toolkit/widgets/db_grid.h"

#include <QPointer>

using namespace Qt::StringLiterals;

void TBrowseFrm::CopyBtnClick()
{
    d->grid->copySelection();
}

void TBrowseFrm::BeforePrint(TReport &report)
{
    if (d->query.IsEmpty())
        throw Exception(u"Nėra duomenu!"_s);
    report = reportOfList({windowTitle(), organisationName(), Date().date()}, *d->grid, d->query);
}

void TBrowseFrm::PrintBtnClick()
{
    if (description.report > 0) {
        OpenReports(AnsiString(u"/DBN=%1 /RPTID=%2"_s.arg(Database()->AliasName()).arg(description.report)));
        return;
    }
    if (d->query.stopped())
        throw Exception(u"Perskaityta tik dalis sąrašo. Atnaujinkite jį (F5) ir bandykite dar kartą."_s);
    const TSamePeriod samePeriod(this); // heading, totals and rows stand on the page together
    TReport report;
    BeforePrint(report);
    fetchAll(d->query, windowTitle(), this);
    // The list may go, and its preview with it, while the program is being closed.
    const QPointer<TReportPreview> preview =
        new TReportPreview(std::move(report), std::make_unique<TDataSetRows>(&d->query), this);
    preview->ShowModal();
    delete preview;
}
