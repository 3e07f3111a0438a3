#include "host/controls/lookup_texts.h"

#include "toolkit/data/query.h"

namespace {

// 5, 5.0 and "5" are one key.
QString nameOf(const Variant &key)
{
    return key.typeId() == QMetaType::QString ? key.toString() : QString::number(key.toDouble(), 'g', 17);
}

} // namespace

TLookupTexts::TLookupTexts(std::function<QString(const Variant &)> text) : lookUp(std::move(text)) {}

TLookupTexts::TLookupTexts(std::function<TDatabase *()> database, const QString &sql)
    : session(std::move(database)),
      statement(sql)
{
}

QString TLookupTexts::of(const Variant &key)
{
    if (key.isNull())
        return {};
    const QString name = nameOf(key);
    if (lookUp && !known.contains(name))
        known.insert(name, lookUp(key));
    if (!lookUp && !complete)
        readAll();
    return known.value(name);
}

void TLookupTexts::readAll()
{
    TQuery texts(session(), statement);
    for (texts.Open(); !texts.Eof(); texts.Next())
        known.insert(nameOf(texts.Field(0)->Value()), texts.Field(1)->AsString());
    complete = true;
}

void TLookupTexts::forget()
{
    known.clear();
    complete = false;
}
