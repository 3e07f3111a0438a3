#include "toolkit/widgets/column_lookup.h"

#include "toolkit/data/connection.h"
#include "toolkit/data/query.h"

#include <QApplication>
#include <QTimer>

namespace {

// Runs one of two functions, by whether the key is a number or a text.
template<typename Number, typename Text> auto byKind(const QVariant &key, Number number, Text text)
{
    bool isNumber = false;
    const double value = key.toDouble(&isNumber);
    return isNumber ? number(value) : text(key.toString());
}

void paintAgainSoon()
{
    QTimer::singleShot(0, qApp, [] {
        for (QWidget *window : QApplication::topLevelWidgets())
            window->update();
    });
}

} // namespace

TColumnLookup::TColumnLookup(TDatabase *database, const QString &statement, RowText textOfRow)
    : session(database),
      sql(statement),
      rowText(std::move(textOfRow))
{
}

TColumnLookup::TColumnLookup(std::function<QString(const QVariant &)> texts) : source(std::move(texts)) {}

QString TColumnLookup::text(const QVariant &key)
{
    if (key.isNull())
        return {};
    if (BusyBeat::isBeating() && !isKnown(key)) {
        paintAgainSoon();
        return {};
    }
    const BusyBeat::Quiet unpainted;
    if (!source && !isRead)
        read();
    const auto find = [&](auto &texts, const auto &value) {
        auto found = texts.constFind(value);
        if (found == texts.constEnd() && source)
            found = texts.insert(value, source(key));
        return found == texts.constEnd() ? QString() : *found;
    };
    return byKind(
        key, [&](double number) { return find(byNumber, number); },
        [&](const QString &text) { return find(byText, text); });
}

bool TColumnLookup::isKnown(const QVariant &key) const
{
    return isRead || byKind(
                         key, [this](double number) { return byNumber.contains(number); },
                         [this](const QString &text) { return byText.contains(text); });
}

void TColumnLookup::read()
{
    TQuery query(session, sql);
    for (query.Open(); !query.Eof(); query.Next()) {
        const QString text = rowText ? rowText(query) : query.Field(1)->DisplayText();
        byKind(
            query.Field(0)->Value(), [&](double number) { byNumber.insert(number, text); },
            [&](const QString &key) { byText.insert(key, text); });
    }
    isRead = true;
}

void TColumnLookup::forget()
{
    byNumber.clear();
    byText.clear();
    isRead = false;
}

void TColumnLookup::showIn(TField &field, const std::shared_ptr<TColumnLookup> &lookup)
{
    field.OnGetText = [lookup](TField &shown) { return lookup->text(shown.Value()); };
    field.Alignment = TAlignment::taLeftJustify;
}
