#include "database/history.h"
#include "database/seals.h"
#include "database/tool/keeping/native_query.h"
#include "tests/database/tool/demo_store.h"
#include "tests/support/files.h"

#include <QCryptographicHash>
#include <QFile>
#include <QRandomGenerator>

#include <iostream>

using namespace Qt::StringLiterals;

namespace {

// Some tens of flipped bits; VELMORA_FLIPS says how many, VELMORA_SEED repeats a run.
int wantedFlips()
{
    bool ok = false;
    const int wanted = qEnvironmentVariableIntValue("VELMORA_FLIPS", &ok);
    return ok ? wanted : 24;
}

quint32 seed()
{
    bool ok = false;
    const int wanted = qEnvironmentVariableIntValue("VELMORA_SEED", &ok);
    return ok ? quint32(wanted) : QRandomGenerator::global()->generate();
}

const auto silent = [](const QString &) {};

// Books that were worked in, with records that a seal covers and records that none does.
class Flips : public testing::Test {
protected:
    void SetUp() override
    {
        createDemoBooks(*place.store(), 1, silent);
        const auto fin = place.fin(), ravl = place.ravl();
        for (TDatabase *db : {fin.get(), ravl.get()})
            keepHistory(*db, {u"ona"_s, u"stotis1"_s});
        work(*fin);
        const qlonglong month = fin->fieldResult(u"select get_last_per_id() from dummy"_s).toLongLong();
        fin->ExecSQL(u"call Close_Per()"_s);
        appendSeal(*fin, TSealEvent::Close, month);
        work(*fin);
        ravl->ExecSQL(u"update bd_usr set usr_pasw = 'naujas' where usr_id = 1"_s);
        work(*fin);
    }

    static void work(TDatabase &fin)
    {
        fin.ExecSQL(u"update bd_dbkrasm set dka_tel = '8-5' where dka_id <= 40"_s);
        fin.ExecSQL(u"insert into bd_dbkrsut (dks_dkaid, dks_nr, dks_suma) values (1, 'S-1', 12.5)"_s);
    }

    // What the tables hold, read as the engine finds it; empty when it cannot be read at all. Passwords are
    // left out: the guards keep eight bits of them and no more, so that nobody can guess a former one from
    // the history.
    static QByteArray contents(const TSessionSettings &settings)
    {
        QCryptographicHash hash(QCryptographicHash::Sha256);
        try {
            TSessionSettings reading = settings;
            reading.readOnly = true;
            TDatabase db(reading);
            db.Open();
            for (const QString &table :
                 columnOf(db, u"select name from sqlite_schema where type = 'table'"_s)) {
                hash.addData(table.toUtf8());
                QStringList values;
                for (const QString &column : columnOf(
                         db,
                         u"select name from pragma_table_info('%1') where name <> 'usr_pasw'"_s.arg(table)))
                    values.append(u"quote(\"%1\")"_s.arg(column));
                eachRow(db, u"select %1 from \"%2\" not indexed"_s.arg(values.join(u" || ',' || "_s), table),
                        [&hash](const QSqlQuery &row) { hash.addData(row.value(0).toByteArray() + '\n'); });
            }
        } catch (const Exception &) {
            return {};
        }
        return hash.result();
    }

    QStringList findings()
    {
        try {
            return checkBooks(*place.store(), silent);
        } catch (const Exception &error) {
            return {error.message()};
        }
    }

    static bool engineNotices(const TSessionSettings &settings)
    {
        try {
            TSessionSettings reading = settings;
            reading.readOnly = true;
            TDatabase db(reading);
            db.Open();
            return columnOf(db, u"pragma integrity_check(1)"_s) != QStringList{u"ok"_s};
        } catch (const Exception &) {
            return true;
        }
    }

    static void flip(const QString &name, qint64 bit)
    {
        QFile file(name);
        ASSERT_TRUE(file.open(QFile::ReadWrite));
        file.seek(bit / 8);
        char byte = 0;
        file.getChar(&byte);
        file.seek(bit / 8);
        file.putChar(char(byte ^ (1 << (bit % 8))));
    }

    TestPlace place{Engine::Sqlite};
};

TEST_F(Flips, EveryBitThatChangesWhatATableHoldsIsFound)
{
    const quint32 used = seed();
    QRandomGenerator random(used);
    const TBooks books = place.store()->books();
    ASSERT_EQ(findings(), QStringList());
    int changed = 0, byEngine = 0;
    QStringList missed;
    for (const TSessionSettings &settings : {books.fin, books.ravl}) {
        const QByteArray before = contents(settings);
        const qint64 bits = QFileInfo(settings.file).size() * 8;
        const int wanted = changed + wantedFlips() / 2;
        while (changed < wanted) {
            const qint64 bit = random.bounded(bits);
            flip(settings.file, bit);
            if (contents(settings) != before) {
                ++changed;
                byEngine += engineNotices(settings);
                if (findings().isEmpty())
                    missed.append(u"%1 bit %2"_s.arg(QFileInfo(settings.file).fileName()).arg(bit));
            }
            flip(settings.file, bit);
        }
    }
    std::cout << "flips that change contents: " << changed << ", found: " << changed - missed.size()
              << ", by the engine alone: " << byEngine << ", seed " << used << '\n';
    EXPECT_EQ(missed, QStringList());
    EXPECT_EQ(findings(), QStringList());
}

} // namespace
