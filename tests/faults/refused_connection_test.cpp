#include "tests/faults/raised.h"
#include "tests/faults/tls_server.h"
#include "tests/support/engines.h"
#include "toolkit/data/server_link.h"

#include <QTest>

using namespace Qt::StringLiterals;

// What a server, or the way to it, refuses is told in words that help.

namespace {
class RefusedConnection : public testing::Test {
protected:
    static void SetUpTestSuite() { server = std::make_unique<TlsServer>(); }
    static void TearDownTestSuite() { server.reset(); }

    static std::unique_ptr<TDatabase> session(const QString &connInfo)
    {
        TSessionSettings settings{.alias = u"mnFin_Db"_s, .engine = Engine::PostgreSql};
        settings.connInfo = connInfo;
        return std::make_unique<TDatabase>(settings);
    }
    static QString refusal(const QString &words, const QString &name = u"serveris.lt"_s)
    {
        return raised<EConnectionLost>([&] { session(server->connInfo(words, name))->Open(); });
    }
    static QString checked(const QString &mode, const QString &certificate)
    {
        return u"user=jungiasi sslmode=%1 sslrootcert=%2"_s.arg(mode, certificate);
    }
    // The line of the server's list of who may connect, before all others.
    static void admit(const QString &line)
    {
        server->administer(u"copy (select '%1') to program "
                           "'(cat; cat pg_hba.conf) >pg_hba.new && mv pg_hba.new pg_hba.conf'"_s.arg(line));
        server->administer(u"select pg_reload_conf()"_s);
    }

    // A session that was closed keeps its place for a moment.
    static void waitUntilConnected(int count)
    {
        const QString counted = u"select count(*)::text from pg_stat_activity where usename = 'jungiasi'"_s;
        constexpr int patience = 30'000;
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return server->administered(counted).toInt() == count; }, patience));
    }

    static std::unique_ptr<TlsServer> server;
};
std::unique_ptr<TlsServer> RefusedConnection::server;
} // namespace

TEST_F(RefusedConnection, TheWayToTheServerIsKnown)
{
    const auto safe = session(server->connInfo(checked(u"verify-full"_s, server->ownCertificate())));
    EXPECT_FALSE(serverLink(*safe));
    safe->Open();
    ASSERT_TRUE(serverLink(*safe));
    EXPECT_EQ(serverLink(*safe)->server, u"serveris.lt");
    EXPECT_TRUE(serverLink(*safe)->encryption.startsWith(u"TLSv1."));
    const auto bare = session(server->connInfo(u"user=jungiasi sslmode=disable"_s));
    bare->Open();
    EXPECT_EQ(serverLink(*bare)->encryption, u"");
    EXPECT_TRUE(serverLink(*bare)->onThisMachine);
    EXPECT_FALSE(serverLink(*bare)->isOpenToOthers());
    EXPECT_TRUE((TServerLink{.server = u"kitur"_s}.isOpenToOthers()));
}

TEST_F(RefusedConnection, ACertificateThatIsNotTrusted)
{
    EXPECT_TRUE(
        tells(refusal(checked(u"verify-ca"_s, server->strangeCertificate())), u"liudijimas nepatikimas"_s));
}

TEST_F(RefusedConnection, ACertificateOfAnotherName)
{
    EXPECT_TRUE(tells(refusal(checked(u"verify-full"_s, server->ownCertificate()), u"kitas.lt"_s),
                      u"ne šiam serverio vardui"_s));
}

TEST_F(RefusedConnection, AMissingFileOfCertificates)
{
    EXPECT_TRUE(tells(refusal(checked(u"verify-full"_s, u"/nera/tokio.crt"_s)), u"sslrootcert"_s));
}

TEST_F(RefusedConnection, APasswordThatIsWrongOrNoLongerValid)
{
    admit(u"host all saugomas 127.0.0.0/8 scram-sha-256"_s);
    EXPECT_TRUE(
        tells(refusal(u"user=saugomas password=kitas"_s), u"slaptažodžio, arba slaptažodis nebegalioja"_s));
    session(server->connInfo(u"user=saugomas password=slaptas"_s))->Open();
    server->administer(u"alter role saugomas valid until '2001-01-01'"_s);
    EXPECT_TRUE(tells(refusal(u"user=saugomas password=slaptas"_s), u"slaptažodis nebegalioja"_s));
}

TEST_F(RefusedConnection, ARoleOrADatabaseThatIsNotThere)
{
    EXPECT_TRUE(tells(refusal(u"user=nera_tokio"_s), u"nėra tokios duomenų bazės arba tokio naudotojo"_s));
    EXPECT_TRUE(tells(refusal(u"user=jungiasi dbname=nera_tokios"_s), u"nėra tokios duomenų bazės"_s));
}

TEST_F(RefusedConnection, ARoleThatMayNotConnect)
{
    server->administer(u"revoke connect on database postgres from public"_s);
    EXPECT_TRUE(tells(refusal(u"user=be_teises"_s), u"ši duomenų bazė neprieinama"_s));
    server->administer(u"grant connect on database postgres to public"_s);
    admit(u"host all be_teises 127.0.0.0/8 reject"_s);
    EXPECT_TRUE(tells(refusal(u"user=be_teises"_s), u"neleidžia jungtis iš šios darbo vietos"_s));
}

TEST_F(RefusedConnection, AServerThatIsFull)
{
    waitUntilConnected(0);
    std::vector<std::unique_ptr<TDatabase>> stations;
    for (int i = 0; i < TlsServer::places; ++i) {
        stations.push_back(session(server->connInfo(u"user=jungiasi"_s)));
        stations.back()->Open();
    }
    EXPECT_TRUE(tells(refusal(u"user=jungiasi"_s), u"tiek kartų, kiek jis leidžia"_s));
    stations.pop_back();
    waitUntilConnected(TlsServer::places - 1);
    session(server->connInfo(u"user=jungiasi"_s))->Open();
}

// The last one: it takes the encryption away.
TEST_F(RefusedConnection, EncryptionThatOnlyOneSideWants)
{
    admit(u"hostnossl all jungiasi 127.0.0.0/8 reject"_s);
    EXPECT_TRUE(tells(refusal(u"user=jungiasi sslmode=disable"_s), u"nešifruotu ryšiu"_s));
    server->administer(u"alter system set ssl = off"_s);
    server->restart();
    EXPECT_TRUE(tells(refusal(checked(u"require"_s, {})), u"nešifruoja ryšio"_s));
}
