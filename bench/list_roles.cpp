#include "bench/list_roles.h"

#include "bench/party_books.h"
#include "host/controls/browse_frm.h"
#include "host/data/main_datas.h"
#include "toolkit/widgets/db_grid.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlTableModel>
#include <QTableView>

#include <libpq-fe.h>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

double since(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

double peakMb()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    return 0;
}

// Knows when a view has painted rows.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QAbstractItemView *watched) : view(watched)
    {
        view->viewport()->installEventFilter(this);
    }
    bool eventFilter(QObject *, QEvent *event) override
    {
        painted |= event->type() == QEvent::Paint && view->model() && view->model()->rowCount() > 0;
        return false;
    }
    void wait()
    {
        painted = false;
        view->viewport()->update();
        while (!painted)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
    }

private:
    QAbstractItemView *view;
    bool painted = false;
};

// Lets the program run until something holds; the longest time that it did not answer.
template<typename Condition> double runUntil(Condition holds)
{
    double longest = 0;
    while (!holds()) {
        QElapsedTimer timer;
        timer.start();
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
        longest = std::max(longest, since(timer));
    }
    return longest;
}

TBrowseDescription described()
{
    TBrowseDescription list;
    list.name = u"TBenchFrm"_s;
    list.caption = u"Sąrašas"_s;
    list.keyColumn = u"dka_id"_s;
    list.table = u"bd_dbkrasm"_s;
    list.sql = partyList();
    for (const char *column :
         {"DKA_PAVAD", "DKA_ID", "DKA_KOD", "DKA_ADR", "DKA_TEL", "DKA_I_KOD", "DKA_PVM_KOD", "DKA_EIN_SAS",
          "DKA_BANK_KOD", "DKA_BANK_PAV", "DKA_SASID", "DKA_KLIENT_INFSIST"})
        list.columns.push_back({.field = QString::fromLatin1(column), .title = QString::fromLatin1(column)});
    return list;
}

class TBenchFrm : public TBrowseFrm {
public:
    explicit TBenchFrm(QWidget *owner) : TBrowseFrm(described(), owner) {}
};

QString translated(const TSessionSettings &settings)
{
    TDatabase db(settings);
    db.Open();
    return db.translator().translate(partyList()).text;
}

// Keeps every value as text; the number of bytes kept.
size_t sqliteLoop(const QString &file, const QByteArray &sql)
{
    std::string kept;
    sqlite3 *db = nullptr;
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_open(file.toUtf8().constData(), &db) != SQLITE_OK ||
        sqlite3_prepare_v2(db, sql.constData(), -1, &statement, nullptr) != SQLITE_OK)
        qFatal("%s", sqlite3_errmsg(db));
    const int columns = sqlite3_column_count(statement);
    while (sqlite3_step(statement) == SQLITE_ROW)
        for (int column = 0; column < columns; ++column) {
            const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
            kept.append(text ? text : "", size_t(sqlite3_column_bytes(statement, column)));
        }
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return kept.size();
}

size_t serverLoop(const QString &words, const QByteArray &sql)
{
    std::string kept;
    PGconn *connection = PQconnectdb(words.toUtf8().constData());
    PGresult *result = PQexec(connection, sql.constData());
    if (PQresultStatus(result) != PGRES_TUPLES_OK)
        qFatal("%s", PQerrorMessage(connection));
    for (int row = 0; row < PQntuples(result); ++row)
        for (int column = 0; column < PQnfields(result); ++column)
            kept.append(PQgetvalue(result, row, column), size_t(PQgetlength(result, row, column)));
    PQclear(result);
    PQfinish(connection);
    return kept.size();
}

QJsonObject loopOver(const TSessionSettings &fin, const QByteArray &sql)
{
    QElapsedTimer timer;
    timer.start();
    const size_t bytes =
        fin.engine == Engine::Sqlite ? sqliteLoop(fin.file, sql) : serverLoop(fin.connInfo, sql);
    return {{u"all"_s, since(timer)}, {u"MB"_s, double(bytes) / 1e6}, {u"peak"_s, peakMb()}};
}

} // namespace

QJsonObject ourList(const TSessionSettings &fin, const TSessionSettings &ravl, int rows)
{
    auto datas = std::make_unique<TMainDatas>(fin, ravl);
    datas->Open();
    setMainDatas(std::move(datas));
    QJsonObject figures;
    QElapsedTimer timer;
    timer.start();
    TBenchFrm *frm = createForm<TBenchFrm>(nullptr);
    frm->show();
    PaintWatch watch(frm->grid());
    watch.wait();
    figures[u"first"_s] = since(timer);
    runUntil([frm] { return !frm->loading(); });
    figures[u"all"_s] = since(timer);
    figures[u"peak"_s] = peakMb();

    const auto measure = [&](const QString &name, const auto &action) {
        timer.restart();
        action();
        watch.wait();
        figures[name] = since(timer);
    };
    measure(u"again"_s, [&] {
        frm->RefreshData(0);
        figures[u"read"_s] = since(timer);
    });
    runUntil([frm] { return !frm->loading(); });
    measure(u"end"_s, [frm] { frm->LastBtnClick(); });
    frm->FirstBtnClick();
    timer.restart();
    frm->SetFindStr(u"nera tokio"_s);
    figures[u"search blocks"_s] = runUntil([frm] { return !frm->searching(); });
    figures[u"search"_s] = since(timer);
    measure(u"key"_s, [frm, rows] { frm->RefreshData(rows / 2); });
    measure(u"order"_s, [frm] { frm->OrderData(u"DKA_KOD"_s); });
    delete frm;
    setMainDatas(nullptr);
    return figures;
}

QJsonObject qtList(const TSessionSettings &fin)
{
    const bool embedded = fin.engine == Engine::Sqlite;
    QSqlDatabase db = QSqlDatabase::addDatabase(embedded ? u"QSQLITE"_s : u"QPSQL"_s);
    if (embedded) {
        db.setDatabaseName(fin.file);
    } else {
        const auto word = [&fin](const QString &name) {
            for (const QString &each : fin.connInfo.split(u' '))
                if (each.startsWith(name + u'='))
                    return each.mid(name.size() + 1).remove(u'\'');
            return QString();
        };
        db.setHostName(word(u"host"_s));
        db.setUserName(word(u"user"_s));
        db.setDatabaseName(word(u"dbname"_s));
        if (const int port = word(u"port"_s).toInt())
            db.setPort(port);
    }
    if (!db.open())
        qFatal("%s", qPrintable(db.lastError().text()));
    QElapsedTimer timer;
    timer.start();
    QSqlTableModel model(nullptr, db);
    model.setTable(u"bd_dbkrasm"_s);
    model.setSort(model.fieldIndex(u"dka_pavad"_s), Qt::AscendingOrder);
    QTableView view;
    view.setModel(&model);
    view.resize(820, 520);
    model.select();
    view.show();
    PaintWatch(&view).wait();
    QJsonObject figures{{u"first"_s, since(timer)}};
    while (model.canFetchMore())
        model.fetchMore();
    figures[u"all"_s] = since(timer);
    // It reads a value when it is asked for one.
    if (model.rowCount() > 0)
        model.index(model.rowCount() - 1, 1).data();
    figures[u"peak"_s] = peakMb();
    return figures;
}

QJsonObject bareLoop(const TSessionSettings &fin)
{
    return loopOver(fin, translated(fin).toUtf8());
}

QJsonObject bareFifty(const TSessionSettings &fin)
{
    return loopOver(fin, translated(fin).toUtf8() + " limit 50");
}
