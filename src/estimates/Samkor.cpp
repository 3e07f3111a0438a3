#include "src/estimates/Samkor.h"

#include "src/estimates/Samform.h"
#include "toolkit/text/amount.h"

#include <QEvent>
#include <QLabel>

namespace Samkor {

TUnit unit("SamKor");
TSamKorDlg *SamKorDlg = nullptr;

namespace {

struct TQuarter {
    const char *column;
    const char *roman;
    const char *caption;
};

constexpr TQuarter quarters[] = {{"SAK_I_KETV", "I", " I Ketvertis"},
                                 {"SAK_II_KETV", "II", " II Ketvertis"},
                                 {"SAK_III_KETV", "III", " III Ketvertis"},
                                 {"SAK_IV_KETV", "IV", " IV Ketvertis"}};

double sumOf(const TDataSet &correction)
{
    double sum = 0;
    for (const TQuarter &quarter : quarters)
        sum += correction.FieldByName(quarter.column)->AsFloat();
    return sum;
}

QList<TFieldRow> fieldRows()
{
    QList<TFieldRow> rows{TFieldRow::date("&Koregavimo data", "SAK_DATA").required(),
                          TFieldRow::edit("&Dokumento Nr.", "SAK_DOKNR")};
    for (const TQuarter &quarter : quarters)
        rows += TFieldRow::edit(quarter.caption, quarter.column).money().defaultValue(0).holdsFocus();
    rows += TFieldRow::edit(" Metinė sąmata", "SAK_SUM").format("0.00").readOnly();
    return rows;
}

} // namespace

bool Koreguoti(double &id, const double samId)
{
    return editRecord<TSamKorDlg>(id, TRecordStart::rowOrNew(id <= 0, id), samId);
}

TSamKorDlg::TSamKorDlg(const TRecordStart &start, double samId)
    : TRecordDialog({.name = "TSamKorDlg",
                     .newCaption = "Koreguota samata",
                     .help = 74,
                     .table = "bd_samkor",
                     .keyColumn = "SAK_ID",
                     .key = TKeyRule::largestPlusOne("select max(sak_id) from bd_samkor"),
                     .sql = "select SAK_DATA, SAK_I_KETV, SAK_II_KETV, SAK_III_KETV, SAK_IV_KETV, SAK_SAMID, "
                            "SAK_ID, SAK_DOKNR from BD_SAMKOR where SAK_ID=:ID and SAK_SAMID=:SAMID",
                     .rows = fieldRows(),
                     .buttons = saveAndCancel("Taip", "Ne"),
                     .prepare = [this](TQuery &correction) { setRules(correction); }},
                    start),
      estimate(samId)
{
    for (const TQuarter &quarter : quarters) {
        control(quarter.column)->installEventFilter(this);
        form().labelOf(quarter.column)->installEventFilter(this);
    }
    keepIn(SamKorDlg);
}

// The label is the panel of its quarter: it is raised while the quarter is edited, and a click on it leads
// there.
bool TSamKorDlg::eventFilter(QObject *watched, QEvent *event)
{
    for (const TQuarter &quarter : quarters) {
        QLabel *panel = form().labelOf(quarter.column);
        if (watched == panel && event->type() == QEvent::MouseButtonPress)
            control(quarter.column)->setFocus(Qt::MouseFocusReason);
        if (watched == control(quarter.column) && event->type() == QEvent::FocusIn)
            panel->setFrameStyle(QFrame::Panel | QFrame::Raised);
        if (watched == control(quarter.column) && event->type() == QEvent::FocusOut)
            panel->setFrameStyle(QFrame::NoFrame);
    }
    return TRecordDialog::eventFilter(watched, event);
}

// --- the rules

void TSamKorDlg::setRules(TQuery &correction)
{
    correction.setParam("SAMID", estimate);
    correction.addCalculated("SAK_SUM", TFieldType::ftFloat);
    correction.OnCalcFields = [](TDataSet &set) { set.FieldByName("SAK_SUM")->setAsFloat(sumOf(set)); };
    for (int k = 0; k < int(std::size(quarters)); ++k)
        correction.describe(quarters[k].column, [this, k](TField &amount) {
            amount.OnValidate = [this, k](TField &, const Variant &proposed) {
                checkQuarter(k + 1, proposed.toDouble());
            };
            amount.OnChange = [](TField &now) {
                if (now.IsNull())
                    now.setAsFloat(0);
            };
        });
}

// Only while the estimates are open: their rows are what a correction is measured by.
void TSamKorDlg::checkQuarter(int quarter, double proposed) const
{
    if (!Samform::SamFrm)
        return;
    const auto rows = Samform::SamFrm->rowsOfNode();
    double room = rows[quarter].corrected;
    for (int k = 1; k <= quarter; ++k)
        room += rows[k].amount;
    if (tenThousandths(proposed + room) < 0)
        throw Exception(QString("Samata %1 ketverčiui, įskaitant koregavimą, negali būti mažesnė už 0!")
                            .arg(quarters[quarter - 1].roman));
    if (tenThousandths(rows[0].amount + field("SAK_SUM")->AsFloat()) < 0)
        throw Exception("Samata metams, įskaitant koregavimą, negali būti mažesnė už 0!");
}

void TSamKorDlg::Loaded()
{
    if (!isNew())
        return;
    field("SAK_SAMID")->setAsFloat(estimate);
    field("SAK_DATA")->setValue(QDate::currentDate());
}

// A correction by nothing is passed over in silence.
void TSamKorDlg::Validate()
{
    TRecordDialog::Validate();
    double moved = 0;
    for (const TQuarter &quarter : quarters)
        moved += std::abs(field(quarter.column)->AsFloat());
    if (moved == 0)
        throw EAbort();
}

} // namespace Samkor
