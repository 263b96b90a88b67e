#include "browser/Engine.h"
#include "core/LanguageSupport.h"
#include "core/Registry.h"
#include "support/BoxReader.h"
#include "support/CatalogueWindow.h"
#include "ui/main/CatalogApplication.h"
#include "ui/main/CatalogueProgram.h"
#include "ui/main/MainMenu.h"

#include <QAction>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

using namespace Tesk;

namespace {

/// Reads what the program writes to the terminal as errors.
class TerminalReader final
{
public:
    TerminalReader()
    {
        if (!file.open())
            qFatal("the file for the terminal's text cannot be made");
        std::fflush(stderr);
        terminal = ::dup(STDERR_FILENO);
        ::dup2(file.handle(), STDERR_FILENO);
    }
    ~TerminalReader() { Stop(); }
    TerminalReader(const TerminalReader &) = delete;
    TerminalReader &operator=(const TerminalReader &) = delete;

    QString Stop()
    {
        if (terminal >= 0) {
            std::fflush(stderr);
            ::dup2(terminal, STDERR_FILENO);
            ::close(terminal);
            terminal = -1;
        }
        file.seek(0);
        return QString::fromLocal8Bit(file.readAll());
    }

private:
    QTemporaryFile file;
    int terminal = -1;
};

} // namespace

/// From the start of the program to its end.
class TestStarting final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        catalogue = folder.filePath(QStringLiteral("app"));
        QVERIFY(CopyApplicationDirectory(QStringLiteral(APPLICATION_DIR), catalogue));
        Registry(Settings())
            .RegSetString(SettingsKey, QStringLiteral("Location"), QStringLiteral("English"));
    }

    void testMissingFileEndsTheStart_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("message");
        const QString required =
            QStringLiteral("Can't find the file '%1' in working directory. Exit Application.");
        QTest::newRow("container")
            << QStringLiteral("resources.chm") << required.arg(QLatin1String("resources.chm"));
        QTest::newRow("database") << QStringLiteral("catalog.db")
                                  << required.arg(QLatin1String("catalog.db"));
        QTest::newRow("version") << QStringLiteral("version") << QString();
        QTest::newRow("language") << QStringLiteral("content/loc_fr.txt") << QString();
    }

    void testMissingFileEndsTheStart()
    {
        QFETCH(const QString, file);
        QFETCH(const QString, message);
        const QString path = catalogue + u'/' + file;
        QVERIFY(QFile::rename(path, path + QLatin1String(".away")));
        const BoxReader boxes;
        TerminalReader terminal;
        const int status = RunCatalogue(catalogue, Settings(), Cache());
        const QString lines = terminal.Stop();
        QVERIFY(QFile::rename(path + QLatin1String(".away"), path));

        QCOMPARE(status, EXIT_FAILURE);
        QCOMPARE(boxes.texts.size(), 1);
        QVERIFY(boxes.isPlain);
        QVERIFY2(lines.contains(boxes.texts.first()), qPrintable(lines));
        if (message.isEmpty())
            QVERIFY2(boxes.texts.first().contains(file), qPrintable(boxes.texts.first()));
        else
            QCOMPARE(boxes.texts.first(), message);
    }

    void testLostPriceListIsToldOnceAndTheProgramRuns()
    {
        Registry registry(Settings());
        registry.RegSetString(SettingsKey, QStringLiteral("PriceListPath"),
                              QStringLiteral("/nowhere/<i>list.txt"));
        BoxReader boxes;
        connect(&boxes, &QTimer::timeout, this, [&boxes, isAsked = false]() mutable {
            if (boxes.texts.isEmpty() || isAsked)
                return;
            for (QWidget *widget : QApplication::topLevelWidgets()) {
                if (auto *const window = qobject_cast<frmCatalog *>(widget)) {
                    isAsked = true;
                    QTimer::singleShot(0, window->menus->mExit, &QAction::trigger);
                }
            }
        });
        QCOMPARE(RunCatalogue(catalogue, Settings(), Cache()), EXIT_SUCCESS);
        QCOMPARE(boxes.texts.size(), 2);
        QVERIFY(boxes.isPlain);
        QCOMPARE(boxes.texts.first(),
                 QStringLiteral("Price list /nowhere/<i>list.txt can not be found!"));
        QCOMPARE(registry.RegGetString(SettingsKey, QStringLiteral("PriceListPath")), QString());
    }

private:
    QString Settings() const { return folder.filePath(QStringLiteral("settings.json")); }
    QString Cache() const { return folder.filePath(QStringLiteral("cache")); }

    QTemporaryDir folder;
    QString catalogue;
};

int main(int argc, char **argv)
{
    ConfigureEngine();
    CatalogApplication application(argc, argv);
    TestStarting test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_starting.moc"
