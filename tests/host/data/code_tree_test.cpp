#include "host/data/code_models.h"

#include "host/data/accounts_chart.h"
#include "tests/host/books.h"

#include <QAbstractItemModelTester>
#include <QFont>

using namespace Qt::StringLiterals;

class CodeTree : public WithMainDatas {
protected:
    QStringList codes(const TCodeTree &tree, const QList<int> &rows) const
    {
        QStringList found;
        for (const int row : rows)
            found << tree.at(row).code;
        return found;
    }
};
ON_BOTH_ENGINES(CodeTree);

TEST_P(CodeTree, ShowsTheChartAsItStands)
{
    addSmallChart(fin);
    const TCodeTree tree = chartOfAccounts(fin);
    EXPECT_EQ(codes(tree, tree.childrenOf(-1)), QStringList({"2", "4"}));
    const int assets = tree.rowOfCode(u"22"_s);
    EXPECT_EQ(codes(tree, tree.childrenOf(assets)), QStringList({"221", "222"}));
    EXPECT_TRUE(tree.isSummary(assets));
    EXPECT_TRUE(tree.at(tree.rowOf(3)).detail);
    EXPECT_EQ(tree.label(tree.rowOf(3)), u"221  Pirkėjų skolos");
    EXPECT_EQ(tree.rowOf(99), -1);
    EXPECT_EQ(tree.rowOfCode(u"2222"_s), -1);
}

TEST_P(CodeTree, SearchesByTheBeginningOfTheCodeThenByWordsOfTheName)
{
    addSmallChart(fin);
    const TCodeTree tree = chartOfAccounts(fin);
    EXPECT_EQ(codes(tree, tree.search(u"22"_s)), QStringList({"22", "221", "222"}));
    EXPECT_EQ(codes(tree, tree.search(u"silum"_s)), QStringList({"222"}));
    EXPECT_EQ(codes(tree, tree.search(u"SKOLOS pirkeju"_s)), QStringList({"221"}));
    EXPECT_EQ(codes(tree, tree.search(u"sumos"_s)), QStringList({"22", "43"}));
    EXPECT_EQ(codes(tree, tree.search(u"nieko"_s)), QStringList());
    EXPECT_EQ(tree.search(u" "_s).size(), 7);
    EXPECT_EQ(tree.search(u"2"_s, 2).size(), 2);
}

TEST_P(CodeTree, ACircleOfParentsIsStillReached)
{
    addSmallChart(fin);
    fin->ExecSQL(u"update bd_sasplan set sas_tevid = 3 where sas_id = 1"_s);
    fin->ExecSQL(u"update bd_sasplan set sas_tevid = 7 where sas_id = 7"_s);
    const TCodeTree tree = chartOfAccounts(fin);
    QList<int> reached, open{-1};
    while (!open.isEmpty()) {
        const QList<int> &children = tree.childrenOf(open.takeLast());
        reached += children;
        open += children;
    }
    EXPECT_EQ(reached.size(), 7);
    EXPECT_EQ(codes(tree, tree.childrenOf(-1)), QStringList({"2", "4", "43"}));
}

TEST_P(CodeTree, ItsModelsAreSoundAndShowSummaryAccountsBold)
{
    addSmallChart(fin);
    const auto tree = std::make_shared<const TCodeTree>(chartOfAccounts(fin));
    TCodeTreeModel asTree(tree);
    TCodeListModel asList(tree);
    const QAbstractItemModelTester treeTester(&asTree, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QAbstractItemModelTester listTester(&asList, QAbstractItemModelTester::FailureReportingMode::Fatal);
    asList.setRows(tree->search({}));
    const QModelIndex detail = asTree.indexOf(tree->rowOf(3));
    EXPECT_EQ(detail.siblingAtColumn(ccName).data().toString(), u"Pirkėjų skolos");
    EXPECT_EQ(detail.parent().data().toString(), "22");
    EXPECT_FALSE(detail.data(Qt::FontRole).value<QFont>().bold());
    EXPECT_TRUE(detail.parent().data(Qt::FontRole).value<QFont>().bold());
    EXPECT_EQ(asList.index(2, ccCode).data().toString(), "221");
    EXPECT_EQ(asList.headerData(ccCode, Qt::Horizontal).toString(), "Numeris");
}
