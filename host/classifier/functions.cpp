#include "host/classifier/classifier.h"

#include "host/data/code_picker.h"
#include "toolkit/data/statement.h"

#include <QApplication>

using namespace Qt::StringLiterals;

double OpenFunModal(bool leavesOnly, bool asList)
{
    Q_ASSERT(MainDatas());
    TCodePick pick;
    pick.caption = u"Valstybės funkcijos"_s;
    pick.name = u"FunPicker"_s;
    pick.anyRow = !leavesOnly;
    pick.view = asList ? TCodePick::View::List : TCodePick::View::Tree;
    // Every function may be a leaf: only what stands below it decides.
    const auto functions = std::make_shared<const TCodeTree>(TCodeTree::read(
        MainDatas()->mnFin_Db(), u"select fun_id, fun_tevid, fun_kodas, fun_pavad, 1 as lapas from bd_fun"_s,
        u"Kodas"_s));
    return TCodePicker(QApplication::activeWindow(), functions, pick).choose();
}

QString GetFunById(double id)
{
    Q_ASSERT(MainDatas());
    const auto set =
        MainDatas()->mnFin_Db()->prepare(u"select fun_kodas, fun_pavad from bd_fun where fun_id = :id"_s);
    set->bind(u"id"_s, id);
    set->exec();
    if (!set->next())
        return {};
    return QString::fromUtf8(set->utf8(0)) + u"  "_s + QString::fromUtf8(set->utf8(1));
}
