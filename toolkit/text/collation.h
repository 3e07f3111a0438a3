#pragma once

#include <QString>

// The sort key of people's text: comparing two keys by code point orders the texts as Lithuanian does.
// Upper case; ą ę ė į y ų ū count as a e e i i u u, and č š ž stand after c s z. Both engines build the same
// key, so a list has one order everywhere. Equal keys are ordered by the texts themselves, by code point.
QString lithuanianSortKey(const QString &text);

// The text for searching: the sort key's letters without diacritics (č š ž as c s z).
QString foldForSearch(const QString &text);
