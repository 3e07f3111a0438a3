#pragma once

#include "bench/bench_books.h"

// Books with as many counterparties as asked, in every column of theirs; none: with nothing in them.
class PartyBooks {
public:
    PartyBooks(Engine engine, int rows);

    const TBooks &books() const { return place.books(); }
    // Milliseconds that statements take in the engine's own shell, its start included.
    double inShell(const QByteArray &statements) const;

private:
    const BenchBooks place;
};

// The register's list in the order of names, with twelve columns.
QString partyList();
