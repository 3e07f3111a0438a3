#include "src/estimates/Newsam.h"

#include "src/estimates/Samform.h"
#include "toolkit/text/amount.h"
#include "toolkit/text/format.h"
#include "toolkit/widgets/guard.h"

#include <QLineEdit>
#include <QScopeGuard>

namespace Newsam {

TUnit unit("NewSam");
TSamDlg *SamDlg = nullptr;
bool Changed1 = false;

namespace {

TChoices quarterChoices()
{
    TChoices choices;
    for (const QString &name : Samform::quarterNames())
        choices += {name, Samform::SamFrm->yearId() + double(choices.size())};
    return choices;
}

} // namespace

bool EditSam(bool edit)
{
    if (!Samform::SamFrm)
        return false;
    TQuery &rows = Samform::SamFrm->estimates();
    const int there = rows.RecordCount();
    const auto dropUnsaved = qScopeGuard([&rows] {
        Changed1 = false;
        if (rows.editing())
            rows.Cancel();
    });
    if (edit) {
        rows.Edit();
    } else {
        rows.Append();
        rows.FieldByName("SAM_PERID")->setAsFloat(Samform::SamFrm->yearId() + there);
        rows.FieldByName("SAM_JVEID")->setAsFloat(Samform::SamFrm->JungId());
        rows.FieldByName("SAM_SAM_KOR")->setAsFloat(0);
    }
    return TSamDlg(TRecordStart::on(rows)).run();
}

TSamDlg::TSamDlg(const TRecordStart &start)
    : TRecordDialog({.name = "TSamDlg",
                     .newCaption = "Nauja sąmata",
                     .editCaption = "Keisti sąmatą",
                     .help = 73,
                     .table = "bd_samatos",
                     .keyColumn = "SAM_ID",
                     .key = TKeyRule::largestPlusOne("select max(sam_id) from bd_samatos"),
                     .rows = {TFieldRow::choices("&Ketvirtis", "SAM_PERID", quarterChoices()).readOnly(),
                              TFieldRow::edit("&Sąmatos suma", "SAM_SAMATA").format("0.00").required(),
                              TFieldRow::edit("K&oreguota sąmata", "SAM_SAM_KOR").format("0.00").readOnly()},
                     .save = TSaveRule::WhenFilledAndChanged},
                    start)
{
    connectGuarded(&form(), &TFieldForm::edited, this, [this] { showConsistency(); });
    keepIn(SamDlg);
}

void TSamDlg::Loaded()
{
    control("SAM_PERID")->setEnabled(false); // the order of the rows gives it
    before = isNew() ? 0 : field("SAM_SAMATA")->AsFloat();
    readSums();
}

void TSamDlg::readSums()
{
    const double year = Samform::SamFrm->yearId();
    const double node = Samform::SamFrm->JungId();
    const auto sum = [&](const QString &periods) {
        const QString sql = "select sum(sam_samata) from bd_samatos where sam_jveid=%1 and ";
        return GetFieldResult(Database(), sql.arg(node, 0, 'f', 0) + periods).toDouble();
    };
    yearly = sum(QString("sam_perid=%1").arg(year, 0, 'f', 0));
    quarters = sum(QString("sam_perid>%1 and sam_perid<%1+5").arg(year, 0, 'f', 0));
}

void TSamDlg::showEvent(QShowEvent *event)
{
    TRecordDialog::showEvent(event);
    Changed1 = true;
}

bool TSamDlg::isYearly() const
{
    return field("SAM_PERID")->AsFloat() == Samform::SamFrm->yearId();
}

std::optional<double> TSamDlg::typedAmount() const
{
    try {
        return StrToFloat(control<QLineEdit>("SAM_SAMATA")->text());
    } catch (const EConvertError &) {
        return {};
    }
}

// The year holds its quarters.
bool TSamDlg::isConsistent(double amount) const
{
    if (isYearly())
        return isNew() || tenThousandths(amount) >= tenThousandths(quarters);
    return tenThousandths(amount) + tenThousandths(quarters) - tenThousandths(before) <=
           tenThousandths(yearly);
}

bool TSamDlg::CanSave() const
{
    if (!TRecordDialog::CanSave() || field("SAM_PERID")->IsNull() || field("SAM_SAM_KOR")->IsNull())
        return false;
    const std::optional<double> amount = typedAmount();
    return !Changed1 || !amount || isConsistent(*amount);
}

void TSamDlg::showConsistency()
{
    const std::optional<double> amount = typedAmount();
    auto *edit = control<QLineEdit>("SAM_SAMATA");
    QPalette colours = palette();
    if (Changed1 && amount && !isConsistent(*amount))
        colours.setColor(QPalette::Text, Qt::red);
    edit->setPalette(colours);
}

// What another station's rows leave room for is asked again.
void TSamDlg::Validate()
{
    TRecordDialog::Validate();
    readSums();
    judgeSave();
    showConsistency();
    if (!isConsistent(field("SAM_SAMATA")->AsFloat()))
        throw EAbort();
}

} // namespace Newsam
