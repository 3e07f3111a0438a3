#include "toolkit/report/preview.h"

#include "toolkit/report/painting.h"
#include "toolkit/text/format.h"
#include "toolkit/widgets/dialog.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/icons.h"
#include "toolkit/widgets/progress.h"

#include <QAction>
#include <QCloseEvent>
#include <QEventLoop>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QRegularExpression>
#include <QSpinBox>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

constexpr qreal zoomStep = 1.2;
constexpr int helpTopic = 90;

// Page counters for printing and PDF, which stop when the user does.
std::function<bool(int)> counted(TProgressWindow &progress)
{
    return [&progress](int done) {
        progress.step(done);
        return true;
    };
}

} // namespace

TReportPreview::TReportPreview(TReport shownReport, std::unique_ptr<TReportRows> shownRows, QWidget *owner)
    : QWidget(owner, Qt::Window),
      report(std::move(shownReport)),
      rows(std::move(shownRows)),
      tools(new QToolBar(this)),
      pageEdit(new QSpinBox(this)),
      findEdit(new QLineEdit(this)),
      foundLabel(new QLabel(this))
{
    TProgressWindow progress(report.caption, "Ruošiama ataskaita…", rows->count(), owner);
    pages = std::make_unique<TReportLayout>(report, *rows, counted(progress));
    setObjectName("TReportPreview");
    setWindowTitle(QString("%1 – peržiūra").arg(report.caption));
    setWindowIcon(icon(TIcon::Print));
    pageView = new TReportView(report, *pages, this);
    addTools();
    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(tools);
    all->addWidget(pageView);
    resize(report.page.orientation() == QPageLayout::Landscape ? QSize(1000, 760) : QSize(820, 760));
    connectGuarded(pageView, &TReportView::currentPageChanged, this, [this] { showPage(); });
    showPage();
    setFocusProxy(pageView);
    pageView->setFocus();
}

TReportPreview::~TReportPreview()
{
    if (modalLoop)
        modalLoop->quit();
}

void TReportPreview::ShowModal()
{
    QEventLoop loop;
    modalLoop = &loop;
    const QPointer<TReportPreview> self(this);
    setWindowModality(Qt::ApplicationModal);
    show();
    pageView->fitWidth();
    pageView->setFocus();
    loop.exec();
    if (self)
        modalLoop = nullptr;
}

void TReportPreview::closeEvent(QCloseEvent *event)
{
    QWidget::closeEvent(event);
    if (modalLoop)
        modalLoop->quit();
}

// --- tools

void TReportPreview::addTool(TIcon picture, const QString &text, const QKeySequence &key,
                             std::function<void()> handler)
{
    QAction *action = tools->addAction(icon(picture), text);
    action->setShortcut(key);
    action->setToolTip(QString("%1 (%2)").arg(text, key.toString(QKeySequence::NativeText)));
    tools->widgetForAction(action)->setAccessibleName(text);
    connectGuarded(action, &QAction::triggered, this, std::move(handler));
}

void TReportPreview::addTools()
{
    tools->setIconSize({20, 20});
    addTool(TIcon::Print, "Spausdinti", QKeySequence("Ctrl+P"), [this] { print(); });
    addTool(TIcon::Save, "Įrašyti PDF", QKeySequence("Ctrl+S"), [this] { savePdf(); });
    tools->addSeparator();
    addTool(TIcon::ZoomIn, "Didinti", QKeySequence("Ctrl++"),
            [this] { pageView->setZoom(pageView->zoom() * zoomStep); });
    addTool(TIcon::ZoomOut, "Mažinti", QKeySequence("Ctrl+-"),
            [this] { pageView->setZoom(pageView->zoom() / zoomStep); });
    addTool(TIcon::FitWidth, "Pagal lango plotį", QKeySequence("Ctrl+0"), [this] { pageView->fitWidth(); });
    addTool(TIcon::FitPage, "Visas lapas", QKeySequence("Ctrl+9"), [this] { pageView->fitPage(); });
    tools->addSeparator();
    addPageTools();
    tools->addSeparator();
    addFindTools();
    tools->addSeparator();
    addTool(TIcon::Help, "Pagalba", QKeySequence("F1"), [] { TDialog::showHelp(helpTopic); });
    addTool(TIcon::Close, "Uždaryti", QKeySequence("Esc"), [this] { close(); });
}

void TReportPreview::addPageTools()
{
    addTool(TIcon::First, "Pirmas lapas", QKeySequence("Ctrl+Home"), [this] { pageView->goToPage(0); });
    addTool(TIcon::Previous, "Ankstesnis lapas", QKeySequence("Alt+Up"),
            [this] { pageView->goToPage(pageView->currentPage() - 1); });
    pageEdit->setObjectName("PageEdit");
    pageEdit->setAccessibleName("Lapas");
    pageEdit->setToolTip("Lapo numeris (Ctrl+G)");
    pageEdit->setRange(1, pages->pageCount());
    pageEdit->setSuffix(QString(" iš %1").arg(pages->pageCount()));
    pageEdit->setButtonSymbols(QAbstractSpinBox::NoButtons);
    pageEdit->setKeyboardTracking(false);
    tools->addWidget(pageEdit);
    connectGuarded(pageEdit, &QSpinBox::valueChanged, this,
                   [this](int page) { pageView->goToPage(page - 1); });
    addTool(TIcon::Next, "Kitas lapas", QKeySequence("Alt+Down"),
            [this] { pageView->goToPage(pageView->currentPage() + 1); });
    addTool(TIcon::Last, "Paskutinis lapas", QKeySequence("Ctrl+End"),
            [this] { pageView->goToPage(pages->pageCount() - 1); });
    auto *go = new QAction(this);
    go->setShortcut(QKeySequence("Ctrl+G"));
    addAction(go);
    connectGuarded(go, &QAction::triggered, this, [this] {
        pageEdit->setFocus();
        pageEdit->selectAll();
    });
}

void TReportPreview::addFindTools()
{
    findEdit->setObjectName("FindEdit");
    findEdit->setPlaceholderText("Ieškoti");
    findEdit->setAccessibleName("Ieškoti");
    findEdit->setClearButtonEnabled(true);
    findEdit->setMaximumWidth(180);
    foundLabel->setObjectName("FoundLabel");
    tools->addWidget(findEdit);
    connectGuarded(findEdit, &QLineEdit::returnPressed, this, [this] { find(); });
    addTool(TIcon::Find, "Ieškoti toliau", QKeySequence("F3"), [this] { find(); });
    tools->addWidget(foundLabel);
    auto *start = new QAction(this);
    start->setShortcut(QKeySequence("Ctrl+F"));
    addAction(start);
    connectGuarded(start, &QAction::triggered, this, [this] {
        findEdit->setFocus();
        findEdit->selectAll();
    });
}

void TReportPreview::showPage()
{
    const QSignalBlocker silently(pageEdit);
    pageEdit->setValue(pageView->currentPage() + 1);
}

void TReportPreview::find()
{
    const QString words = findEdit->text().trimmed();
    const bool found = pageView->findNext(words);
    foundLabel->setText(found || words.isEmpty() ? QString() : QString(" Nerasta: %1").arg(words));
}

// --- output

void TReportPreview::print()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(report.page);
    QPrintDialog dialog(&printer, this);
    dialog.setMinMax(1, pages->pageCount());
    if (dialog.exec() != QDialog::Accepted)
        return;
    TProgressWindow progress(report.caption, "Spausdinama…", pages->pageCount(), this);
    printReport(report, *pages, printer, counted(progress));
}

QString TReportPreview::fileName() const
{
    static const QRegularExpression forbidden("[/\\\\:*?\"<>|]");
    const QString day = FormatDateTime("yyyy.mm.dd", TDateTime(report.date));
    QString name = report.caption + ' ' + (report.period.isEmpty() ? day : report.period);
    return name.replace(forbidden, "-").trimmed();
}

void TReportPreview::savePdf()
{
    const QString file =
        QFileDialog::getSaveFileName(this, "Įrašyti PDF", fileName() + ".pdf", "PDF failai (*.pdf)");
    if (file.isEmpty())
        return;
    TProgressWindow progress(report.caption, "Rašomas PDF…", pages->pageCount(), this);
    writeReportPdf(report, *pages, file, counted(progress));
}
