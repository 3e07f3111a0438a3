#include "src/estimates/Korlist.h"
#include "src/estimates/Newsam.h"
#include "src/estimates/Samform.h"
#include "src/estimates/Samkor.h"
#include "src/frame/entries.h"

namespace {

// The open screen, on the node of the last year's first estimate.
std::unique_ptr<Samform::TSamFrm> openEstimates()
{
    std::unique_ptr<Samform::TSamFrm> book(createForm<Samform::TSamFrm>(nullptr));
    book->show();
    const QString sql = QString("select min(sam_jveid) from bd_samatos where sam_perid=%1");
    book->SetJungId(GetFieldResult(sessionOf(TSession::Main), sql.arg(book->yearId(), 0, 'f', 0)).toDouble());
    return book;
}

void editEstimate()
{
    const auto book = openEstimates();
    Newsam::EditSam(!book->estimates().IsEmpty());
}

double correctedEstimate()
{
    return firstKey(TSession::Main, "bd_samkor", "sak_samid");
}

void editCorrection()
{
    double id = firstKey(TSession::Main, "bd_samkor", "sak_id");
    const QString sql = QString("select sak_samid from bd_samkor where sak_id=%1").arg(id);
    Samkor::Koreguoti(id, GetFieldResult(sessionOf(TSession::Main), sql).toDouble());
}

} // namespace

TPackageEntries estimateEntries()
{
    return {
        listScreen<Samform::TSamFrm>(Samform::unit, {Menu::estimates}, "&Sąmatos…", 73),
        editor("EditSam", Newsam::unit, 73, editEstimate),
        editor("SamKorList", Korlist::unit, 74, [] { Korlist::SamKorList(correctedEstimate(), true); }),
        editor("Koreguoti", Samkor::unit, 74, editCorrection),
    };
}
