#include "tests/faults/tls_server.h"

#include "tests/support/engines.h"

#include <QFile>
#include <QProcess>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

// Any address of the loopback network is this machine's; one of its own keeps a server's port free.
QString ownAddress()
{
    auto *random = QRandomGenerator::global();
    return u"127.%1.%2.%3"_s.arg(random->bounded(1, 255))
        .arg(random->bounded(256))
        .arg(random->bounded(1, 255));
}

QString certificateCommand(const QString &name, const QString &folder)
{
    return u"openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=%1 -addext subjectAltName=DNS:%1 "
           "-keyout %2server.key -out %2server.crt"_s.arg(name, folder);
}

} // namespace

TlsServer::TlsServer() : address(ownAddress())
{
    // The server's own process makes what only its owner may read.
    administer(u"copy (select 1) to program '%1 2>/dev/null && chmod 600 server.key'"_s.arg(
        certificateCommand(u"serveris.lt"_s, {})));
    administer(u"copy (select 'host all all 127.0.0.0/8 trust') to program 'cat >>pg_hba.conf'"_s);
    administer(u"create role jungiasi login"_s);
    administer(u"create role saugomas login password 'slaptas'"_s);
    administer(u"create role be_teises login"_s);
    administer(u"alter system set listen_addresses = '%1'"_s.arg(address));
    administer(u"alter system set ssl = on"_s);
    administer(u"alter system set max_connections = %1"_s.arg(places + 3)); // three are the superuser's
    postgres.restart();
    const QString certificate = administered(u"select pg_read_file('server.crt')"_s);
    QFile own(ownCertificate());
    if (!own.open(QIODevice::WriteOnly) || own.write(certificate.toLatin1()) <= 0)
        qFatal("the certificate was not written");
    own.close();
    if (QProcess::execute(u"sh"_s, {u"-c"_s, certificateCommand(u"kitas.lt"_s, files.path() + u'/') +
                                                 u" 2>/dev/null"_s}) != 0)
        qFatal("openssl made no certificate");
}

QString TlsServer::connInfo(const QString &more, const QString &name) const
{
    return u"host=%1 hostaddr=%2 port=5432 dbname=postgres %3"_s.arg(name, address, more);
}

QString TlsServer::ownCertificate() const
{
    return files.filePath(u"own.crt"_s);
}

QString TlsServer::strangeCertificate() const
{
    return files.filePath(u"server.crt"_s);
}

void TlsServer::administer(const QString &statement) const
{
    TSessionSettings settings{.alias = u"server"_s, .engine = Engine::PostgreSql};
    settings.connInfo = postgres.superuserConnInfo(u"postgres"_s);
    TDatabase server(settings);
    server.Open();
    server.nativeExec(statement);
}

QString TlsServer::administered(const QString &question) const
{
    TSessionSettings settings{.alias = u"server"_s, .engine = Engine::PostgreSql};
    settings.connInfo = postgres.superuserConnInfo(u"postgres"_s);
    TDatabase server(settings);
    server.Open();
    return nativeValue(server, question);
}
