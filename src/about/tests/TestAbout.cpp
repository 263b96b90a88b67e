#include "KnownKeys.h"
#include "about/ProgramInfo.h"
#include "about/frmAbout.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Tesk;

namespace {

const QString ProgramKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO");
const QString FolderKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location");
const QString NotAvailable = QStringLiteral("Systeminformationen sind momentan nicht verfügbar");

} // namespace

class TestAbout : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> folder;
    std::shared_ptr<KnownKeys> registry;
    QHash<QString, QString> texts;
    QStringList started;
    bool isStartable = true;
    QString message;
    Qt::TextFormat messageFormat = Qt::AutoText;
    QMessageBox::StandardButtons messageButtons;
    std::unique_ptr<frmAbout> dialog;

    void WriteVersion(const QByteArray &bytes) const
    {
        QFile file(folder->filePath(QStringLiteral("version")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    void Open()
    {
        dialog = std::make_unique<frmAbout>(
            [this](const QString &key) { return texts.value(key); }, folder->path(), nullptr,
            frmAbout::SystemAccess{registry, [this](const QString &path) {
                                       started += path;
                                       return isStartable;
                                   }});
        dialog->open();
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    }

    QString Text(const char *name) const
    {
        return dialog->findChild<QLabel *>(QLatin1String(name))->text();
    }

    QPushButton *Button(const char *name) const
    {
        return dialog->findChild<QPushButton *>(QLatin1String(name));
    }

    /// Clicks cmdSysInfo and notes the message box that it may open.
    void ClickSysInfo()
    {
        QTimer answer;
        connect(&answer, &QTimer::timeout, this, [this] {
            auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box)
                return;
            message = box->text();
            messageFormat = box->textFormat();
            messageButtons = box->standardButtons();
            QTest::keyClick(box, Qt::Key_Return);
        });
        answer.start(0);
        QTest::mouseClick(Button("cmdSysInfo"), Qt::LeftButton);
    }

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        registry = std::make_shared<KnownKeys>();
        texts = {{QStringLiteral("disclaimer"), QStringLiteral("Änderungen vorbehalten <b>&amp;")},
                 {QStringLiteral("commonButtonOK"), QStringLiteral("Aceptar")}};
        started.clear();
        isStartable = true;
        message.clear();
        messageButtons = {};
        WriteVersion("1.5\r\n");
    }

    void testTellsTitleVersionNoticesAndDisclaimer()
    {
        Open();
        QVERIFY(!ProgramInfo::Title.isEmpty());
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Info zu ") + ProgramInfo::Title);
        QCOMPARE(Text("lblTitle"), ProgramInfo::Title);
        QCOMPARE(Text("lblVersion"), QStringLiteral("Version 1.5"));
        QCOMPARE(Text("lblDescription"),
                 ProgramInfo::LegalNotice + QStringLiteral("\r\n\r\n") + ProgramInfo::Comments);
        QCOMPARE(Text("lblDisclaimer"), QStringLiteral("Änderungen vorbehalten <b>&amp;"));
        QCOMPARE(dialog->findChild<QLabel *>(QStringLiteral("lblDisclaimer"))->textFormat(),
                 Qt::PlainText);
    }

    void testEmptyVersionIsADash()
    {
        WriteVersion("\r\n");
        Open();
        QCOMPARE(Text("lblVersion"), QStringLiteral("Version –"));
    }

    void testUnreadableVersionIsADashAndALineOfTheLog_data()
    {
        QTest::addColumn<bool>("isFolder");
        QTest::newRow("missing") << false;
        QTest::newRow("a folder") << true;
    }

    void testUnreadableVersionIsADashAndALineOfTheLog()
    {
        QFETCH(const bool, isFolder);
        const QString path = folder->filePath(QStringLiteral("version"));
        QFile::remove(path);
        if (isFolder)
            QVERIFY(QDir().mkdir(path));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(
                                               "^The file \".*version\" .* Put back the file")));
        Open();
        QVERIFY(dialog->isVisible());
        QCOMPARE(Text("lblVersion"), QStringLiteral("Version –"));
    }

    void testOkEnterEscapeAndTheFrameClose_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("OK") << 0;
        QTest::newRow("Enter") << 1;
        QTest::newRow("Escape") << 2;
        QTest::newRow("window frame") << 3;
    }

    void testOkEnterEscapeAndTheFrameClose()
    {
        QFETCH(const int, way);
        Open();
        QCOMPARE(Button("cmdOK")->text(), QStringLiteral("Aceptar"));
        QVERIFY(Button("cmdOK")->hasFocus());
        if (way == 0)
            QTest::mouseClick(Button("cmdOK"), Qt::LeftButton);
        else if (way == 1)
            QTest::keyClick(Button("cmdOK"), Qt::Key_Return);
        else if (way == 2)
            QTest::keyClick(dialog.get(), Qt::Key_Escape);
        else
            dialog->close();
        QVERIFY(!dialog->isVisible());
        QVERIFY(started.isEmpty());
    }

    void testOpeningAgainShowsTheCurrentLanguage()
    {
        Open();
        dialog->accept();
        texts[QStringLiteral("disclaimer")] = QStringLiteral("Subject to changes");
        dialog->open();
        QCOMPARE(Text("lblDisclaimer"), QStringLiteral("Subject to changes"));
    }

    void testStartsTheProgramThatTheRegistryNames()
    {
        registry->SetText(ProgramKey, QStringLiteral("PATH"), QStringLiteral("C:\\My Tool.exe"));
        registry->SetText(FolderKey, QStringLiteral("MSINFO"), folder->path());
        Open();
        ClickSysInfo();
        QCOMPARE(started, QStringList{QStringLiteral("C:\\My Tool.exe")});
        QCOMPARE(message, QString());
        QCOMPARE(registry->openedKeys, QStringList{ProgramKey});
        QCOMPARE(registry->openedHives,
                 QList<RegistryKeys::Hive>{RegistryKeys::Hive::LocalMachine});
        QVERIFY(dialog->isVisible());
    }

    void testStartsTheProgramOfTheSharedFolderWhenItExists()
    {
        registry->SetText(FolderKey, QStringLiteral("MSINFO"),
                          folder->filePath(QStringLiteral("x")));
        // The "\" that joins folder and name is part of the file's name where "/" parts folders.
        QFile program(folder->filePath(QStringLiteral("x\\MSINFO32.EXE")));
#ifdef Q_OS_WIN
        QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("x")));
#endif
        QVERIFY(program.open(QIODevice::WriteOnly));
        Open();
        ClickSysInfo();
        QCOMPARE(started, QStringList{folder->filePath(QStringLiteral("x")) +
                                      QStringLiteral("\\MSINFO32.EXE")});
        QCOMPARE(message, QString());
        QCOMPARE(registry->openedKeys, (QStringList{ProgramKey, FolderKey}));
        QCOMPARE(registry->openCount, 0);
    }

    void testSharedFolderWithoutTheProgramGivesTheMessage()
    {
        registry->SetText(FolderKey, QStringLiteral("MSINFO"), folder->path());
        Open();
        ClickSysInfo();
        QVERIFY(started.isEmpty());
        QCOMPARE(message, NotAvailable);
    }

    void testMessageIsGermanInEveryLanguage()
    {
        texts.clear();
        Open();
        ClickSysInfo();
        QCOMPARE(message, NotAvailable);
        QCOMPARE(messageFormat, Qt::PlainText);
        QCOMPARE(messageButtons, QMessageBox::StandardButtons(QMessageBox::Ok));
        QVERIFY(started.isEmpty());
        QVERIFY(dialog->isVisible());
    }

    void testProgramThatDoesNotStartGivesTheMessage()
    {
        isStartable = false;
        registry->SetText(ProgramKey, QStringLiteral("PATH"), QStringLiteral("C:\\Gone.exe"));
        Open();
        ClickSysInfo();
        QCOMPARE(started, QStringList{QStringLiteral("C:\\Gone.exe")});
        QCOMPARE(message, NotAvailable);
    }

    void testNothingIsCut_data()
    {
        QTest::addColumn<int>("length");
        QTest::newRow("short") << 1;
        QTest::newRow("usual") << 12;
        QTest::newRow("long") << 40;
    }

    void testNothingIsCut()
    {
        QFETCH(const int, length);
        texts[QStringLiteral("disclaimer")] =
            QStringLiteral("Änderungen bleiben ausdrücklich vorbehalten. ").repeated(length);
        Open();
        for (const QLabel *const label : dialog->findChildren<QLabel *>()) {
            QVERIFY(dialog->rect().contains(label->geometry()));
            QVERIFY2(label->height() >= label->heightForWidth(label->width()),
                     qPrintable(label->objectName()));
        }
        for (const char *const name : {"cmdOK", "cmdSysInfo"})
            QVERIFY(dialog->rect().contains(Button(name)->geometry()));
    }
};

QTEST_MAIN(TestAbout)
#include "TestAbout.moc"
