#include "toolkit/data/row_reader.h"

#include <QElapsedTimer>

namespace {

constexpr int rowsPerLook = 64; // rows between two looks at the clock

} // namespace

RowReader::RowReader(const std::function<void()> &whenIdle)
{
    idle.setInterval(0);
    QObject::connect(&idle, &QTimer::timeout, &idle, whenIdle);
}

void RowReader::start(std::unique_ptr<TStatement> opened)
{
    statement = std::move(opened);
    stopping = false;
    failure.clear();
}

void RowReader::readInIdleTime()
{
    if (statement)
        idle.start();
}

void RowReader::end()
{
    idle.stop();
    statement.reset();
}

bool RowReader::read(int limit, qint64 milliseconds, const std::function<void(const TStatement &)> &take)
{
    if (!statement)
        return false;
    QElapsedTimer clock;
    clock.start();
    try {
        for (int count = 0; count < limit; ++count) {
            if (stopping || !statement->next()) {
                end();
                return false;
            }
            take(*statement);
            if (milliseconds >= 0 && count % rowsPerLook == 0 && clock.elapsed() >= milliseconds)
                break;
        }
    } catch (const Exception &error) {
        end();
        failure = error.message();
        throw;
    }
    return true;
}

void RowReader::checkWhole() const
{
    if (failed())
        throw EDatabaseError(failure);
}
