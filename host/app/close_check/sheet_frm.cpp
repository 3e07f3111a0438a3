#include "host/app/close_check/sheet_frm.h"

#include "host/common/months.h"
#include "host/data/main_datas.h"
#include "toolkit/report/preview.h"
#include "toolkit/report/table_report.h"

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr qreal groupHeight = 22;
constexpr qreal groupTop = 7;
constexpr qreal lineHeight = 16;
const QString groupField = u"GRUPE"_s;

QString fieldOf(int column)
{
    return u"C%1"_s.arg(column);
}

// The lines as they were when they were printed.
class TSheetRows : public TReportRows {
public:
    explicit TSheetRows(const QTreeWidget &table)
    {
        for (int i = 0; i < table.topLevelItemCount(); ++i) {
            const QTreeWidgetItem *head = table.topLevelItem(i);
            const QString group = (QStringList() << head->text(0) << head->text(1)).join(u"  "_s).trimmed();
            for (int child = 0; child < head->childCount(); ++child)
                rows << textsOf(*head->child(child), group);
            if (head->childCount() == 0)
                rows << textsOf(*head, {});
        }
    }
    int count() override { return int(rows.size()); }
    QVariant value(int row, const QString &field) override { return rows.at(row).value(field); }

private:
    static QHash<QString, QVariant> textsOf(const QTreeWidgetItem &line, const QString &group)
    {
        QHash<QString, QVariant> texts{{groupField, group}};
        for (int column = 0; column < line.columnCount(); ++column)
            texts.insert(fieldOf(column), line.text(column));
        return texts;
    }
    QList<QHash<QString, QVariant>> rows;
};

TReport reportOf(const QString &caption, const QString &headline, const QTreeWidget &table)
{
    std::vector<TTableColumn> columns;
    for (int column = 0; column < table.columnCount(); ++column)
        columns.push_back(
            {fieldOf(column), table.headerItem()->text(column), qreal(table.columnWidth(column)),
             Qt::Alignment(table.headerItem()->textAlignment(column)) & Qt::AlignHorizontal_Mask});
    TReport report = reportOfTable({caption, organisationName(), Date().date()}, columns);
    report.period = PeriodText(EinPer_Date());
    const qreal width = report.page.paintRect(QPageLayout::Point).width();
    for (const QString &text : {report.period, headline}) {
        report.title.items.push_back({.y = report.title.height,
                                      .width = width,
                                      .text = text,
                                      .alignment = Qt::AlignHCenter,
                                      .wrap = true});
        report.title.height += lineHeight;
    }
    return report;
}

void addGroups(TReport &report)
{
    const qreal width = report.page.paintRect(QPageLayout::Point).width();
    report.groups.push_back(
        {.name = groupField,
         .expression = groupField,
         .header = {.height = groupHeight,
                    .items = {{.y = groupTop, .width = width, .expression = groupField, .bold = true}}}});
}

} // namespace

TSheetFrm::TSheetFrm(const TDocumentDescription &described, const std::vector<TSheetColumn> &columns,
                     QWidget *owner)
    : TDocumentFrm(described, owner),
      headLabel(new QLabel(this)),
      table(new QTreeWidget(this))
{
    setBody(body(columns));
    acRefresh = addFormAction({.name = u"acRefresh"_s,
                               .text = u"&Atnaujinti"_s,
                               .picture = TIcon::Refresh,
                               .keys = {Qt::Key_F5},
                               .handler = [this] { readAnew(); }});
    acPrint = addFormAction({.name = u"acPrint"_s,
                             .text = u"&Spausdinti"_s,
                             .picture = TIcon::Print,
                             .keys = {Qt::CTRL | Qt::Key_P},
                             .handler = [this] { PrintBtnClick(); }});
    offerMenu(table);
}

QWidget *TSheetFrm::body(const std::vector<TSheetColumn> &columns)
{
    headLabel->setObjectName(u"headline"_s);
    headLabel->setTextFormat(Qt::PlainText);
    headLabel->setWordWrap(true);
    QFont large = headLabel->font();
    large.setPointSizeF(large.pointSizeF() * 1.2);
    headLabel->setFont(large);
    table->setObjectName(u"lines"_s);
    table->setAccessibleName(windowTitle());
    table->setAlternatingRowColors(true);
    table->setAllColumnsShowFocus(true);
    table->setUniformRowHeights(true);
    const int character = table->fontMetrics().averageCharWidth();
    QStringList titles;
    for (const TSheetColumn &column : columns)
        titles << column.title;
    table->setHeaderLabels(titles);
    table->header()->setStretchLastSection(false);
    for (int i = 0; i < int(columns.size()); ++i) {
        const TSheetColumn &column = columns[std::size_t(i)];
        table->headerItem()->setTextAlignment(i, column.alignment | Qt::AlignVCenter);
        table->setColumnWidth(i, column.width * character);
        if (column.width == 0)
            table->header()->setSectionResizeMode(i, QHeaderView::Stretch);
    }
    auto *whole = new QWidget(this);
    auto *layout = new QVBoxLayout(whole);
    layout->addWidget(headLabel);
    layout->addWidget(table, 1);
    return whole;
}

void TSheetFrm::FormCreate()
{
    TDocumentFrm::FormCreate();
    Read();
}

void TSheetFrm::PeriodChanged()
{
    Read();
}

// Another station may have closed the month meanwhile. Following it reads by itself when it has.
void TSheetFrm::readAnew()
{
    const double period = EinPer_Id();
    FollowPeriod();
    if (EinPer_Id() == period)
        Read();
}

QString TSheetFrm::headline() const
{
    return headLabel->text();
}

void TSheetFrm::setHeadline(const QString &text)
{
    headLabel->setText(text);
    headLabel->setAccessibleName(text);
}

namespace {

QTreeWidgetItem *lineOf(const QTreeWidget &table, const QStringList &texts)
{
    auto *line = new QTreeWidgetItem(texts);
    for (int column = 0; column < texts.size(); ++column) {
        line->setTextAlignment(column, Qt::Alignment(table.headerItem()->textAlignment(column)));
        line->setToolTip(column, texts.at(column));
    }
    return line;
}

} // namespace

QTreeWidgetItem *TSheetFrm::addLine(QTreeWidget *under, const QStringList &texts)
{
    auto *line = lineOf(*under, texts);
    under->addTopLevelItem(line);
    return line;
}

QTreeWidgetItem *TSheetFrm::addLine(QTreeWidgetItem *under, const QStringList &texts)
{
    auto *line = lineOf(*under->treeWidget(), texts);
    under->addChild(line);
    return line;
}

void TSheetFrm::PrintBtnClick()
{
    TReport report = reportOf(windowTitle(), headline(), *table);
    for (int i = 0; i < table->topLevelItemCount(); ++i)
        if (table->topLevelItem(i)->childCount() > 0) {
            addGroups(report);
            break;
        }
    const QPointer<TReportPreview> preview =
        new TReportPreview(std::move(report), std::make_unique<TSheetRows>(*table), this);
    preview->ShowModal();
    delete preview;
}
