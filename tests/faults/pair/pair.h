#pragma once

#include "database/books.h"

#include <QString>

// A pair of servers under Patroni (tools/cluster) with books of its own; it goes with the object.
class Pair {
public:
    static constexpr int accounts = 200; // with an opening balance each

    Pair();
    ~Pair();
    Pair(const Pair &) = delete;
    Pair &operator=(const Pair &) = delete;

    // Starts what is down; returns when the standby follows.
    void up(bool synchronous = true);
    // Ends the leading server and its Patroni at once.
    void killLeader();
    // Kills the leading server alone; its Patroni starts it again, or the other server takes over.
    void crashServer();

    // From now on nothing reaches the standby: the process that receives stands still.
    void freezeLink();
    // What a frozen link leaves goes with its process; what had not reached the standby never will.
    void cutLink();

    // The words for both books on the pair, and on the standby alone, as somebody might give them by mistake.
    QString words() const;
    QString wordsOfStandby() const { return wordsOf(u"standby"); }
    // The main books, open.
    std::unique_ptr<TDatabase> books() const;

private:
    QString command(const QStringList &arguments) const;
    QString wordsOf(QStringView role) const;
    void createBooks() const;

    const QString folder;
    pid_t receiver = 0;
};
