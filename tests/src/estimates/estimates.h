#pragma once

#include "src/estimates/Samform.h"
#include "tests/src/open_books.h"
#include "tests/support/message_box.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

// A book with the folder 1 of the first level and below it the nodes 2 and 3, which carry data; the years
// 2004 (periods 1 to 5) and 2005 (101 to 105).
class Estimates : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        startOfWork(2004, 1, 1);
        for (int quarter = 0; quarter <= 4; ++quarter)
            books().ExecSQL("insert into bd_period values (:id, 2005, :ketv, 0)",
                            {{"id", 101 + quarter}, {"ketv", quarter}});
        for (const char *sql :
             {"insert into bd_asgisl (isl_id, isl_pavad) values (1, 'Biudžetas')",
              "insert into bd_jve (jve_id, jve_islid, jve_kodas, jve_pavad, jve_duom) "
              "values (1, 1, '01', 'Paslaugos', 0)",
              "insert into bd_jve (jve_id, jve_islid, jve_tevid, jve_kodas, jve_pavad, jve_duom) "
              "values (2, 1, 1, '2.1', 'Darbo užmokestis', 1)",
              "insert into bd_jve (jve_id, jve_islid, jve_tevid, jve_kodas, jve_pavad, jve_duom) "
              "values (3, 1, 1, '2.2', 'Prekės', 1)"})
            books().ExecSQL(sql);
    }
    void TearDown() override
    {
        frm.reset();
        EXPECT_EQ(Samform::SamFrm, nullptr);
        OnOpenBooks::TearDown();
    }
    Samform::TSamFrm &open(double node = 2)
    {
        frm.reset(createForm<Samform::TSamFrm>(nullptr));
        frm->show();
        frm->activateWindow();
        frm->SetJungId(node);
        return *frm;
    }
    // The rows of the node 2, or another one, in 2005: the yearly one first.
    void estimate(const QList<double> &amounts, int node = 2)
    {
        for (int row = 0; row < amounts.size(); ++row)
            books().ExecSQL(
                "insert into bd_samatos (sam_id, sam_jveid, sam_perid, sam_samata, sam_sam_kor) "
                "values (:id, :node, :per, :sum, 0)",
                {{"id", node * 10 + row}, {"node", node}, {"per", 101 + row}, {"sum", amounts.at(row)}});
    }
    // A row of the node 2 that another station adds; quarter 0 is the yearly one.
    void estimateElsewhere(int quarter, double amount)
    {
        secondFin()->ExecSQL("insert into bd_samatos (sam_id, sam_jveid, sam_perid, sam_samata, sam_sam_kor) "
                             "values (:id, 2, :per, :sum, 0)",
                             {{"id", 90 + quarter}, {"per", 101 + quarter}, {"sum", amount}});
    }
    void chooseYear(const QString &year)
    {
        for (auto *box : frm->findChildren<QComboBox *>())
            if (box->findText(year) >= 0)
                box->setCurrentIndex(box->findText(year));
    }
    static QLineEdit *edit(QWidget &dialog, const char *column)
    {
        return dialog.findChild<QLineEdit *>(column);
    }
    QStringList stored()
    {
        return rows(books(), "select sam_id, sam_jveid, sam_perid, sam_samata, sam_sam_kor from bd_samatos "
                             "order by sam_id");
    }
    QStringList corrected() { return rows(books(), "select sam_sam_kor from bd_samatos order by sam_perid"); }

    std::unique_ptr<Samform::TSamFrm> frm;
};
