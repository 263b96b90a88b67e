#pragma once

#include "browser/WebBrowser.h"

#include <QWebEngineView>

#include <stdexcept>

#include <csignal>

namespace Tesk {

/// Ends the engine's process that shows the browser's page, as a crash does.
inline void KillEngine(const WebBrowser &browser)
{
    const qint64 process = browser.View()->page()->renderProcessPid();
    if (process <= 0)
        throw std::runtime_error("the engine of the test's page does not run");
    ::kill(static_cast<pid_t>(process), SIGKILL);
}

} // namespace Tesk
