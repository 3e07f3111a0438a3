#pragma once

#include "database/books.h"
#include "toolkit/data/database.h"

#include <memory>

class TMainDatas;

// Prints a line for the test.
void told(const char *what, const QString &text);

// What a station does.
class Work {
public:
    virtual ~Work() = default;

    // One save, or more than one try of it, under that name. Returns by what the saved row is found again;
    // empty when it was given up. Raises Exception when it failed.
    virtual QString save(const QString &name) = 0;

protected:
    // Opens the session unless it is open, under history.
    static void openAs(TDatabase &db, const QString &name);
};

// Counterparties, each typed into the editor once and saved until the editor closes.
class Parties : public Work {
public:
    explicit Parties(const TBooks &books);
    ~Parties() override;

    QString save(const QString &name) override;

private:
    const TBooks books;
};
