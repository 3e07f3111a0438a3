#pragma once

#include "database/tool/keeping/store.h"

// A place for the new books of a benchmark, where nothing stands yet: a folder beside the program, or two
// databases of the tests' server. What was made there goes with the object.
class BenchBooks {
public:
    explicit BenchBooks(Engine engine);
    ~BenchBooks();
    BenchBooks(const BenchBooks &) = delete;
    BenchBooks &operator=(const BenchBooks &) = delete;

    TStore &store() const;
    const TBooks &books() const { return store().books(); }
    // Of a server: removes a database that was made there besides.
    static void drop(const TSessionSettings &settings);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
