#include "host/controls/browse_private.h"
#include "host/controls/list_copy.h"
#include "host/controls/list_printer.h"
#include "host/data/main_datas.h"
#include "toolkit/text/datetime.h"
#include "toolkit/widgets/db_grid.h"

#include <QApplication>
#include <QClipboard>
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
    QList<int> sources;
    const QList<TGridColumn> &columns = d->grid->columns();
    for (int i = 0; i < columns.size(); ++i) {
        const TField *field = d->query.FindField(columns[i].field);
        if (!field || d->grid->isColumnHidden(i))
            continue;
        sources << field->index();
        content.columns.push_back({field->label(), d->grid->columnWidth(i), field->Alignment});
    }
    content.text = [this, sources](int row, int column) {
        return d->query.index(row, sources[column]).data(Qt::DisplayRole).toString();
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
