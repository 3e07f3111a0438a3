#include "host/controls/list_report.h"

#include "toolkit/widgets/db_grid.h"

#include <QHeaderView>

namespace {
constexpr qreal pointsPerPixel = 0.75;
} // namespace

TReport reportOfList(const TTableHeading &heading, const TDBGrid &grid, const TDataSet &set)
{
    std::vector<TTableColumn> columns;
    for (int place = 0; place < grid.horizontalHeader()->count(); ++place) {
        const int column = grid.horizontalHeader()->logicalIndex(place);
        const TField *field = set.FindField(grid.fieldAt(column));
        if (!field || grid.isColumnHidden(column))
            continue;
        columns.push_back({.field = field->FieldName(),
                           .title = grid.model()->headerData(column, Qt::Horizontal).toString(),
                           .width = grid.ownWidth(column) * pointsPerPixel,
                           .alignment = toQt(field->Alignment) & Qt::AlignHorizontal_Mask,
                           .mask = field->DisplayFormat});
    }
    return reportOfTable(heading, columns);
}
