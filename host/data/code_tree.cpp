#include "host/data/code_tree.h"

#include "toolkit/data/statement.h"
#include "toolkit/text/collation.h"

#include <algorithm>
#include <numeric>

namespace {

// Keys are whole numbers held in doubles.
qlonglong keyOf(double id)
{
    return qRound64(id);
}

bool hasAllWords(const QString &folded, const QStringList &words)
{
    return std::all_of(words.begin(), words.end(),
                       [&](const QString &word) { return folded.contains(word); });
}

} // namespace

TCodeTree TCodeTree::read(TDatabase *database, const QString &statement, const QString &codeTitle)
{
    TCodeTree tree;
    tree.title = codeTitle;
    const auto set = database->prepare(statement);
    set->exec();
    struct Read {
        TCodeRow row;
        double parent;
    };
    QList<Read> all;
    while (set->next()) {
        Read each{{}, set->isNull(1) ? 0 : set->number(1)};
        each.row.id = set->number(0);
        each.row.code = QString::fromUtf8(set->utf8(2));
        each.row.name = QString::fromUtf8(set->utf8(3));
        each.row.detail = !set->isNull(4) && set->integer(4) != 0;
        all.append(each);
    }
    set->reset();
    std::stable_sort(all.begin(), all.end(),
                     [](const Read &a, const Read &b) { return a.row.code < b.row.code; });
    QList<double> parents;
    for (const Read &each : std::as_const(all)) {
        tree.byId.insert(keyOf(each.row.id), int(tree.rows.size()));
        tree.rows.append(each.row);
        parents.append(each.parent);
    }
    tree.connectRows(parents);
    tree.bringOutCircles();
    return tree;
}

void TCodeTree::connectRows(const QList<double> &parents)
{
    for (int row = 0; row < count(); ++row) {
        const int parent = rowOf(parents.at(row));
        rows[row].parent = parent == row ? -1 : parent;
        (rows[row].parent < 0 ? top : rows[parent].children).append(row);
    }
}

void TCodeTree::bringOutCircles()
{
    QList<bool> reached(count(), false);
    const auto reachFrom = [&](int start) {
        QList<int> open{start};
        while (!open.isEmpty()) {
            const int row = open.takeLast();
            if (reached.at(row))
                continue;
            reached[row] = true;
            open += rows.at(row).children;
        }
    };
    for (const int row : std::as_const(top))
        reachFrom(row);
    for (int row = 0; row < count(); ++row) {
        if (reached.at(row))
            continue;
        rows[rows.at(row).parent].children.removeOne(row);
        rows[row].parent = -1;
        top.append(row);
        reachFrom(row);
    }
    std::sort(top.begin(), top.end());
}

int TCodeTree::rowOf(double id) const
{
    return byId.value(keyOf(id), -1);
}

int TCodeTree::rowOfCode(const QString &code) const
{
    const auto found =
        std::lower_bound(rows.begin(), rows.end(), code,
                         [](const TCodeRow &row, const QString &wanted) { return row.code < wanted; });
    return found != rows.end() && found->code == code ? int(found - rows.begin()) : -1;
}

QString TCodeTree::label(int row) const
{
    return at(row).code + QStringLiteral("  ") + at(row).name;
}

const QStringList &TCodeTree::foldedNames() const
{
    if (folded.size() != rows.size()) {
        folded.clear();
        for (const TCodeRow &row : rows)
            folded.append(foldForSearch(row.name));
    }
    return folded;
}

QList<int> TCodeTree::search(const QString &text, int limit) const
{
    const QString wanted = text.trimmed();
    const QStringList words = foldForSearch(wanted).split(u' ', Qt::SkipEmptyParts);
    const QStringList &names = foldedNames();
    QList<int> byCode, byName;
    for (int row = 0; row < count(); ++row) {
        if (at(row).code.startsWith(wanted, Qt::CaseInsensitive))
            byCode.append(row);
        else if (!words.isEmpty() && hasAllWords(names.at(row), words))
            byName.append(row);
    }
    const QList<int> hits = byCode + byName;
    return limit < 0 ? hits : hits.first(qMin(qsizetype(limit), hits.size()));
}
