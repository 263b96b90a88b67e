#include <QtGlobal>

/// Log lines are made, so that their making is tested too, but not printed: most inputs are wrong,
/// and a line each would be all that the run does.
extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    return 0;
}
