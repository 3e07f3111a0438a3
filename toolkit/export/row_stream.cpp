#include "toolkit/export/row_stream.h"

#include <QDeadlineTimer>

namespace {

constexpr int progressMs = 40;
constexpr qlonglong rowsPerLook = 32; // rows between two looks at the clock

} // namespace

qlonglong streamRows(TStatement &rows, const TRowLines &lines, TExportFile &file,
                     const std::function<void(qlonglong rows)> &progress)
{
    qlonglong count = 0;
    QDeadlineTimer next(progressMs);
    for (rows.exec(); rows.next(); ++count) {
        lines.append(file.pending(), rows, count + 1);
        file.endLine();
        if (count % rowsPerLook == 0 && next.hasExpired()) {
            progress(count + 1);
            next.setRemainingTime(progressMs);
        }
    }
    return count;
}
