#pragma once

#include "host/controls/document_frm.h"

class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

struct TSheetColumn {
    QString title;
    int width = 0; // in characters; 0: what the others leave
    Qt::Alignment alignment = Qt::AlignLeft;
};

// A document window that tells something in words: a headline, and below it lines that are no rows of a
// table of the books, the first level of which may head others. What it shows is read anew with F5, and when
// the period is another one, and is printed as it is shown with Ctrl+P.
class TSheetFrm : public TDocumentFrm {
    Q_OBJECT
public:
    TSheetFrm(const TDocumentDescription &described, const std::vector<TSheetColumn> &columns,
              QWidget *owner);

    QSize sizeHint() const override { return {900, 520}; }

    QTreeWidget *lines() const { return table; }
    QString headline() const;
    void PrintBtnClick();

    QAction *acRefresh, *acPrint;

protected:
    void FormCreate() override;
    void PeriodChanged() override;

    // --- steps
    virtual void Read() = 0; // fills lines and headline anew

    void setHeadline(const QString &text);
    static QTreeWidgetItem *addLine(QTreeWidget *under, const QStringList &texts);
    static QTreeWidgetItem *addLine(QTreeWidgetItem *under, const QStringList &texts);

private:
    void readAnew();
    QWidget *body(const std::vector<TSheetColumn> &columns);

    QLabel *headLabel;
    QTreeWidget *table;
};
