#include "toolkit/postgresql/postgresql_connection.h"

// The one function of this module; see toolkit/data/server_module.h.
extern "C" EngineConnection *newServerConnection(const TSessionSettings &settings, TDatabase::Connection use)
{
    return new PostgresConnection(settings, use);
}
