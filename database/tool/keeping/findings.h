#pragma once

#include <QStringList>

// Collects findings of one kind and tells how many more there are.
class TFindings {
public:
    explicit TFindings(QStringList &aTarget) : target(aTarget) {}
    ~TFindings()
    {
        if (count > toldOneByOne)
            target.append(QStringLiteral("… ir dar %1 tokių pat neatitikimų.").arg(count - toldOneByOne));
    }
    TFindings(const TFindings &) = delete;
    TFindings &operator=(const TFindings &) = delete;

    void add(const QString &text)
    {
        if (++count <= toldOneByOne)
            target.append(text);
    }

private:
    static constexpr int toldOneByOne = 20;

    QStringList &target;
    int count = 0;
};
