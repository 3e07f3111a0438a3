#include "toolkit/data/server_module.h"

#include <QFileInfo>
#include <QLibrary>

#include <dlfcn.h>

namespace {

using NewServerConnection = EngineConnection *(const TSessionSettings &, TDatabase::Connection);

// Beside this library, wherever the program was installed.
QString moduleFile()
{
    Dl_info here{};
    dladdr(reinterpret_cast<const void *>(&serverConnection), &here);
    return QFileInfo(QString::fromLocal8Bit(here.dli_fname)).absolutePath() + "/libtoolkit_postgresql.so";
}

NewServerConnection *loadModule()
{
    QLibrary module(moduleFile());
    auto *create = reinterpret_cast<NewServerConnection *>(module.resolve("newServerConnection"));
    if (!create)
        throw EDatabaseError("Nepavyko įkelti ryšio su duomenų bazės serveriu dalies", module.errorString());
    return create;
}

} // namespace

std::shared_ptr<EngineConnection> serverConnection(const TSessionSettings &settings,
                                                   TDatabase::Connection use)
{
    static NewServerConnection *create = loadModule();
    return std::shared_ptr<EngineConnection>(create(settings, use));
}
