#include "base/Errors.h"
#include "support/BoxReader.h"
#include "support/WaitUntil.h"
#include "ui/main/CatalogApplication.h"

#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <stdexcept>

using namespace Tesk;

namespace {

const QString Message =
    QStringLiteral("The list \"<b>a\" holds a number twice. Choose another list.");

void ExpectLogLine(const QString &text)
{
    QTest::ignoreMessage(QtWarningMsg, qPrintable(text));
}

} // namespace

/// Errors that no slot caught.
class TestCatalogApplication final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testErrorInASlotIsShownAndTheProgramGoesOn()
    {
        const BoxReader boxes;
        for (int round = 1; round <= 2; ++round) {
            ExpectLogLine(Message);
            QTimer::singleShot(0, this, [] { throw DuplicateKeyError(Message); });
            QTRY_COMPARE(boxes.seen.size(), round);
            QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
        }
        QCOMPARE(boxes.seen, QList<QStringList>({{Message}, {Message}}));
        // A file's name may look like mark-up.
        QVERIFY(boxes.isPlain);
    }

    void testForeignErrorIsShownToo()
    {
        const BoxReader boxes;
        ExpectLogLine(QStringLiteral("no room left"));
        QTimer::singleShot(0, this, [] { throw std::runtime_error("no room left"); });
        QTRY_COMPARE(boxes.seen, QList<QStringList>({{QStringLiteral("no room left")}}));
    }

    void testErrorIsShownInTheLanguageAndLoggedInEnglish()
    {
        auto *const application = qobject_cast<CatalogApplication *>(qApp);
        application->SetTextLookup([](const QString &key) {
            return key == QLatin1String("errorFull") ? QStringLiteral("{0} ist voll.") : QString();
        });
        const auto tellAfter = [this](const ErrorText &text) {
            const BoxReader boxes;
            ExpectLogLine(Message);
            QTimer::singleShot(0, this, [text] { throw OverflowError(Message, text); });
            (void)WaitUntil([&] { return !boxes.seen.isEmpty(); });
            return boxes.seen.value(0);
        };
        const ErrorText full{QStringLiteral("errorFull"), {QStringLiteral("Der Korb")}};
        QCOMPARE(tellAfter(full), QStringList(QStringLiteral("Der Korb ist voll.")));
        QCOMPARE(tellAfter({QStringLiteral("errorOther"), {}}), QStringList(Message));
        application->SetTextLookup({});
        QCOMPARE(tellAfter(full), QStringList(Message));
    }

    void testProgramIsNamedAsItsWindowIs()
    {
        QCOMPARE(QCoreApplication::applicationName(), QStringLiteral("Tesk Instruments Catalog"));
    }

    void testErrorsAtATimeShowOneBox()
    {
        const BoxReader boxes;
        ExpectLogLine(Message);
        ExpectLogLine(QStringLiteral("second"));
        QTimer::singleShot(0, this, [] { throw DuplicateKeyError(Message); });
        QTimer::singleShot(0, this, [] { throw DuplicateKeyError(QStringLiteral("second")); });
        QTRY_VERIFY(!boxes.seen.isEmpty());
        QTRY_VERIFY(TextsOfOpenBoxes().isEmpty());
        QCOMPARE(boxes.seen, QList<QStringList>({{Message}}));
    }
};

int main(int argc, char **argv)
{
    CatalogApplication application(argc, argv);
    TestCatalogApplication test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_catalog_application.moc"
