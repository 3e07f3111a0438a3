#pragma once

#include "src/frame/unit.h"

class QComboBox;
class TDBGrid;

// Budget estimates: for each node of the classification up to five rows in a year, the yearly one and its
// four quarters, in this order.
namespace Samform {

// "Metinė", "Pirmas" … "Ketvirtas", in the order of the rows.
const QStringList &quarterNames();

class TSamFrm : public TBookFrm {
    Q_OBJECT
public:
    explicit TSamFrm(QWidget *owner);
    ~TSamFrm() override;

    TQuery &estimates() { return qryRows; } // of the current node in the picked year
    double yearId() const;                  // per_id of the picked year; 0: there is none
    bool picksLastYear() const;             // the only one that may be changed

    struct TEstimate {
        double amount = 0;
        double corrected = 0; // sum of its corrections
    };
    // The rows of the current node by quarter, the yearly one first; those that are not there yet are 0.
    QList<TEstimate> rowsOfNode();

    void CheckActions() override;

    QAction *acKor;

protected:
    void FormCreate() override;
    void ReadPeriods() override;
    void NewRecord() override;
    void EditRecord() override;
    void DeleteRecord() override;
    void PrintRecords() override;
    Variant currentKey() const override;

private:
    void showNode();
    void showRowsOf(double node);
    void readRows();
    void showSums();
    void showSum(TQuery &sums, int panel, const QString &caption);
    void completeChildren();
    void showCorrections();
    void requireLast();
    int quarterOf(const Variant &period);

    QComboBox *YearBox;
    TDBGrid *DBGrid;
    TQuery qryRows, qryYearSum, qryQuarterSum, qryPeriods;
    double shownNode = 0; // whose rows pass the filter
};

extern TUnit unit;
extern TSamFrm *SamFrm;

} // namespace Samform
