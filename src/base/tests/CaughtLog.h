#pragma once

#include <QStringList>
#include <QtGlobal>

namespace Tesk {

/// While it lives, log lines are kept here and not printed. One at a time.
class CaughtLog final
{
public:
    CaughtLog()
        : oldHandler(qInstallMessageHandler(&Catch))
    {
        lines.clear();
    }
    ~CaughtLog() { qInstallMessageHandler(oldHandler); }
    CaughtLog(const CaughtLog &) = delete;
    CaughtLog &operator=(const CaughtLog &) = delete;

    static inline QStringList lines;

private:
    static void Catch(QtMsgType, const QMessageLogContext &, const QString &line)
    {
        lines.append(line);
    }

    QtMessageHandler oldHandler;
};

} // namespace Tesk
