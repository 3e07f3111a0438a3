#include "host/controls/list_query.h"

namespace {
// A statement that has no further rows as soon as somebody says so.
class StoppableStatement : public TStatement {
public:
    StoppableStatement(std::unique_ptr<TStatement> statement, std::shared_ptr<bool> stopReading)
        : inner(std::move(statement)),
          stop(std::move(stopReading))
    {
    }

    void bind(const QString &name, const Variant &value) override { inner->bind(name, value); }
    void exec() override { inner->exec(); }

    bool next() override
    {
        if (!*stop)
            return inner->next();
        inner->reset();
        return false;
    }

    qlonglong affected() const override { return inner->affected(); }
    const QList<TResultColumn> &columns() const override { return inner->columns(); }
    bool isNull(int column) const override { return inner->isNull(column); }
    double number(int column) const override { return inner->number(column); }
    qlonglong integer(int column) const override { return inner->integer(column); }
    QByteArrayView utf8(int column) const override { return inner->utf8(column); }
    TFieldType valueType(int column) const override { return inner->valueType(column); }
    void reset() override { inner->reset(); }
    const QStringList &parameters() const override { return inner->parameters(); }

private:
    std::unique_ptr<TStatement> inner;
    std::shared_ptr<bool> stop;
};
} // namespace

TListQuery::TListQuery(QObject *parent) : TQuery(nullptr, parent), stop(std::make_shared<bool>(false))
{
    readsAside = true;
}

void TListQuery::stopReading()
{
    if (Active() && !fetchedAll())
        *stop = true;
}

std::unique_ptr<TStatement> TListQuery::openStatement()
{
    stop = std::make_shared<bool>(false);
    return std::make_unique<StoppableStatement>(TQuery::openStatement(), stop);
}
