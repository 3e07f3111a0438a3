#pragma once

#include "tests/support/postgres.h"

#include <QTemporaryDir>

class TDatabase;

// A server that is reached over the loopback network and shows a certificate that it signed itself. Four
// connections fill it, for others than its superuser.
class TlsServer {
public:
    TlsServer();

    static constexpr int places = 4;

    // The words to a database over the network, under a name that the certificate bears or another one.
    QString connInfo(const QString &more, const QString &name = QStringLiteral("serveris.lt")) const;
    // The file with the server's own certificate, and one with another's.
    QString ownCertificate() const;
    QString strangeCertificate() const;

    // A statement as the superuser, over the socket.
    void administer(const QString &statement) const;
    QString administered(const QString &question) const;

    void restart() { postgres.restart(); }

private:
    OwnPostgres postgres;
    QTemporaryDir files;
    QString address;
};
