#pragma once

#include "toolkit/data/connection.h"

// A connection to a PostgreSQL server, from the module toolkit_postgresql beside this library. The module is
// loaded at the first call and stays: embedded books never pay for the server's client. Raises EDatabaseError
// when it is missing.
std::shared_ptr<EngineConnection> serverConnection(const TSessionSettings &settings,
                                                   TDatabase::Connection use);
