#pragma once

#include "toolkit/report/layout.h"

#include <QAbstractScrollArea>

// The pages of a report, one below the other. Only the pages in sight are laid out and painted.
class TReportView : public QAbstractScrollArea {
    Q_OBJECT
public:
    // report and layout must outlive the view.
    TReportView(const TReport &report, const TReportLayout &layout, QWidget *parent = nullptr);

    int currentPage() const; // the page at the middle of the window, from 0
    void goToPage(int page);

    qreal zoom() const { return factor; } // 1: one point is 1/72 inch of the screen
    void setZoom(qreal zoom);             // kept within 0.25 to 4
    void zoomBy(int steps);               // positive: larger
    void fitWidth();
    void fitPage();

    // Marks every text that holds the words, and goes to the next page with one, beginning behind the current
    // one and going on from the first. False when no page has it.
    bool findNext(const QString &words);

signals:
    void currentPageChanged(int page);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    QSizeF paperSize() const; // on the screen, in pixels
    qreal pageTop(int page) const;
    qreal pixelsPerPoint() const;
    bool hasWords(int page, const QString &words) const;
    void updateBars();
    void paintPage(QPainter &painter, int page) const;

    const TReport &report;
    const TReportLayout &layout;
    qreal factor = 1;
    QString marked;
};
