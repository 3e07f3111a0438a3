#pragma once

#include "database/books.h"

// The demonstration books, filled once for each engine and run; every object is a fresh copy of them.
class TDemoCopy {
public:
    explicit TDemoCopy(Engine engine);
    ~TDemoCopy();
    TDemoCopy(const TDemoCopy &) = delete;
    TDemoCopy &operator=(const TDemoCopy &) = delete;

    // The copy that all who only look share.
    static const TDemoCopy &shared(Engine engine);
    // Who changed it all the same leaves a fresh one to the others.
    static void renewShared(Engine engine);

    // Everything in both books, as one hash over each as the engine stores it.
    QList<QByteArray> fingerprints() const;
    // The same of books that nobody has changed.
    static const QList<QByteArray> &unchanged(Engine engine);

    const TSessionSettings fin, ravl;

private:
    explicit TDemoCopy(const TBooks &books);
};
