#include "host/app/server_panel.h"

#include "host/common/msgbox.h"
#include "host/data/main_datas.h"
#include "toolkit/data/connection.h"
#include "toolkit/widgets/guard.h"

#include <QHBoxLayout>
#include <QStyle>

namespace {

constexpr int stepMs = 200;

const char soughtText[] = "Ieškoma ryšio su serveriu…";

QString whereText(const TServerLink &link)
{
    if (link.onThisMachine)
        return "Duomenų bazės serveris šiame kompiuteryje";
    const QString way = link.encryption.isEmpty() ? "ryšys nešifruotas!"
                                                  : QString("ryšys šifruotas (%1)").arg(link.encryption);
    return QString("Duomenų bazės serveris %1, %2").arg(link.server, way);
}

QString warningText(const TServerLink &link)
{
    return link.isOpenToOthers()
               ? "Kreipkitės į serverio prižiūrėtoją, kad ryšys būtų šifruojamas: dabar viskas, kas "
                 "siunčiama "
                 "tarp šios darbo vietos ir serverio, tinkle gali būti perskaityta kitų (sslmode)."
               : QString();
}

} // namespace

TServerPanel::TServerPanel(QWidget *parent)
    : QWidget(parent),
      sign(new QLabel(this)),
      text(new QLabel(this)),
      former(setLinkHook([this](TLinkEvent event) { follow(event); }))
{
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(2);
    line->addWidget(sign);
    line->addWidget(text);
    const int size = fontMetrics().height();
    sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size, size));
    sign->setObjectName("engineWarning");
    sign->setAccessibleName("Įspėjimas");
    text->setObjectName("engine");
    text->setAccessibleName("Duomenų bazė");
    text->setTextFormat(Qt::PlainText);
    text->setMargin(3);
    tell({});
    seeking.setInterval(stepMs);
    connectGuarded(&seeking, &QTimer::timeout, this, [this] { seek(); });
}

TServerPanel::~TServerPanel()
{
    setLinkHook(former);
}

void TServerPanel::tell(const QString &told, const QString &warning)
{
    text->setText(told);
    sign->setVisible(!warning.isEmpty());
    setToolTip(warning);
    text->setAccessibleDescription(warning);
}

void TServerPanel::showLink(const TServerLink &link)
{
    tell(whereText(link), warningText(link));
}

void TServerPanel::showBooks()
{
    if (!MainDatas()) {
        tell({});
        return;
    }
    const TDatabase &books = *MainDatas()->mnFin_Db();
    if (books.engine() == Engine::Sqlite)
        tell("Įterptinė duomenų bazė");
    else if (seeking.isActive())
        return; // a connection that has not met the loss yet would tell otherwise
    else if (const auto link = serverLink(books))
        showLink(*link);
}

// Called in the middle of a statement: nothing but what is shown may change.
void TServerPanel::follow(TLinkEvent event)
{
    switch (event) {
    case TLinkEvent::Lost:
        tell(soughtText, "Programa serverio ieško. Kai jis atsilieps, dirbkite toliau: langai ir tai, kas "
                         "įvesta, liko.");
        seeking.start();
        break;
    case TLinkEvent::AnswerLost:
        tell(QString(soughtText) + " Bus patikrinta, ar įrašyta.", "Atsakymas apie įrašymą nutrūko.");
        break;
    case TLinkEvent::Found:
        seeking.stop();
        QMetaObject::invokeMethod(
            this, [this] { showBooks(); }, Qt::QueuedConnection);
        break;
    case TLinkEvent::Written:
        QMetaObject::invokeMethod(
            this, [this] { tellWritten(); }, Qt::QueuedConnection);
        break;
    }
}

void TServerPanel::seek()
{
    if (BusyBeat::isBeating())
        return;
    if (!MainDatas() || MainDatas()->mnFin_Db()->engine() == Engine::Sqlite) {
        seeking.stop();
        showBooks();
    } else if (seekServer(*MainDatas()->mnFin_Db())) {
        seeking.stop();
        tell("Ryšys su serveriu vėl yra");
        showBooks();
    } else if (const QString refusal = seekRefusal(*MainDatas()->mnFin_Db()); !refusal.isEmpty()) {
        tell("Serveris neįsileidžia", refusal);
    }
}

void TServerPanel::tellWritten()
{
    runGuarded(this, [] { StdMsgBox(mkInformation, toldFate(TCommitFate::Written)); });
}
