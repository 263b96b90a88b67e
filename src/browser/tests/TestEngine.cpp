#include "browser/Engine.h"

#include <QTest>
#include <QWebEngineUrlScheme>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

using namespace Tesk;

namespace {

const char *const SandboxVariable = "QTWEBENGINE_DISABLE_SANDBOX";
const char *const SwitchesVariable = "QTWEBENGINE_CHROMIUM_FLAGS";

} // namespace

class TestEngine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The engine is configured once in a process, as in the program.
    void initTestCase()
    {
        qunsetenv(SandboxVariable);
        qputenv(SwitchesVariable, "--renderer-process-limit=7 --other");
        ConfigureEngine();
    }

    void testSwitchesOfTheUserStay()
    {
        const QByteArray switches = qgetenv(SwitchesVariable);
        QVERIFY(switches.startsWith("--renderer-process-limit=7 --other "));
        QCOMPARE(switches.count("--renderer-process-limit"), 1);
    }

    void testNetworkIsSwitchedOff()
    {
        QVERIFY(qgetenv(SwitchesVariable).contains("--host-resolver-rules=\"MAP * ~NOTFOUND\""));
    }

    void testSwitchWithoutAValueHasNone()
    {
        QVERIFY((qgetenv(SwitchesVariable) + ' ').contains(" --disable-shared-workers "));
    }

    void testSandboxStaysForEverybodyButRoot()
    {
#ifdef Q_OS_UNIX
        QCOMPARE(qEnvironmentVariableIsSet(SandboxVariable), geteuid() == 0);
#else
        QVERIFY(!qEnvironmentVariableIsSet(sandboxVariable));
#endif
    }

    void testResourceSchemeIsKnown()
    {
        const QWebEngineUrlScheme scheme = QWebEngineUrlScheme::schemeByName("mk");
        QCOMPARE(scheme.name(), "mk");
        QCOMPARE(scheme.syntax(), QWebEngineUrlScheme::Syntax::Path);
    }
};

QTEST_APPLESS_MAIN(TestEngine)
#include "TestEngine.moc"
