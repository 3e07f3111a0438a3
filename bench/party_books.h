#pragma once

#include "database/tool/keeping/store.h"

// Books with as many counterparties as asked, in every column of theirs; none: with nothing in them.
class PartyBooks {
public:
    PartyBooks(Engine engine, int rows);
    ~PartyBooks();
    PartyBooks(const PartyBooks &) = delete;
    PartyBooks &operator=(const PartyBooks &) = delete;

    const TBooks &books() const;
    // Milliseconds that statements take in the engine's own shell, its start included.
    double inShell(const QByteArray &statements) const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

// The register's list in the order of names, with twelve columns.
QString partyList();
