#include "database/filling/code_tree.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

void hangBelow(QList<TCode> &codes, TCode code, qsizetype parent)
{
    code.parent = parent;
    if (parent >= 0)
        codes[parent].leaf = false;
    codes.append(code);
}

// The account that a further one, greater than all of the list, stands below.
qsizetype beginningOf(const QList<TCode> &accounts, const QString &number)
{
    qsizetype above = accounts.size() - 1;
    while (above >= 0 && !number.startsWith(accounts.at(above).code))
        above = accounts.at(above).parent;
    return above;
}

} // namespace

QString parentKey(const TCode &code)
{
    return code.parent < 0 ? tableNull : QString::number(code.parent + 1);
}

QList<TCode> codeTree(const TTableText &text)
{
    const QStringList codes = text.column(u"kodas"_s), parents = text.column(u"tevas"_s),
                      names = text.column(u"pavad"_s);
    QHash<QString, qsizetype> places;
    QList<TCode> tree;
    for (qsizetype i = 0; i < codes.size(); ++i) {
        const bool top = parents.at(i) == tableNull;
        Q_ASSERT_X(top || places.contains(parents.at(i)), "codeTree", qPrintable(codes.at(i)));
        hangBelow(tree, {codes.at(i), names.at(i)}, top ? -1 : places.value(parents.at(i)));
        places.insert(codes.at(i), i);
    }
    return tree;
}

QList<TCode> accountTree(const TTableText &text)
{
    const QStringList numbers = text.column(u"sas_sasnr"_s), names = text.column(u"sas_pavad"_s);
    QList<TCode> accounts;
    for (qsizetype i = 0; i < numbers.size(); ++i)
        accounts.append({numbers.at(i), names.at(i)});
    std::sort(accounts.begin(), accounts.end(),
              [](const TCode &a, const TCode &b) { return a.code < b.code; });
    QList<TCode> tree;
    for (const TCode &account : accounts)
        hangBelow(tree, account, beginningOf(tree, account.code));
    return tree;
}
