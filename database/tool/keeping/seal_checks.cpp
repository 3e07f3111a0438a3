#include "database/tool/keeping/seal_checks.h"

#include "database/tool/keeping/findings.h"
#include "database/tool/keeping/native_query.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

QJsonObject objectOf(const QByteArray &text)
{
    return QJsonDocument::fromJson(text).object();
}

QString titleOf(const TSeal &seal)
{
    return u"antspaudas Nr. %1 (%2, %3)"_s.arg(seal.id).arg(QString::fromUtf8(seal.event),
                                                            QString::fromUtf8(seal.moment));
}

void checkChain(const QList<TSeal> &seals, const QString &title, QStringList &found)
{
    TFindings findings(found);
    if (seals.isEmpty())
        findings.add(u"%1: nėra nė vieno antspaudo."_s.arg(title));
    qlonglong expected = 1;
    QByteArray hashBefore;
    for (const TSeal &seal : seals) {
        const bool follows = seal.id == expected;
        for (; expected < seal.id; ++expected)
            findings.add(u"%1: dingo antspaudas Nr. %2."_s.arg(title).arg(expected));
        if (follows && seal.hash != seal.expectedHash(hashBefore))
            findings.add(u"%1: pakeistas %2."_s.arg(title, titleOf(seal)));
        hashBefore = seal.hash;
        expected = seal.id + 1;
    }
}

// Stations that write at the same moment may number their records in another order than they date them.
bool isSetBack(const QByteArray &before, const QByteArray &after)
{
    constexpr qint64 patience = 120;
    const auto moment = [](const QByteArray &text) {
        return QDateTime::fromString(QString::fromLatin1(text), u"yyyy-MM-dd hh:mm:ss.zzz"_s);
    };
    return after < before && moment(after).secsTo(moment(before)) > patience;
}

// What another program changed, as people read it.
QString toldOf(const THistoryRecord &record)
{
    const QString row =
        u"lentelės „%1“ eilutę %2"_s.arg(QString::fromUtf8(record.table), QString::fromUtf8(record.key));
    if (record.operation == "I")
        return u"įrašė "_s + row;
    if (record.operation == "D")
        return u"ištrynė "_s + row;
    if (record.operation == "R")
        return u"perkėlė lentelės „%1“ likučius (periodas %2)"_s.arg(QString::fromUtf8(record.table),
                                                                     QString::fromUtf8(record.key));
    const QJsonObject before = objectOf(record.before), after = objectOf(record.after);
    QStringList columns;
    for (auto value = after.begin(); value != after.end(); ++value)
        columns.append(u"„%1“ buvo %2, yra %3"_s.arg(value.key(),
                                                     before.value(value.key()).toVariant().toString(),
                                                     value.value().toVariant().toString()));
    return u"pakeitė %1: %2"_s.arg(row, columns.join(u"; "_s));
}

// Looks at every record once and hands it to the seal that covers it.
class TRecordCheck {
public:
    TRecordCheck(TSealCheck &aCheck, const QString &aTitle, QStringList &found, const TProgress &aProgress)
        : check(aCheck),
          title(aTitle),
          findings(found),
          progress(aProgress),
          covered(size_t(aCheck.seals.size()))
    {
        for (const TSeal &seal : check.seals) {
            sealed.push_back(TSealedRecords(seal.records));
            check.sealed.add(sealed.back().numbers);
            if (seal.accepts())
                accept(seal);
        }
    }

    void run(TDatabase &db)
    {
        eachRecord(db, u"true"_s, [this](const THistoryRecord &record) { look(record); });
        TNumbers told;
        for (size_t i = 0; i < sealed.size(); ++i) {
            if (!checkCovered(check.seals.at(qsizetype(i)), sealed[i], covered[i]))
                told.add(sealed[i].numbers);
        }
        checkSums(db, told);
        if (db.engine() == Engine::Sqlite)
            checkNumbers(db);
        tellRemarks();
    }

private:
    // A record that came before is taken as it is.
    void accept(const TSeal &seal)
    {
        accepted.add(sealed.back().numbers);
        const QString reason = objectOf(seal.totals).value(u"priezastis").toString();
        if (!reason.isEmpty())
            remarks.append(u"%1: %2 duomenys priimti tokie, kokie buvo: %3."_s.arg(
                title, QString::fromUtf8(seal.moment), reason));
    }

    // Records that a seal told of already are left out.
    void checkSums(TDatabase &db, const TNumbers &told)
    {
        for (const qlonglong number : damagedRecords(db)) {
            if (!accepted.contains(number) && !told.contains(number))
                findings.add(u"%1: pakeistas pakeitimų istorijos įrašas Nr. %2."_s.arg(title).arg(number));
        }
    }

    void look(const THistoryRecord &record)
    {
        const bool isSealed = check.sealed.contains(record.id);
        if (isSealed)
            covered[sealOf(record.id)].add(record);
        else
            check.unsealed.add(record.id);
        if (record.login.isEmpty() && !accepted.contains(record.id) && record.table != "bd_antspaudai")
            findings.add(
                u"%1: %2 kita programa %3."_s.arg(title, QString::fromUtf8(record.moment), toldOf(record)));
        if (isSetBack(momentBefore, record.moment))
            remarks.append(
                u"%1: pakeitimų istorijos įrašo Nr. %2 laikas (%3) ankstesnis už prieš jį buvusio (%4): buvo "
                "atsuktas laikrodis arba įvestas žiemos laikas."_s.arg(title)
                    .arg(record.id)
                    .arg(QString::fromUtf8(record.moment), QString::fromUtf8(momentBefore)));
        momentBefore = record.moment;
    }

    // Neighbours are mostly covered by the same seal.
    size_t sealOf(qlonglong number)
    {
        if (!sealed[lastSeal].numbers.contains(number)) {
            lastSeal = 0;
            while (!sealed[lastSeal].numbers.contains(number))
                ++lastSeal;
        }
        return lastSeal;
    }

    void tellRemarks() const
    {
        QStringList told;
        {
            TFindings first(told);
            for (const QString &remark : remarks)
                first.add(remark);
        }
        for (const QString &remark : std::as_const(told))
            progress(u"Pastaba: "_s + remark);
    }

    // Whether the records are those that the seal covers. The quotient of the two differences is the number
    // of the one record that was changed.
    bool checkCovered(const TSeal &seal, const TSealedRecords &expected, const TCoveredRecords &present)
    {
        if (present.toJson() == seal.records)
            return true;
        bool allThere = true;
        for (const auto &[from, to] : expected.numbers.runs().asKeyValueRange())
            allThere = !tellMissing(present.numbers.missing(from, to)) && allThere;
        if (!allThere)
            return false;
        const TFingerprint difference = present.print - expected.print;
        const TWideSum number = difference.values != 0 ? difference.keyed / difference.values : 0;
        if (number > 0 && number * difference.values == difference.keyed &&
            present.numbers.contains(qlonglong(number)))
            findings.add(u"%1: pakeistas pakeitimų istorijos įrašas Nr. %2, kurį saugo %3."_s.arg(title)
                             .arg(qlonglong(number))
                             .arg(titleOf(seal)));
        else
            findings.add(
                u"%1: pakeisti pakeitimų istorijos įrašai, kuriuos saugo %2."_s.arg(title, titleOf(seal)));
        return false;
    }

    bool tellMissing(const TNumbers &numbers)
    {
        for (const auto &[from, to] : numbers.runs().asKeyValueRange()) {
            if (from == to)
                findings.add(u"%1: dingo pakeitimų istorijos įrašas Nr. %2."_s.arg(title).arg(from));
            else
                findings.add(
                    u"%1: dingo pakeitimų istorijos įrašai Nr. %2–%3."_s.arg(title).arg(from).arg(to));
        }
        return !numbers.isEmpty();
    }

    // In a file numbers follow one another without a gap, and the engine keeps the last one beside the table.
    void checkNumbers(TDatabase &db)
    {
        const qlonglong last =
            columnOf(db, u"select coalesce(max(seq), 0) from sqlite_sequence where name = 'bd_istorija'"_s)
                .constFirst()
                .toLongLong();
        TNumbers present = check.sealed;
        present.add(check.unsealed);
        tellMissing(present.missing(1, last));
        if (!present.isEmpty() && present.last() > last)
            findings.add(u"%1: pakeitimų istorijos įrašas Nr. %2 įrašytas ne per programą."_s.arg(title).arg(
                present.last()));
    }

    TSealCheck &check;
    QString title;
    TFindings findings;
    QStringList remarks;
    const TProgress &progress;
    std::vector<TSealedRecords> sealed;
    std::vector<TCoveredRecords> covered;
    TNumbers accepted; // records of before a beginning
    QByteArray momentBefore;
    size_t lastSeal = 0;
};

// A seal leaves a record of itself, so neither the last seal nor its record can change unnoticed.
void checkSealRecords(TDatabase &db, const TSealCheck &check, const QString &title, QStringList &found)
{
    TFindings findings(found);
    eachRecord(db, u"ist_lentele = 'bd_antspaudai'"_s, [&](const THistoryRecord &record) {
        const qlonglong number = record.key.toLongLong();
        const auto seal = std::ranges::find(check.seals, number, &TSeal::id);
        const QJsonObject told = objectOf(record.after);
        if (seal == check.seals.end() && (check.seals.isEmpty() || number > check.seals.constLast().id))
            findings.add(u"%1: dingo antspaudas Nr. %2."_s.arg(title).arg(number));
        else if (seal != check.seals.end() &&
                 (told.value(u"ant_antspaudas").toString().toLatin1() != seal->hash ||
                  told.value(u"ant_ivykis").toString().toUtf8() != seal->event ||
                  record.moment != seal->moment || record.login != seal->login ||
                  record.station != seal->station || record.operation != "I" || !record.before.isNull() ||
                  !record.prints.isNull()))
            findings.add(
                u"%1: pakeitimų istorijos įrašas Nr. %2 ir %3 nesutampa."_s.arg(title).arg(record.id).arg(
                    titleOf(*seal)));
    });
}

// Seals that tell of months closed and not rolled back since.
QMap<qlonglong, TSeal> closedMonths(const QList<TSeal> &seals)
{
    QMap<qlonglong, TSeal> closed;
    for (const TSeal &seal : seals) {
        if (seal.event == eventText(TSealEvent::Close).toUtf8())
            closed.insert(seal.period.toLongLong(), seal);
        else if (seal.event == eventText(TSealEvent::RollBack).toUtf8())
            closed.remove(objectOf(seal.totals).value(u"einamasis").toInteger());
        else if (seal.accepts() || seal.event == eventText(TSealEvent::StartOfWork).toUtf8())
            closed.clear();
    }
    return closed;
}

QString monthTitle(TDatabase &fin, qlonglong period)
{
    const QStringList month = columnOf(
        fin,
        u"select per_metai * 100 + (per_ketv - 1) * 3 + per_menuo from bd_period where per_id = %1"_s.arg(
            period));
    if (month.isEmpty())
        return u"Mėnuo (periodas %1)"_s.arg(period);
    const int number = month.constFirst().toInt();
    return u"Mėnuo %1.%2"_s.arg(number / 100).arg(number % 100, 2, 10, QLatin1Char('0'));
}

QString totalText(const QString &name, const QJsonValue &value)
{
    return name == u"eilutes" ? QString::number(value.toInteger())
                              : QString::number(double(value.toInteger()) / 10000, 'f', 2);
}

} // namespace

TSealCheck checkSeals(TDatabase &db, const QString &title, QStringList &found, const TProgress &progress)
{
    TSealCheck check{readSeals(db)};
    checkChain(check.seals, title, found);
    TRecordCheck(check, title, found, progress).run(db);
    checkSealRecords(db, check, title, found);
    return check;
}

void checkSealedMonths(TDatabase &fin, const TSealCheck &check, QStringList &found)
{
    TFindings findings(found);
    for (const auto &[period, seal] : closedMonths(check.seals).asKeyValueRange()) {
        const QJsonObject then = objectOf(seal.totals).value(u"uzdarytas").toObject();
        const QJsonObject now = monthTotals(fin, period);
        for (auto table = then.begin(); table != then.end(); ++table) {
            const QJsonObject before = table.value().toObject(), after = now.value(table.key()).toObject();
            for (auto total = before.begin(); total != before.end(); ++total) {
                if (after.value(total.key()) != total.value())
                    findings.add(
                        u"%1 nebe toks, koks buvo uždarytas: lentelės „%2“ %3 buvo %4, yra %5."_s.arg(
                            monthTitle(fin, period), table.key(), total.key(),
                            totalText(total.key(), total.value()),
                            totalText(total.key(), after.value(total.key()))));
            }
        }
    }
    if (check.seals.isEmpty())
        return;
    const QString sealed =
        objectOf(check.seals.constLast().totals).value(u"einamasis").toVariant().toString();
    const QString current = columnOf(fin, u"select cast(get_last_per_id() as varchar(20))"_s).constFirst();
    if (sealed != current)
        findings.add(
            u"Einamasis mėnuo pakeistas be antspaudo: pagal paskutinį antspaudą periodas %1, yra %2."_s.arg(
                sealed.isEmpty() ? u"nenustatytas"_s : sealed,
                current.isEmpty() ? u"nenustatytas"_s : current));
}
