#include "toolkit/report/preview.h"

#include "toolkit/report/painting.h"
#include "toolkit/widgets/guard.h"

#include <QAction>
#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

constexpr qreal zoomStep = 1.2;
constexpr int slowMs = 600; // a progress window comes up only for work that takes longer

// A progress window over counted work; step() is false once the user has stopped it.
class Progress {
public:
    Progress(const QString &text, int total, QWidget *owner) : window(text, "&Nutraukti", 0, total, owner)
    {
        window.setWindowModality(Qt::WindowModal);
        window.setMinimumDuration(slowMs);
        window.setWindowTitle("Ataskaita");
    }
    bool step(int done)
    {
        window.setValue(done);
        return !window.wasCanceled();
    }

private:
    QProgressDialog window;
};

} // namespace

TReportPreview::TReportPreview(TReport shownReport, std::unique_ptr<TReportRows> shownRows, QWidget *owner)
    : QWidget(owner, Qt::Window),
      report(std::move(shownReport)),
      rows(std::move(shownRows)),
      tools(new QToolBar(this)),
      pageLabel(new QLabel(this)),
      findEdit(new QLineEdit(this))
{
    Progress progress("Ruošiama ataskaita…", rows->count(), owner);
    pages =
        std::make_unique<TReportLayout>(report, *rows, [&progress](int done) { return progress.step(done); });
    setWindowTitle(QString("%1 – peržiūra").arg(report.caption));
    setAttribute(Qt::WA_DeleteOnClose);
    pageView = new TReportView(report, *pages, this);
    addTools();
    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(tools);
    all->addWidget(pageView);
    resize(820, 760);
    connectGuarded(pageView, &TReportView::currentPageChanged, this, [this] { showPage(); });
    showPage();
    pageView->setFocus();
}

TReportPreview::~TReportPreview() = default;

void TReportPreview::addTools()
{
    const auto add = [this](const char *icon, const QString &text, const QKeySequence &key, auto handler) {
        QAction *action = tools->addAction(QIcon::fromTheme(icon), text);
        action->setShortcut(key);
        action->setToolTip(QString("%1 (%2)").arg(text, key.toString()));
        connectGuarded(action, &QAction::triggered, this, handler);
    };
    tools->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    add("document-print", "Spausdinti", QKeySequence("Ctrl+P"), [this] { print(); });
    add("document-save-as", "PDF", QKeySequence("Ctrl+S"), [this] { savePdf(); });
    tools->addSeparator();
    add("zoom-in", "Didinti", QKeySequence("Ctrl++"),
        [this] { pageView->setZoom(pageView->zoom() * zoomStep); });
    add("zoom-out", "Mažinti", QKeySequence("Ctrl+-"),
        [this] { pageView->setZoom(pageView->zoom() / zoomStep); });
    add("zoom-fit-width", "Pagal plotį", QKeySequence("Ctrl+0"), [this] { pageView->fitWidth(); });
    tools->addSeparator();
    tools->addWidget(pageLabel);
    tools->addSeparator();
    findEdit->setPlaceholderText("Ieškoti");
    findEdit->setAccessibleName("Ieškoti");
    findEdit->setMaximumWidth(180);
    tools->addWidget(findEdit);
    connectGuarded(findEdit, &QLineEdit::returnPressed, this, [this] { find(); });
    add("edit-find", "Ieškoti", QKeySequence("F3"), [this] { find(); });
    add("window-close", "Uždaryti", QKeySequence("Esc"), [this] { close(); });
}

void TReportPreview::showPage()
{
    pageLabel->setText(QString(" %1 lapas iš %2 ").arg(pageView->currentPage() + 1).arg(pages->pageCount()));
}

void TReportPreview::find()
{
    if (!pageView->findNext(findEdit->text()) && !findEdit->text().isEmpty())
        pageLabel->setText(QString(" „%1“ nerasta ").arg(findEdit->text()));
}

void TReportPreview::print()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(report.page);
    QPrintDialog dialog(&printer, this);
    dialog.setMinMax(1, pages->pageCount());
    if (dialog.exec() != QDialog::Accepted)
        return;
    Progress progress("Spausdinama…", pages->pageCount(), this);
    printReport(report, *pages, printer, [&progress](int done) { return progress.step(done); });
}

void TReportPreview::savePdf()
{
    const QString file =
        QFileDialog::getSaveFileName(this, "Įrašyti PDF", report.caption + ".pdf", "PDF failai (*.pdf)");
    if (file.isEmpty())
        return;
    Progress progress("Rašomas PDF…", pages->pageCount(), this);
    writeReportPdf(report, *pages, file, [&progress](int done) { return progress.step(done); });
}
