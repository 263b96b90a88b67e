#include "browser/Engine.h"

#include "browser/ResourceScheme.h"

#include <QByteArray>
#include <QtGlobal>

#include <array>
#include <cstdio>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace Tesk {
namespace {

const char *const SandboxVariable = "QTWEBENGINE_DISABLE_SANDBOX";
const char *const SwitchesVariable = "QTWEBENGINE_CHROMIUM_FLAGS";

struct EngineSwitch
{
    const char *name;
    const char *value;
};

const std::array<EngineSwitch, 4> Switches = {{
    // No host has an address, given in figures or not.
    {"--host-resolver-rules", "\"MAP * ~NOTFOUND\""},
    // Calls between browsers send datagrams that no request interceptor sees.
    {"--force-webrtc-ip-handling-policy", "disable_non_proxied_udp"},
    // What these load passes the gate by.
    {"--disable-shared-workers", ""},
    // Files and container would have a process each: going from one to the other would start
    // another every time, which doubles the time that it takes.
    {"--renderer-process-limit", "1"},
}};

bool IsSuperuser()
{
#ifdef Q_OS_UNIX
    return geteuid() == 0;
#else
    return false;
#endif
}

void AddSwitches()
{
    QByteArray flags = qgetenv(SwitchesVariable);
    for (const EngineSwitch &added : Switches) {
        if (!flags.contains(added.name))
            flags += QByteArray(flags.isEmpty() ? "" : " ") + added.name +
                     QByteArray(*added.value == 0 ? "" : "=") + added.value;
    }
    qputenv(SwitchesVariable, flags);
}

} // namespace

void ConfigureEngine()
{
    if (IsSuperuser() && !qEnvironmentVariableIsSet(SandboxVariable)) {
        qputenv(SandboxVariable, "1");
        std::fputs("Running as root: the browser engine works without its sandbox.\n", stderr);
    }
    AddSwitches();
    ResourceScheme::Register();
}

} // namespace Tesk
