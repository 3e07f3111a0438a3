#include "host/controls/session.h"

#include "host/data/main_datas.h"

TDatabase *sessionOf(TSession session)
{
    Q_ASSERT(MainDatas());
    return session == TSession::Main ? MainDatas()->mnFin_Db() : MainDatas()->mnRavl();
}
