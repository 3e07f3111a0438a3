#include "host/data/reports.h"

#include "host/data/main_datas.h"
#include "host/data/report_store.h"
#include "toolkit/report/dataset_rows.h"
#include "toolkit/report/preview.h"

#include <QApplication>
#include <QPointer>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

QPointer<TReportPreview> &openPreview()
{
    static QPointer<TReportPreview> preview;
    return preview;
}

[[noreturn]] void refuse(const QString &parameters)
{
    throw Exception(u"Netinkami ataskaitos parametrai: „%1“"_s.arg(parameters));
}

// The switches by their names in upper case. A value goes on to the next "/NAME=".
QHash<QString, QString> switchesOf(const QString &parameters)
{
    static const QRegularExpression pattern(u"\\G\\s*/(DBN|RPTID)=\\s*((?!/\\w+=)\\S.*?)\\s*(?=/\\w+=|\\z)"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    QHash<QString, QString> switches;
    qsizetype end = 0;
    for (const QRegularExpressionMatch &each : pattern.globalMatch(parameters)) {
        const QString name = each.captured(1).toUpper();
        if (switches.contains(name))
            refuse(parameters);
        switches.insert(name, each.captured(2));
        end = each.capturedEnd();
    }
    if (switches.size() != 2 || end != parameters.size())
        refuse(parameters);
    return switches;
}

TDatabase *sessionOf(const QString &alias)
{
    if (MainDatas())
        for (TDatabase *session : {MainDatas()->mnFin_Db(), MainDatas()->mnRavl()})
            if (session->AliasName().compare(alias, Qt::CaseInsensitive) == 0)
                return session;
    throw Exception(u"Duomenų bazės „%1“ nėra"_s.arg(alias));
}

const TStoredReport &reportOf(const QString &number)
{
    bool isNumber = false;
    const TStoredReport *stored = storedReport(number.toInt(&isNumber));
    if (!isNumber || !stored)
        throw Exception(u"Ataskaitos Nr. %1 nėra"_s.arg(number));
    return *stored;
}

TReport described(const TStoredReport &stored)
{
    TReport report =
        reportOfTable({stored.caption, organisationName(), Date().date()}, stored.columns, stored.fontSize);
    if (!stored.summary.isEmpty())
        report.summary = {.height = 16,
                          .items = {{.y = 3,
                                     .width = report.page.paintRect(QPageLayout::Point).width(),
                                     .expression = stored.summary,
                                     .bold = true}},
                          .frameAbove = true};
    return report;
}

} // namespace

void OpenReports(const AnsiString &parameters)
{
    const QHash<QString, QString> switches = switchesOf(parameters.toQString());
    TDatabase *session = sessionOf(switches[u"DBN"_s]);
    const TStoredReport &stored = reportOf(switches[u"RPTID"_s]);
    QWidget *owner = QApplication::activeWindow();

    TQuery set(session, stored.sql);
    set.readsAside = true;
    set.Open();
    if (set.IsEmpty())
        throw Exception(u"Nėra duomenu!"_s);
    fetchAll(set, stored.caption, owner);
    const QPointer<TReportPreview> preview =
        new TReportPreview(described(stored), std::make_unique<TDataSetRows>(&set), owner);
    openPreview() = preview;
    preview->ShowModal();
    delete preview;
}

void CloseReports()
{
    if (openPreview())
        openPreview()->close();
}
