#include "host/classifier/classifier_rows.h"

#include "host/classifier/classifier.h"
#include "host/data/drb_klas.h"

using namespace Qt::StringLiterals;

namespace {

template<typename Control> TFieldRow rowOver(const QString &label, const QString &column)
{
    return TFieldRow::bound(label, column, [=](QWidget *parent) {
        auto *control = new Control(parent);
        control->setLabel(label);
        return control;
    });
}

std::optional<TKeyRow> named(double key, const QString &text)
{
    return text.isEmpty() ? std::nullopt : std::optional(TKeyRow{key, text, {}});
}

} // namespace

TFunEdit::TFunEdit(QWidget *parent)
    : TKeyEdit(Typing::Nothing, {u"Pasirinkti valstybės funkciją"_s, {}, u"Funkcijos nebėra"_s}, parent)
{
}

std::optional<TKeyRow> TFunEdit::rowOf(double key)
{
    return named(key, GetFunById(key));
}

double TFunEdit::pickFrom(double)
{
    return OpenFunModal(false, false);
}

TBookEdit::TBookEdit(QWidget *parent)
    : TKeyEdit(Typing::Nothing, {u"Pasirinkti klasifikacijos knygą"_s, {}, u"Knygos nebėra"_s}, parent)
{
    focusOnButton();
}

std::optional<TKeyRow> TBookEdit::rowOf(double key)
{
    Q_ASSERT(MainDatas());
    const Variant name = MainDatas()->mnFin_Db()->fieldResult(
        u"select isl_pavad from bd_asgisl where isl_id = :id"_s, {{u"id"_s, key}});
    return named(key, name.toString());
}

double TBookEdit::pickFrom(double)
{
    return GetUserKnygaId();
}

TFieldRow FunRow(const QString &label, const QString &column)
{
    return rowOver<TFunEdit>(label, column);
}

TFieldRow BookRow(const QString &label, const QString &column)
{
    return rowOver<TBookEdit>(label, column);
}

TFieldRow DrbKlasRow(const QString &label, const QString &column)
{
    return rowOver<TDrbKlasFra>(label, column);
}
