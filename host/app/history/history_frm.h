#pragma once

#include "host/app/history/history_words.h"
#include "host/controls/browse_frm.h"
#include "host/controls/row_history.h"

#include <optional>

class QComboBox;
class QDateEdit;

// The history of changes: of one book, by table, person and days, the newest first; or all changes of one
// row, the last one first whatever the clock said. Nothing can be changed in it.
class THistoryFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit THistoryFrm(QWidget *owner);
    THistoryFrm(QWidget *owner, const TRowOfHistory &row);

    QSize sizeHint() const override { return {1080, 560}; }
    void RefreshData(const Variant &key) override;

protected:
    void FormCreate() override;

private:
    void addChoices();
    QComboBox *addChoice(const QString &name, const QString &label);
    QDateEdit *addDay(const QString &name, const QString &label, const QDate &day);
    void bookChosen();
    void fillChoices();
    void showInWords(TQuery &query);
    QString condition() const;

    std::optional<TRowOfHistory> row;
    std::unique_ptr<THistoryWords> words;
    QComboBox *books = nullptr, *tables = nullptr, *persons = nullptr;
    QDateEdit *from = nullptr, *to = nullptr;
};

// The changes of one row in a window of its own, above all others.
void showHistoryOfRow(const TRowOfHistory &row);
