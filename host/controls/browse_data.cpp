#include "host/common/msgbox.h"
#include "host/common/waiting.h"
#include "host/controls/browse_private.h"
#include "host/data/main_datas.h"
#include "toolkit/widgets/db_grid.h"

#include <QAction>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
bool isKey(const Variant &key)
{
    if (key.isNull())
        return false;
    return key.typeId() == QMetaType::QString ? !key.toString().isEmpty() : key.toDouble() != 0;
}

bool isNumeric(TFieldType type)
{
    return type == TFieldType::ftInteger || type == TFieldType::ftFloat || type == TFieldType::ftCurrency;
}
} // namespace

TQuery *TBrowseFrm::dataSet() const
{
    return &d->query;
}

TDBGrid *TBrowseFrm::grid() const
{
    return d->grid;
}

Variant TBrowseFrm::currentKey() const
{
    if (!d->query.Active() || d->query.IsEmpty())
        return {};
    return d->query.FieldByName(description.keyColumn)->Value();
}

void TBrowseFrm::describeFields()
{
    QList<TGridColumn> columns;
    for (const TBrowseColumn &column : description.columns) {
        columns.append(
            {.field = column.field, .title = column.title, .width = column.width, .format = column.format});
        describeField(column);
    }
    d->grid->setColumns(columns);
    d->grid->setTitlesCentred(description.titlesCentred);
}

std::shared_ptr<TColumnLookup> TBrowseFrm::textsOf(const TBrowseColumn &column)
{
    if (!column.text && column.lookup.isEmpty())
        return nullptr;
    std::shared_ptr<TColumnLookup> &texts = d->lookups[column.text ? column.field : column.lookup];
    if (!texts && column.text)
        texts = std::make_shared<TColumnLookup>(column.text);
    else if (!texts)
        texts = std::make_shared<TColumnLookup>(Database(), column.lookup, column.lookupText);
    return texts;
}

void TBrowseFrm::describeField(const TBrowseColumn &column)
{
    const std::shared_ptr<TColumnLookup> texts = textsOf(column);
    d->query.describe(column.field, [column, texts](TField &field) {
        field.DisplayLabel = column.title;
        if (!column.format.isEmpty())
            field.DisplayFormat = column.format;
        if (texts)
            TColumnLookup::showIn(field, texts);
        const bool right = isNumeric(field.DataType()) && !texts;
        field.Alignment =
            column.alignment.value_or(right ? TAlignment::taRightJustify : TAlignment::taLeftJustify);
    });
}

// --- reading

// Only a statement that ends in one plain column tells: its title gets the arrow, and typing searches it.
QString TBrowseFrm::statedOrder() const
{
    static const QRegularExpression pattern(u"\\border\\s+by\\s+(\\w+)\\s*$"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    const QString column = pattern.match(description.sql).captured(1);
    const bool isShown = d->grid->columnOf(column) >= 0;
    return description.titleOrder && isShown ? column : QString();
}

// The rows of a table come in the order of its key where nothing else is said: a server would move a row that
// was changed to the end.
QString TBrowseFrm::orderedSql() const
{
    static const QRegularExpression ordered(u"\\border\\s+by\\b"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    if (d->orderColumn.isEmpty() && !description.table.isEmpty() && !description.sql.contains(ordered))
        return withOrderBy(description.sql, description.keyColumn, false);
    if (d->orderColumn.isEmpty() || (d->orderColumn == d->statedOrder && !d->descending))
        return description.sql;
    return withOrderBy(description.sql, d->orderColumn, d->descending);
}

// The texts of columns are looked up anew.
void TBrowseFrm::forgetTexts()
{
    for (const auto &[name, texts] : d->lookups)
        texts->forget();
}

void TBrowseFrm::RefreshData(const Variant &key)
{
    const TWaiting waiting;
    d->finder.stop();
    d->tmrFind.stop();
    d->query.Close();
    forgetTexts();
    const QString sql = orderedSql();
    if (d->query.SQL() != sql)
        d->query.setSQL(sql);
    for (const auto &[name, value] : description.parameters.asKeyValueRange())
        d->query.setParam(name, value);
    d->query.Open();
    if (isKey(key))
        d->query.Locate(description.keyColumn, key);
    setMessage({});
    showSortArrow();
    showLoading();
    DataSourceDataChange();
}

void TBrowseFrm::OrderData(const QString &column, bool descending)
{
    const TField *field = d->query.FindField(column);
    if (field && field->isCalculated())
        throw Exception(u"Pagal stulpelį „%1“ rikiuoti negalima"_s.arg(field->label()));
    const Variant key = currentKey();
    const auto before = std::pair(d->orderColumn, d->descending);
    std::tie(d->orderColumn, d->descending) = std::pair(column, descending);
    try {
        RefreshData(key);
    } catch (...) {
        std::tie(d->orderColumn, d->descending) = before;
        throw;
    }
}

void TBrowseFrm::DBGridTitleClick(const QString &column)
{
    const TField *field = d->query.FindField(column);
    if (!description.titleOrder || !field || field->isCalculated())
        return;
    const bool again = d->orderColumn.compare(column, Qt::CaseInsensitive) == 0;
    OrderData(column, again && !d->descending);
}

void TBrowseFrm::OrderBtnClick()
{
    if (const TField *field = findField())
        DBGridTitleClick(field->FieldName());
}

void TBrowseFrm::showSortArrow()
{
    d->grid->setSortMark(d->orderColumn, d->descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    const int column = d->grid->columnOf(d->orderColumn);
    const QModelIndex current = d->grid->currentIndex();
    // Typing searches the column that the list is ordered by.
    if (column >= 0 && current.isValid() && current.column() != column)
        d->grid->selectionModel()->setCurrentIndex(current.siblingAtColumn(column),
                                                   QItemSelectionModel::NoUpdate);
    showFindColumn();
}

bool TBrowseFrm::loading() const
{
    return d->query.Active() && !d->query.fetchedAll();
}

void TBrowseFrm::stopLoading()
{
    d->query.stopReading();
    showLoading();
}

// Painting the count after every piece would take as long as the reading itself.
void TBrowseFrm::rowsCame()
{
    constexpr int tellEveryMs = 150;
    if (loading() && d->told.isValid() && !d->told.hasExpired(tellEveryMs))
        return;
    d->told.start();
    showLoading();
}

void TBrowseFrm::showLoading()
{
    const bool more = loading() && !d->query.stopped();
    setLoading(more);
    const int count = d->query.Active() ? d->query.rowCount() : 0;
    const bool partly = more || d->query.stopped();
    setPanel(0, partly ? u"Įrašų kiekis: … %1+"_s.arg(count) : u"Įrašų kiekis: %1"_s.arg(count));
}

void TBrowseFrm::DataSourceDataChange()
{
    if (isDestroyed())
        return;
    showLoading();
    judgeActions();
}

void TBrowseFrm::RefreshBtnClick()
{
    RefreshData(currentKey());
}

// --- moving

void TBrowseFrm::FirstBtnClick()
{
    d->query.First();
}

void TBrowseFrm::PrevBtnClick()
{
    d->query.Prior();
}

void TBrowseFrm::NextBtnClick()
{
    d->query.Next();
    // Behind the last record there is nothing to show.
    if (d->query.Eof())
        d->query.Last();
}

void TBrowseFrm::LastBtnClick()
{
    const TWaiting waiting;
    d->query.Last();
}

// --- what may be done

void TBrowseFrm::SetEditable(bool on)
{
    d->editable = on;
    const bool looks = description.editing == TEditing::UnlessViewOnly && CurrentUser().viewOnly;
    for (QAction *action : {acNew, acDelete})
        action->setVisible(on);
    for (QAction *action : {acEdit, d->afterEditing})
        action->setVisible(on || looks);
    judgeActions();
}

bool TBrowseFrm::Editable() const
{
    return d->editable;
}

void TBrowseFrm::SetPrintable(bool on)
{
    d->printable = on;
    acPrint->setVisible(on);
    judgeActions();
}

void TBrowseFrm::CheckToolButtons()
{
    const bool open = d->query.Active();
    const bool rows = open && !d->query.IsEmpty();
    const bool mayChange = d->editable && !CurrentUser().viewOnly;
    acNew->setEnabled(open && mayChange);
    acDelete->setEnabled(rows && mayChange);
    acEdit->setEnabled(rows && acEdit->isVisible());
    acEdit->setText(CurrentUser().viewOnly ? u"&Peržiūrėti"_s : u"&Keisti"_s);
    acPrint->setEnabled(d->printable);
    for (QAction *action : {acFirst, acPrev, acNext, acLast, acFind, acFindNext, acOrder, acCopy})
        action->setEnabled(rows);
}
