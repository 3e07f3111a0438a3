#include "toolkit/report/preview.h"

#include "toolkit/report/painting.h"
#include "toolkit/text/format.h"
#include "toolkit/widgets/dialog.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/icons.h"
#include "toolkit/widgets/progress.h"
#include "toolkit/widgets/screen_room.h"

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

using namespace Qt::StringLiterals;

namespace {

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
    TProgressWindow progress(report.caption, u"Ruošiama ataskaita…"_s, rows->count(), owner);
    pages = std::make_unique<TReportLayout>(report, *rows, counted(progress));
    setObjectName(u"TReportPreview"_s);
    setWindowTitle(u"%1 – peržiūra"_s.arg(report.caption));
    setWindowIcon(icon(TIcon::Print));
    pageView = new TReportView(report, *pages, this);
    addTools();
    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(tools);
    all->addWidget(pageView);
    const bool isWide = report.page.orientation() == QPageLayout::Landscape;
    resizeInScreen(this, isWide ? QSize(1000, 760) : QSize(820, 760));
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
    action->setToolTip(u"%1 (%2)"_s.arg(text, key.toString(QKeySequence::NativeText)));
    tools->widgetForAction(action)->setAccessibleName(text);
    connectGuarded(action, &QAction::triggered, this, std::move(handler));
}

void TReportPreview::addTools()
{
    tools->setIconSize({20, 20});
    addTool(TIcon::Print, u"Spausdinti"_s, QKeySequence(u"Ctrl+P"_s), [this] { print(); });
    addTool(TIcon::Save, u"Įrašyti PDF"_s, QKeySequence(u"Ctrl+S"_s), [this] { savePdf(); });
    tools->addSeparator();
    addTool(TIcon::ZoomIn, u"Didinti"_s, QKeySequence(u"Ctrl++"_s), [this] { pageView->zoomBy(1); });
    addTool(TIcon::ZoomOut, u"Mažinti"_s, QKeySequence(u"Ctrl+-"_s), [this] { pageView->zoomBy(-1); });
    addTool(TIcon::FitWidth, u"Pagal lango plotį"_s, QKeySequence(u"Ctrl+0"_s),
            [this] { pageView->fitWidth(); });
    addTool(TIcon::FitPage, u"Visas lapas"_s, QKeySequence(u"Ctrl+9"_s), [this] { pageView->fitPage(); });
    tools->addSeparator();
    addPageTools();
    tools->addSeparator();
    addFindTools();
    tools->addSeparator();
    addTool(TIcon::Help, u"Pagalba"_s, QKeySequence(u"F1"_s), [] { TDialog::showHelp(helpTopic); });
    addTool(TIcon::Close, u"Uždaryti"_s, QKeySequence(u"Esc"_s), [this] { close(); });
}

void TReportPreview::addPageTools()
{
    addTool(TIcon::First, u"Pirmas lapas"_s, QKeySequence(u"Ctrl+Home"_s), [this] { pageView->goToPage(0); });
    addTool(TIcon::Previous, u"Ankstesnis lapas"_s, QKeySequence(u"Alt+Up"_s),
            [this] { pageView->goToPage(pageView->currentPage() - 1); });
    pageEdit->setObjectName(u"PageEdit"_s);
    pageEdit->setAccessibleName(u"Lapas"_s);
    pageEdit->setToolTip(u"Lapo numeris (Ctrl+G)"_s);
    pageEdit->setRange(1, pages->pageCount());
    pageEdit->setSuffix(u" iš %1"_s.arg(pages->pageCount()));
    pageEdit->setButtonSymbols(QAbstractSpinBox::NoButtons);
    pageEdit->setKeyboardTracking(false);
    tools->addWidget(pageEdit);
    connectGuarded(pageEdit, &QSpinBox::valueChanged, this,
                   [this](int page) { pageView->goToPage(page - 1); });
    addTool(TIcon::Next, u"Kitas lapas"_s, QKeySequence(u"Alt+Down"_s),
            [this] { pageView->goToPage(pageView->currentPage() + 1); });
    addTool(TIcon::Last, u"Paskutinis lapas"_s, QKeySequence(u"Ctrl+End"_s),
            [this] { pageView->goToPage(pages->pageCount() - 1); });
    auto *go = new QAction(this);
    go->setShortcut(QKeySequence(u"Ctrl+G"_s));
    addAction(go);
    connectGuarded(go, &QAction::triggered, this, [this] {
        pageEdit->setFocus();
        pageEdit->selectAll();
    });
}

void TReportPreview::addFindTools()
{
    findEdit->setObjectName(u"FindEdit"_s);
    findEdit->setPlaceholderText(u"Ieškoti"_s);
    findEdit->setAccessibleName(u"Ieškoti"_s);
    findEdit->setClearButtonEnabled(true);
    findEdit->setMaximumWidth(180);
    foundLabel->setObjectName(u"FoundLabel"_s);
    tools->addWidget(findEdit);
    connectGuarded(findEdit, &QLineEdit::returnPressed, this, [this] { find(); });
    addTool(TIcon::Find, u"Ieškoti toliau"_s, QKeySequence(u"F3"_s), [this] { find(); });
    tools->addWidget(foundLabel);
    auto *start = new QAction(this);
    start->setShortcut(QKeySequence(u"Ctrl+F"_s));
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
    foundLabel->setText(found || words.isEmpty() ? QString() : u" Nerasta: %1"_s.arg(words));
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
    TProgressWindow progress(report.caption, u"Spausdinama…"_s, pages->pageCount(), this);
    printReport(report, *pages, printer, counted(progress));
}

QString TReportPreview::fileName() const
{
    static const QRegularExpression forbidden(u"[/\\\\:*?\"<>|]"_s);
    const QString day = FormatDateTime(u"yyyy.mm.dd"_s, TDateTime(report.date));
    QString name = report.caption + ' ' + (report.period.isEmpty() ? day : report.period);
    return name.replace(forbidden, u"-"_s).trimmed();
}

void TReportPreview::savePdf()
{
    const QString file =
        QFileDialog::getSaveFileName(this, u"Įrašyti PDF"_s, fileName() + u".pdf"_s, u"PDF failai (*.pdf)"_s);
    if (file.isEmpty())
        return;
    TProgressWindow progress(report.caption, u"Rašomas PDF…"_s, pages->pageCount(), this);
    writeReportPdf(report, *pages, file, counted(progress));
}
