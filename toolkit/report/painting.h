#pragma once

#include "toolkit/report/layout.h"

#include <QPainter>
#include <QPrinter>

// Paints a page with the painter's unit being one point and its origin the printable area's corner. Texts
// that hold highlight are marked; an empty highlight marks none.
void paintReportPage(QPainter &painter, const TReportPage &page, const QString &highlight = {});

// Prints the pages chosen in the printer's settings, or all. progress gets the pages done; false stops and
// raises EAbort. Raises Exception when the printer or file cannot be written.
void printReport(const TReport &report, const TReportLayout &layout, QPrinter &printer,
                 const std::function<bool(int pagesDone)> &progress = {});

// Writes a PDF under a temporary name beside the file and renames it when it is complete.
void writeReportPdf(const TReport &report, const TReportLayout &layout, const QString &file,
                    const std::function<bool(int pagesDone)> &progress = {});
