#include "host/controls/browse_private.h"
#include "host/controls/list_copy.h"
#include "host/controls/list_printer.h"
#include "host/data/main_datas.h"
#include "toolkit/text/datetime.h"
#include "toolkit/widgets/db_grid.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMimeData>

using namespace Qt::StringLiterals;

void TBrowseFrm::CopyBtnClick()
{
    if (QMimeData *copied = copyOfRows(*d->grid))
        QApplication::clipboard()->setMimeData(copied);
}

TListPrinter TBrowseFrm::printed()
{
    TListContent content;
    content.title = windowTitle();
    content.institution = organisationName();
    content.date = Date().date();
    content.rows = d->query.RecordCount();
    const QHeaderView *header = d->grid->horizontalHeader();
    QList<int> columns;
    for (int i = 0; i < header->count(); ++i) {
        const int column = header->logicalIndex(i);
        if (header->isSectionHidden(column))
            continue;
        columns << column;
        content.columns.push_back({d->query.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(),
                                   header->sectionSize(column), d->query.Field(column)->Alignment});
    }
    content.text = [this, columns](int row, int column) {
        return d->query.index(row, columns[column]).data(Qt::DisplayRole).toString();
    };
    return TListPrinter(std::move(content));
}

void TBrowseFrm::BeforePrint(TListPrinter &printer)
{
    if (printer.content().rows == 0)
        throw Exception(u"Nėra duomenu!"_s);
}

void TBrowseFrm::PrintBtnClick()
{
    TListPrinter printer = printed();
    BeforePrint(printer);
    printer.preview(this);
}
