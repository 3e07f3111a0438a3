#pragma once

#include "toolkit/report/layout.h"
#include "toolkit/report/view.h"

#include <QWidget>

#include <functional>

class QEventLoop;
class QLabel;
class QLineEdit;
class QSpinBox;
class QToolBar;
enum class TIcon;

// The preview of a report: pages, zoom, search, printer and PDF.
//
// Keys: Ctrl+P print, Ctrl+S save as PDF, Ctrl++ and Ctrl+- zoom, Ctrl+0 as wide as the window, Ctrl+9 whole
// pages, Home, End, Page Up and Page Down move, Ctrl+G page number, Ctrl+F search, F3 search on, F1 help,
// Esc close.
class TReportPreview : public QWidget {
    Q_OBJECT
public:
    // Lays the report out, showing progress for a long one; Esc there raises EAbort. The preview becomes the
    // owner of report and rows.
    TReportPreview(TReport report, std::unique_ptr<TReportRows> rows, QWidget *owner);
    ~TReportPreview() override;

    // Shows the preview above all other windows until it is closed or destroyed, so that nothing it shows
    // changes meanwhile.
    void ShowModal();

    // The name that is proposed for a file of the report: caption, and period or day.
    QString fileName() const;

    const TReportLayout &layout() const { return *pages; }
    TReportView *view() const { return pageView; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void addTools();
    void addPageTools();
    void addFindTools();
    void addTool(TIcon picture, const QString &text, const QKeySequence &key, std::function<void()> handler);
    void showPage();
    void find();
    void print();
    void savePdf();

    TReport report;
    std::unique_ptr<TReportRows> rows;
    std::unique_ptr<TReportLayout> pages;
    TReportView *pageView;
    QToolBar *tools;
    QSpinBox *pageEdit;
    QLineEdit *findEdit;
    QLabel *foundLabel;
    QEventLoop *modalLoop = nullptr;
};
