#include "database/seals.h"

#include "database/native_sql.h"
#include "database/value_prints.h"
#include "toolkit/data/statement.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

QByteArray compact(const QJsonObject &json)
{
    return QJsonDocument(json).toJson(QJsonDocument::Compact);
}

QJsonObject objectOf(const QByteArray &text)
{
    return QJsonDocument::fromJson(text).object();
}

// The length in front keeps neighbours apart.
void addPart(QCryptographicHash &hash, const QByteArray &part)
{
    hash.addData(part.isNull() ? QByteArray("-") : QByteArray::number(part.size()) + ':');
    hash.addData(part);
}

QByteArray bytesOf(const TStatement &statement, int column)
{
    return statement.isNull(column) ? QByteArray() : statement.utf8(column).toByteArray();
}

Variant orNull(const QByteArray &text)
{
    return text.isNull() ? Variant() : Variant(QString::fromUtf8(text));
}

// Who and when, as the history says it.
void signSeal(TDatabase &db, TSeal &seal)
{
    const auto signer =
        nativeQuery(db, db.engine() == Engine::Sqlite
                            ? u"select sys_dabar(), nullif(sys_login(), ''), nullif(sys_stotis(), '')"_s
                            : u"select laikas, login, stotis from sys_kas_keicia()"_s);
    if (!signer->next())
        return;
    seal.moment = bytesOf(*signer, 0);
    seal.login = bytesOf(*signer, 1);
    seal.station = bytesOf(*signer, 2);
}

bool takesContents(TSealEvent event)
{
    return event == TSealEvent::Beginning || event == TSealEvent::Accepted;
}

// Another station's seal comes wholly before or after; where the contents are read table by table nobody may
// write at all. A file has one writer anyway.
void lockForSeal(TDatabase &db, TSealEvent event)
{
    if (db.engine() == Engine::Sqlite)
        return;
    db.nativeExec(u"lock table bd_antspaudai in share row exclusive mode"_s);
    if (takesContents(event) || event == TSealEvent::Upgrade)
        db.nativeExec(u"lock table %1 in share mode"_s.arg(fingerprintedTables(db).join(u", ")));
}

// The records that no seal covers yet. Where transactions overlap, a record may have a lower number than
// those that an earlier seal covers.
void addUncovered(TDatabase &db, const TNumbers &covered, TCoveredRecords &to)
{
    const qlonglong last = covered.isEmpty() ? 0 : covered.last();
    const TNumbers gaps = covered.missing(1, last);
    QStringList late;
    for (const auto &[from, until] : gaps.runs().asKeyValueRange()) {
        for (qlonglong number = from; number <= until; ++number)
            late.append(QString::number(number));
    }
    const auto addThose = [&](const QString &condition) {
        eachRecord(db, condition, [&to](const THistoryRecord &record) { to.add(record); });
    };
    if (!late.isEmpty())
        addThose(u"ist_id in (%1)"_s.arg(late.join(u", ")));
    addThose(u"ist_id > %1"_s.arg(last));
}

bool hasMonths(TDatabase &db)
{
    return !db.columnsOf(u"bd_period"_s).isEmpty();
}

void store(TDatabase &db, const TSeal &seal)
{
    db.ExecSQL(
        u"insert into bd_antspaudai (ant_id, ant_laikas, ant_login, ant_stotis, ant_ivykis, ant_perid, "
        "ant_irasai, ant_sumos, ant_bukle, ant_antspaudas) values (:id, :laikas, :login, :stotis, :ivykis, "
        ":perid, :irasai, :sumos, :bukle, :antspaudas)"_s,
        {{u"id"_s, seal.id},
         {u"laikas"_s, orNull(seal.moment)},
         {u"login"_s, orNull(seal.login)},
         {u"stotis"_s, orNull(seal.station)},
         {u"ivykis"_s, orNull(seal.event)},
         {u"perid"_s, seal.period.isNull() ? Variant() : Variant(seal.period.toLongLong())},
         {u"irasai"_s, orNull(seal.records)},
         {u"sumos"_s, orNull(seal.totals)},
         {u"bukle"_s, orNull(seal.state)},
         {u"antspaudas"_s, orNull(seal.hash)}});
}

QString quotedOrNull(const QByteArray &text)
{
    return text.isNull() ? u"null"_s : TDatabase::quoted(QString::fromUtf8(text));
}

// A record of history tells of the seal, so that the last one cannot be removed unseen. On a server a trigger
// writes it.
void record(TDatabase &db, const TSeal &seal)
{
    if (db.engine() != Engine::Sqlite)
        return;
    const QJsonObject told{{u"ant_ivykis"_s, QString::fromUtf8(seal.event)},
                           {u"ant_antspaudas"_s, QString::fromUtf8(seal.hash)}};
    db.nativeExec(TRecordSql{.moment = quotedOrNull(seal.moment),
                             .login = quotedOrNull(seal.login),
                             .station = quotedOrNull(seal.station),
                             .table = u"'bd_antspaudai'"_s,
                             .key = TDatabase::quoted(QString::number(seal.id)),
                             .operation = u"'I'"_s,
                             .after = quotedOrNull(compact(told))}
                      .text());
}

// What a seal is made for.
struct TCause {
    TSealEvent event;
    std::optional<qlonglong> period = {};
    QString reason = {};
    TBookFingerprint before = {}; // of an upgrade
};

// The current month is told, so that a month closed without a seal shows.
QByteArray totalsOf(TDatabase &db, const TCause &cause)
{
    QJsonObject totals;
    if (!cause.reason.isEmpty())
        totals.insert(u"priezastis"_s, cause.reason);
    if (hasMonths(db)) {
        const Variant current = db.fieldResult(u"select get_last_per_id() from dummy"_s);
        totals.insert(u"einamasis"_s, current.isNull() ? QJsonValue() : QJsonValue(current.toLongLong()));
        if (cause.event == TSealEvent::Close && cause.period)
            totals.insert(u"uzdarytas"_s, monthTotals(db, *cause.period));
    }
    return compact(totals);
}

QByteArray stateAfter(TDatabase &db, const TCause &cause, const QByteArray &before, const TNumbers &records)
{
    if (takesContents(cause.event))
        return compact(toJson(fingerprintOf(db)));
    TBookFingerprint state = bookFingerprint(objectOf(before));
    add(state, changedByHistory(db, records));
    if (cause.event == TSealEvent::Upgrade)
        addDifference(state, fingerprintOf(db), cause.before);
    return compact(toJson(state));
}

void append(TDatabase &db, const TCause &cause)
{
    TTransaction transaction(&db);
    lockForSeal(db, cause.event);
    const QList<TSeal> before = readSeals(db);
    const TSeal last = before.isEmpty() ? TSeal() : before.constLast();
    TNumbers covered;
    for (const TSeal &seal : before)
        covered.add(TSealedRecords(seal.records).numbers);
    TCoveredRecords records;
    addUncovered(db, covered, records);

    TSeal seal{last.id + 1};
    signSeal(db, seal);
    seal.event = eventText(cause.event).toUtf8();
    seal.period = cause.period ? QByteArray::number(*cause.period) : QByteArray();
    seal.records = records.toJson();
    seal.totals = totalsOf(db, cause);
    seal.state = stateAfter(db, cause, last.state, records.numbers);
    seal.hash = seal.expectedHash(last.hash);
    store(db, seal);
    record(db, seal);
    transaction.commit();
}

} // namespace

QString eventText(TSealEvent event)
{
    switch (event) {
    case TSealEvent::Beginning:
        return u"pradinis"_s;
    case TSealEvent::Accepted:
        return u"priimta"_s;
    case TSealEvent::Upgrade:
        return u"atnaujinimas"_s;
    case TSealEvent::Close:
        return u"uždarymas"_s;
    case TSealEvent::RollBack:
        return u"atšaukimas"_s;
    case TSealEvent::StartOfWork:
        return u"darbo pradžia"_s;
    case TSealEvent::SetUp:
        return u"parengimas"_s;
    }
    Q_UNREACHABLE();
}

QByteArray TSeal::expectedHash(const QByteArray &hashBefore) const
{
    QCryptographicHash hashing(QCryptographicHash::Sha256);
    for (const QByteArray &part :
         {hashBefore, QByteArray::number(id), moment, login, station, event, period, records, totals, state})
        addPart(hashing, part);
    return hashing.result().toHex();
}

bool TSeal::accepts() const
{
    return event == eventText(TSealEvent::Beginning).toUtf8() ||
           event == eventText(TSealEvent::Accepted).toUtf8();
}

QList<TSeal> readSeals(TDatabase &db)
{
    const auto statement = nativeQuery(
        db, u"select ant_id, ant_laikas, ant_login, ant_stotis, ant_ivykis, cast(ant_perid as varchar(20)), "
            "ant_irasai, ant_sumos, ant_bukle, ant_antspaudas from bd_antspaudai order by ant_id"_s);
    QList<TSeal> seals;
    while (statement->next()) {
        TSeal seal{statement->integer(0)};
        int column = 0;
        for (QByteArray *part : {&seal.moment, &seal.login, &seal.station, &seal.event, &seal.period,
                                 &seal.records, &seal.totals, &seal.state, &seal.hash})
            *part = bytesOf(*statement, ++column);
        seals.append(seal);
    }
    return seals;
}

void TCoveredRecords::add(const THistoryRecord &record)
{
    const QByteArray wording = record.wording();
    const TWideSum value = textPrint(wording);
    numbers.add(record.id);
    print += {value, value * record.id};
    addPart(hash, wording);
}

QByteArray TCoveredRecords::toJson() const
{
    const QJsonObject prints = ::toJson(TTableFingerprint{{u"irasai"_s, print}});
    return compact({{u"intervalai"_s, numbers.toJson()},
                    {u"pedsakas"_s, prints},
                    {u"sha256"_s, QString::fromLatin1(hash.result().toHex())}});
}

TSealedRecords::TSealedRecords(const QByteArray &json)
    : numbers(TNumbers::fromJson(objectOf(json).value(u"intervalai").toArray())),
      print(tableFingerprint(objectOf(json).value(u"pedsakas").toObject()).value(u"irasai"_s))
{
}

// Amounts in ten thousandths: whole numbers are worded alike on both engines.
QJsonObject monthTotals(TDatabase &fin, qlonglong period)
{
    struct TTable {
        QString name, period;
        QStringList amounts;
    };
    static const QList<TTable> tables{{u"bd_saslik"_s, u"ssl_perid"_s, {u"ssl_sum_db"_s, u"ssl_sum_kr"_s}},
                                      {u"bd_irasai"_s, u"irs_perid"_s, {u"irs_sum_db"_s, u"irs_sum_kr"_s}}};
    QJsonObject totals;
    for (const TTable &table : tables) {
        QStringList sums{u"count(*)"_s};
        for (const QString &amount : table.amounts)
            sums.append(u"cast(round(coalesce(sum(%1), 0) * 10000) as bigint)"_s.arg(amount));
        const auto row = nativeQuery(
            fin,
            u"select %1 from %2 where %3 = %4"_s.arg(sums.join(u", "), table.name, table.period).arg(period));
        row->next();
        QJsonObject of{{u"eilutes"_s, row->integer(0)}};
        for (int i = 0; i < table.amounts.size(); ++i)
            of.insert(table.amounts.at(i), row->integer(i + 1));
        totals.insert(table.name, of);
    }
    return totals;
}

bool leavesRecords(TDatabase &db)
{
    const auto answer =
        nativeQuery(db, db.engine() == Engine::Sqlite
                            ? u"select sys_istorija()"_s
                            : u"select (coalesce(current_setting('velmora.login', true), '') <> '' and "
                              "coalesce(current_setting('velmora.rutina', true), '') = '')::int"_s);
    return answer->next() && answer->integer(0) != 0;
}

void appendSeal(TDatabase &db, TSealEvent event, std::optional<qlonglong> period)
{
    append(db, {event, period});
}

void acceptContents(TDatabase &db, const QString &reason)
{
    append(db, {.event = TSealEvent::Accepted, .reason = reason});
}

TBookFingerprint contentsBeforeUpgrade(TDatabase &db)
{
    lockForSeal(db, TSealEvent::Upgrade);
    return fingerprintOf(db);
}

void sealUpgrade(TDatabase &db, const TBookFingerprint &before)
{
    append(db, {.event = TSealEvent::Upgrade, .before = before});
}
