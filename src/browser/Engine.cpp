#include "browser/Engine.h"

#include "browser/ResourceScheme.h"

#include <QtGlobal>

#include <cstdio>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace Tesk {
namespace {

const char *const sandboxVariable = "QTWEBENGINE_DISABLE_SANDBOX";

bool IsSuperuser()
{
#ifdef Q_OS_UNIX
    return geteuid() == 0;
#else
    return false;
#endif
}

} // namespace

void ConfigureEngine()
{
    if (IsSuperuser() && !qEnvironmentVariableIsSet(sandboxVariable)) {
        qputenv(sandboxVariable, "1");
        std::fputs("Running as root: the browser engine works without its sandbox.\n", stderr);
    }
    ResourceScheme::Register();
}

} // namespace Tesk
