#pragma once

#include "toolkit/report/layout.h"
#include "toolkit/report/view.h"

#include <QLabel>
#include <QLineEdit>
#include <QWidget>

class QToolBar;

// The preview of a report: pages, zoom, search, printer and PDF.
class TReportPreview : public QWidget {
    Q_OBJECT
public:
    // Lays the report out, showing progress for a long one; Esc there raises EAbort. The preview becomes the
    // owner of report and rows.
    TReportPreview(TReport report, std::unique_ptr<TReportRows> rows, QWidget *owner);
    ~TReportPreview() override;

    const TReportLayout &layout() const { return *pages; }
    TReportView *view() const { return pageView; }

private:
    void addTools();
    void showPage();
    void find();
    void print();
    void savePdf();

    TReport report;
    std::unique_ptr<TReportRows> rows;
    std::unique_ptr<TReportLayout> pages;
    TReportView *pageView;
    QToolBar *tools;
    QLabel *pageLabel;
    QLineEdit *findEdit;
};
