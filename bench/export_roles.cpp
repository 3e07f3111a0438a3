#include "bench/export_roles.h"

#include "toolkit/export/line_buffer.h"
#include "toolkit/export/table_export.h"
#include "toolkit/text/code_page.h"

#include <QElapsedTimer>
#include <QFile>

#include <charconv>
#include <fcntl.h>
#include <libpq-fe.h>
#include <sqlite3.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

const char exportedTable[] = "bd_eksportas";

QStringList exportedColumns()
{
    return {u"eks_id"_s,   u"eks_kodas"_s, u"eks_pavad"_s,  u"eks_adresas"_s,
            u"eks_data"_s, u"eks_suma"_s,  u"eks_kiekis"_s, u"eks_pastaba"_s};
}

namespace {

// The kinds of the columns, as their values are written.
enum class Kind { Text, Date, Amount };
constexpr Kind kinds[] = {Kind::Text, Kind::Text,   Kind::Text, Kind::Text,
                          Kind::Date, Kind::Amount, Kind::Text, Kind::Text};
constexpr int columns = 8;

double megabytes(const char *name)
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n'))
        if (line.startsWith(name))
            return line.sliced(qstrlen(name)).trimmed().split(' ').first().toDouble() / 1024;
    return 0;
}

// The time and the memory of what is done between its making and figures().
class Measure {
public:
    Measure() { clock.start(); }
    QJsonObject figures() const
    {
        return {{u"all"_s, double(clock.nsecsElapsed()) / 1e6}, {u"peak"_s, megabytes("VmHWM:") - before}};
    }

private:
    double before = megabytes("VmRSS:");
    QElapsedTimer clock;
};

// A file written in portions and brought to the disk at the end.
class BareFile {
public:
    explicit BareFile(const QString &name)
        : handle(::open(QFile::encodeName(name).constData(), O_CREAT | O_TRUNC | O_WRONLY, 0600))
    {
    }
    ~BareFile()
    {
        write();
        ::fsync(handle);
        ::close(handle);
    }
    BareFile(const BareFile &) = delete;
    BareFile &operator=(const BareFile &) = delete;

    void value(Kind kind, const char *text, int size)
    {
        char *const out = bytes.room(size);
        bytes.end(toCodePage(out, QByteArrayView(text, size)).end);
        if (kind == Kind::Date && size > 0)
            out[4] = out[7] = '.';
    }
    void amount(double number)
    {
        char *const out = bytes.room(64);
        bytes.end(std::to_chars(out, out + 64, number, std::chars_format::fixed).ptr);
    }
    void begin() { bytes.append(head); }
    void next() { bytes.append("','"); }
    void end()
    {
        bytes.append("');\n");
        if (bytes.size() > 262144)
            write();
    }

private:
    void write()
    {
        if (::write(handle, bytes.view().data(), size_t(bytes.size())) != bytes.size())
            qFatal("the file cannot be written");
        bytes.clear();
    }

    const int handle;
    const QByteArray head =
        u"insert into %1(%2) values('"_s.arg(QLatin1String(exportedTable), exportedColumns().join(u','))
            .toUtf8();
    TLineBuffer bytes{300000};
};

QByteArray statement()
{
    return selectOf(QLatin1String(exportedTable), exportedColumns()).toUtf8();
}

QJsonObject bareSqlite(const TSessionSettings &settings, const QString &name)
{
    sqlite3 *db = nullptr;
    if (sqlite3_open_v2(settings.file.toUtf8(), &db, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr) !=
        SQLITE_OK)
        qFatal("%s", sqlite3_errmsg(db));
    const Measure measure;
    {
        BareFile file(name);
        sqlite3_stmt *rows = nullptr;
        sqlite3_prepare_v2(db, statement(), -1, &rows, nullptr);
        while (sqlite3_step(rows) == SQLITE_ROW) {
            file.begin();
            for (int column = 0; column < columns; ++column) {
                if (column > 0)
                    file.next();
                if (kinds[column] == Kind::Amount)
                    file.amount(sqlite3_column_double(rows, column));
                else
                    file.value(kinds[column],
                               reinterpret_cast<const char *>(sqlite3_column_text(rows, column)),
                               sqlite3_column_bytes(rows, column));
            }
            file.end();
        }
        sqlite3_finalize(rows);
    }
    const QJsonObject figures = measure.figures();
    sqlite3_close(db);
    return figures;
}

void writePiece(BareFile &file, const PGresult *piece)
{
    for (int row = 0; row < PQntuples(piece); ++row) {
        file.begin();
        for (int column = 0; column < columns; ++column) {
            if (column > 0)
                file.next();
            const char *text = PQgetvalue(piece, row, column);
            const int size = PQgetlength(piece, row, column);
            if (kinds[column] == Kind::Amount) {
                double number = 0;
                std::from_chars(text, text + size, number);
                file.amount(number);
            } else {
                file.value(kinds[column], text, size);
            }
        }
        file.end();
    }
}

// In pieces, so that the table is never in memory.
QJsonObject bareServer(const TSessionSettings &settings, const QString &name)
{
    PGconn *const conn = PQconnectdb(settings.connInfo.toUtf8());
    const Measure measure;
    {
        BareFile file(name);
        PQclear(PQexec(conn, "begin"));
        PQclear(PQexec(conn, "declare c no scroll cursor for " + statement()));
        for (bool more = true; more;) {
            PGresult *const piece = PQexec(conn, "fetch 2000 from c");
            if (PQresultStatus(piece) != PGRES_TUPLES_OK)
                qFatal("%s", PQerrorMessage(conn));
            writePiece(file, piece);
            more = PQntuples(piece) == 2000;
            PQclear(piece);
        }
        PQclear(PQexec(conn, "commit"));
    }
    const QJsonObject figures = measure.figures();
    PQfinish(conn);
    return figures;
}

} // namespace

QJsonObject ourExport(const TSessionSettings &settings, const QString &file, bool escaped)
{
    TDatabase database(settings);
    database.Open();
    const Measure measure;
    (escaped ? exportForReplay : exportTable)(database, {QLatin1String(exportedTable), exportedColumns()},
                                              file);
    return measure.figures();
}

QJsonObject bareExport(const TSessionSettings &settings, const QString &file)
{
    return settings.engine == Engine::Sqlite ? bareSqlite(settings, file) : bareServer(settings, file);
}
