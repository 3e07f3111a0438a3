#include "toolkit/data/changed_elsewhere.h"

using namespace Qt::StringLiterals;

namespace {

QString shown(const QString &text)
{
    return text.isEmpty() ? u"tuščia"_s : u'„' + text + u'“';
}

QString inCaptions(const QList<TChangedColumn> &columns)
{
    QStringList parts;
    for (const TChangedColumn &column : columns) {
        if (sameKey(column.before, column.theirs)) // only told with others
            continue;
        const QString name = column.label.isEmpty() ? QString() : column.label + u": "_s;
        parts.append(u"%1buvo %2, dabar %3"_s.arg(name, shown(column.beforeText), shown(column.theirsText)));
    }
    return u"Kita darbo vieta tuo tarpu pakeitė: %1."_s.arg(parts.join(u"; "_s));
}

} // namespace

EChangedElsewhere::EChangedElsewhere(const QList<TChangedColumn> &changed)
    : EDatabaseError(inCaptions(changed)),
      columns(changed)
{
}
