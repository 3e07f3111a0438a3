#pragma once

#include "database/tool/keeping/store.h"

// Books of one month with as many accounts as rows, a balance on each and one entry on each, and a copy of
// them for the engine's own shell.
class CloseBooks {
public:
    CloseBooks(Engine engine, int rows);
    ~CloseBooks();
    CloseBooks(const CloseBooks &) = delete;
    CloseBooks &operator=(const CloseBooks &) = delete;

    // Milliseconds that Close_Per takes, the commit included.
    double closeByRoutine();
    // The same under history and with the seal of the month, on a copy of the same books.
    double closeWithSeal();
    // Takes both closes back.
    void rollBack();
    // Milliseconds that the best single statement written by hand takes in the engine's own shell.
    double closeByShell();
    // Ends the program unless both made the same balances.
    void compare();

private:
    struct Private;
    std::unique_ptr<Private> d;
};
