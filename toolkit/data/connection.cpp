#include "toolkit/data/connection.h"

#include "toolkit/data/server_module.h"
#include "toolkit/data/sqlite_connection.h"

#include <QAtomicInt>
#include <QSqlDriver>

#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 beatIntervalMs = 40;
constexpr double wholeLimit = 9007199254740992.0; // 2^53

QString uniqueName(const TSessionSettings &settings)
{
    static QAtomicInt counter;
    return u"%1#%2"_s.arg(settings.alias).arg(++counter);
}

bool beating = false;
int quiet = 0;

} // namespace

bool BusyBeat::isBeating()
{
    return beating;
}

BusyBeat::Quiet::Quiet()
{
    ++quiet;
}

BusyBeat::Quiet::~Quiet()
{
    --quiet;
}

TDatabase::BusyHook &BusyBeat::hook()
{
    static TDatabase::BusyHook theHook;
    return theHook;
}

void BusyBeat::start()
{
    sinceStart.start();
    lastBeatMs = 0;
}

void BusyBeat::beat()
{
    const qint64 now = sinceStart.elapsed();
    if (beating || quiet > 0 || !hook() || now - lastBeatMs < beatIntervalMs)
        return;
    lastBeatMs = now;
    beating = true;
    hook()();
    beating = false;
}

EngineConnection::EngineConnection(TSessionSettings theSettings, TDatabase::Connection theUse)
    : settings(std::move(theSettings)),
      use(theUse)
{
}

EngineConnection::~EngineConnection() = default;

std::shared_ptr<EngineConnection> EngineConnection::create(const TSessionSettings &settings,
                                                           TDatabase::Connection use)
{
    if (settings.engine == Engine::Sqlite)
        return std::make_shared<SqliteConnection>(settings, use);
    return serverConnection(settings, use);
}

void EngineConnection::end()
{
    permitted = false;
    close();
}

void EngineConnection::checkPermitted() const
{
    if (!permitted)
        throw EDatabaseError(u"Duomenų bazės sesija „%1“ uždaryta."_s.arg(settings.alias));
}

void EngineConnection::runOpeningScript()
{
    if (!firstScript.isEmpty())
        run(firstScript);
}

void *EngineConnection::nativeHandle() const
{
    const QVariant handle = database.driver()->handle();
    return handle.isValid() ? *static_cast<void *const *>(handle.constData()) : nullptr;
}

void EngineConnection::addDatabase(const QString &driver)
{
    database = QSqlDatabase::addDatabase(driver, uniqueName(settings));
    if (!database.isValid())
        throw EDatabaseError(u"Nerasta duomenų bazės tvarkyklė „%1“."_s.arg(driver));
}

void EngineConnection::removeDatabase()
{
    const QString name = database.connectionName();
    database.close();
    database = {};
    QSqlDatabase::removeDatabase(name);
}

void checkBindable(const QString &parameter, const Variant &value)
{
    const int type = value.typeId();
    if (type == QMetaType::QString && value.toString().contains(QChar(0)))
        throw EDatabaseError(u"Reikšmėje „%1“ yra neleistinas nulinis ženklas."_s.arg(parameter));
    if ((type == QMetaType::Double || type == QMetaType::Float) && !std::isfinite(value.toDouble()))
        throw EDatabaseError(u"Reikšmė „%1“ nėra baigtinis skaičius."_s.arg(parameter));
}

bool isNothing(const Variant &value)
{
    if (value.typeId() == QMetaType::QDate)
        return value.toDate().isNull();
    if (value.typeId() == QMetaType::QDateTime)
        return value.toDateTime().isNull();
    return value.isNull();
}

int parameterPosition(const TranslatedSql &sql, const QString &name)
{
    for (qsizetype i = 0; i < sql.parameters.size(); ++i) {
        if (sql.parameters.at(i).compare(name, Qt::CaseInsensitive) == 0)
            return int(i);
    }
    throw EDatabaseError(u"Sakinyje nėra parametro „%1“."_s.arg(name), {}, sql.text);
}

std::optional<qlonglong> wholeNumber(double value)
{
    if (std::abs(value) < wholeLimit && std::trunc(value) == value)
        return qlonglong(value);
    return {};
}

double numberOf(QByteArrayView text)
{
    double result = 0;
    std::from_chars(text.data(), text.data() + text.size(), result);
    return result;
}

namespace {

// Year, month and day; zeros for what is not written so.
struct DayParts {
    int year = 0, month = 0, day = 0;
};

DayParts dayParts(QByteArrayView text)
{
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return {};
    const auto digits = [text](int from, int count) {
        int number = 0;
        for (int i = from; i < from + count; ++i) {
            if (text[i] < '0' || text[i] > '9')
                return -1;
            number = number * 10 + (text[i] - '0');
        }
        return number;
    };
    const DayParts parts{digits(0, 4), digits(5, 2), digits(8, 2)};
    return parts.year < 0 ? DayParts() : parts; // there are years before the first one
}

} // namespace

QDate dateOf(QByteArrayView text)
{
    const DayParts parts = dayParts(text);
    return QDate(parts.year, parts.month, parts.day);
}

bool isDay(QByteArrayView text)
{
    const DayParts parts = dayParts(text);
    return QDate::isValid(parts.year, parts.month, parts.day);
}

QDateTime momentOf(QByteArrayView text)
{
    return QDateTime::fromString(QString::fromUtf8(text.toByteArray()).replace(u' ', u'T'),
                                 Qt::ISODateWithMs);
}

QByteArray isoText(const Variant &dateOrMoment)
{
    if (dateOrMoment.typeId() == QMetaType::QDate)
        return dateOrMoment.toDate().toString(Qt::ISODate).toLatin1();
    return dateOrMoment.toDateTime().toString(u"yyyy-MM-dd HH:mm:ss.zzz").toLatin1();
}
