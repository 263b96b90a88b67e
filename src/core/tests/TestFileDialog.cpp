#include "core/FileDialog.h"
#include "core/tests/DialogDriver.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Tesk;

namespace {

const QString PriceFilter = QStringLiteral("Tesk Price List (*.txt)|*.txt");
const QString CartFilter =
    QStringLiteral("Tesk Shopping Cart (*.csv)") + QChar(QChar::Null) + QStringLiteral("*.csv");
const QString CartEnding = QStringLiteral(".csv");

} // namespace

class TestFileDialog : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> folder;

    QString MakeFile(const QString &name) const
    {
        QString path = folder->filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write("content") < 0)
            qFatal("the test's file cannot be written");
        return path;
    }

    /// A path of this many characters, in folders that exist.
    QString PathOfLength(int length) const
    {
        const qsizetype missing = length - folder->path().size() - 1;
        const QString subFolder = QString(40, QLatin1Char('d')) + QLatin1Char('/');
        return subFolder + QString(missing - subFolder.size() - 4, QLatin1Char('f')) +
               QStringLiteral(".txt");
    }

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(folder->isValid());
    }

    void testFilters_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("qtFilter");
        const QChar nul(QChar::Null);
        QTest::newRow("price list") << PriceFilter << QStringLiteral("Tesk Price List (*.txt)");
        QTest::newRow("cart") << QStringLiteral("Tesk Shopping Cart (*.csv)") + nul +
                                     QStringLiteral("*.csv")
                              << QStringLiteral("Tesk Shopping Cart (*.csv)");
        QTest::newRow("NULs at the end")
            << QStringLiteral("Cart (*.csv)") + nul + QStringLiteral("*.csv") + nul + nul
            << QStringLiteral("Cart (*.csv)");
        QTest::newRow("description without its pattern")
            << QStringLiteral("Price list|*.txt") << QStringLiteral("Price list (*.txt)");
        QTest::newRow("other brackets in the description")
            << QStringLiteral("List (customer)|*.txt") << QStringLiteral("List (customer) (*.txt)");
        QTest::newRow("several patterns")
            << QStringLiteral("Texts|*.txt;*.asc") << QStringLiteral("Texts (*.txt *.asc)");
        QTest::newRow("several entries")
            << QStringLiteral("Texts|*.txt|All|*") << QStringLiteral("Texts (*.txt);;All (*)");
        QTest::newRow("none") << QString() << QString();
    }

    void testFilters()
    {
        QFETCH(QString, filter);
        QFETCH(QString, qtFilter);
        QCOMPARE(FileDialog::ToQtFilter(filter), qtFilter);
    }

    void testOpenGivesTheChosenFile()
    {
        const QString path = MakeFile(QStringLiteral("prices.txt"));
        DialogDriver driver({Choose(path)});
        QCOMPARE(FileDialog::ShowOpenDialog(PriceFilter, 0x1800, nullptr),
                 QDir::toNativeSeparators(path));
        QVERIFY(driver.IsDone());
    }

    void testOpenShowsTextFiles()
    {
        QStringList filters;
        DialogDriver driver({[&filters](QDialog &dialog) {
            filters = qobject_cast<QFileDialog *>(&dialog)->nameFilters();
            dialog.reject();
        }});
        FileDialog::ShowOpenDialog(PriceFilter, 0x1800, nullptr);
        QCOMPARE(filters, QStringList{QStringLiteral("Tesk Price List (*.txt)")});
    }

    void testOpenCancelledIsEmpty()
    {
        DialogDriver driver({Cancel});
        QCOMPARE(FileDialog::ShowOpenDialog(PriceFilter, 0x1800, nullptr), QString());
        QVERIFY(driver.IsDone());
    }

    void testOpenRefusesAMissingFile()
    {
        // The dialog says that the file is missing and stays open.
        bool isOpen = false;
        DialogDriver driver({[&](QDialog &dialog) {
                                 Choose(folder->filePath(QStringLiteral("none.txt")))(dialog);
                                 isOpen = dialog.isVisible();
                                 dialog.reject();
                             },
                             Answer(QMessageBox::Ok)});
        QCOMPARE(FileDialog::ShowOpenDialog(PriceFilter, 0x1800, nullptr), QString());
        QVERIFY(driver.IsDone());
        QVERIFY(isOpen);
    }

    void testPathOf127CharactersIsGiven()
    {
        const QString path = MakeFile(PathOfLength(127));
        QCOMPARE(path.size(), 127);
        DialogDriver driver({Choose(path)});
        QCOMPARE(FileDialog::ShowOpenDialog(PriceFilter, 0x1800, nullptr),
                 QDir::toNativeSeparators(path));
    }

    void testLongerPathIsEmpty()
    {
        const QString path = MakeFile(PathOfLength(128));
        QCOMPARE(path.size(), 128);
        DialogDriver driver({Choose(path)});
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("longer than 127")));
        QCOMPARE(FileDialog::ShowOpenDialog(PriceFilter, 0x1800, nullptr), QString());
        QVERIFY(driver.IsDone());
    }

    void testSaveGivesANewFilesPathAsTyped()
    {
        const QString path = folder->filePath(QStringLiteral("order"));
        DialogDriver driver({Choose(path)});
        QCOMPARE(FileDialog::ShowSaveDialog(PriceFilter, 0, nullptr),
                 QDir::toNativeSeparators(path));
        QVERIFY(!QFile::exists(path));
    }

    void testSaveAsksBeforeAFileIsReplaced()
    {
        const QString path = MakeFile(QStringLiteral("order.csv"));
        DialogDriver driver({Choose(path), Answer(QMessageBox::Yes)});
        QCOMPARE(FileDialog::ShowSaveDialog(PriceFilter, 0, nullptr),
                 QDir::toNativeSeparators(path));
        QVERIFY(driver.IsDone());
    }

    void testSaveStaysOpenWhenAFileIsNotToBeReplaced()
    {
        const QString path = MakeFile(QStringLiteral("order.csv"));
        bool isOpen = false;
        DialogDriver driver({[&](QDialog &dialog) {
                                 Choose(path)(dialog);
                                 isOpen = dialog.isVisible();
                                 dialog.reject();
                             },
                             Answer(QMessageBox::No)});
        QCOMPARE(FileDialog::ShowSaveDialog(PriceFilter, 0, nullptr), QString());
        QVERIFY(driver.IsDone());
        QVERIFY(isOpen);
    }

    void testMissingEndingIsAdded()
    {
        const QString path = folder->filePath(QStringLiteral("order"));
        DialogDriver driver({Choose(path)});
        QCOMPARE(FileDialog::ShowSaveDialog(CartFilter, 0, nullptr, CartEnding),
                 QDir::toNativeSeparators(path + QStringLiteral(".csv")));
    }

    void testAnotherEndingIsKeptBeforeTheRightOne()
    {
        const QString path = folder->filePath(QStringLiteral("order.txt"));
        DialogDriver driver({Choose(path)});
        QCOMPARE(FileDialog::ShowSaveDialog(CartFilter, 0, nullptr, CartEnding),
                 QDir::toNativeSeparators(path + QStringLiteral(".csv")));
    }

    void testEndingInOtherCaseIsKept()
    {
        const QString path = folder->filePath(QStringLiteral("Order.CSV"));
        DialogDriver driver({Choose(path)});
        QCOMPARE(FileDialog::ShowSaveDialog(CartFilter, 0, nullptr, CartEnding),
                 QDir::toNativeSeparators(path));
    }

    void testQuestionIsAboutTheNameWithItsEnding()
    {
        MakeFile(QStringLiteral("order.csv"));
        const QString typed = folder->filePath(QStringLiteral("order"));
        QString question;
        DialogDriver driver({Choose(typed), [&question](QDialog &dialog) {
                                 question = qobject_cast<QMessageBox *>(&dialog)->text();
                                 Answer(QMessageBox::Yes)(dialog);
                             }});
        QCOMPARE(FileDialog::ShowSaveDialog(CartFilter, 0, nullptr, CartEnding),
                 QDir::toNativeSeparators(typed + QStringLiteral(".csv")));
        QVERIFY(driver.IsDone());
        QVERIFY(question.contains(QStringLiteral("order.csv")));
    }

    void testNoQuestionAboutTheNameWithoutItsEnding()
    {
        const QString typed = MakeFile(QStringLiteral("order"));
        DialogDriver driver({Choose(typed), Unexpected("a question")});
        QCOMPARE(FileDialog::ShowSaveDialog(CartFilter, 0, nullptr, CartEnding),
                 QDir::toNativeSeparators(typed + QStringLiteral(".csv")));
        QVERIFY(!driver.IsDone());
    }

    void testNameWithItsEndingIsAskedAboutOnce()
    {
        const QString path = MakeFile(QStringLiteral("order.csv"));
        DialogDriver driver(
            {Choose(path), Answer(QMessageBox::Yes), Unexpected("a second question")});
        QCOMPARE(FileDialog::ShowSaveDialog(CartFilter, 0, nullptr, CartEnding),
                 QDir::toNativeSeparators(path));
        QVERIFY(!driver.IsDone());
    }

    void testDialogComesBackWithTheNameThatIsNotToBeReplaced()
    {
        MakeFile(QStringLiteral("order.csv"));
        const QString typed = folder->filePath(QStringLiteral("order"));
        QString shown;
        DialogDriver driver(
            {Choose(typed), Answer(QMessageBox::No), [&shown](QDialog &dialog) {
                 shown = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->text();
                 dialog.reject();
             }});
        QCOMPARE(FileDialog::ShowSaveDialog(CartFilter, 0, nullptr, CartEnding), QString());
        QVERIFY(driver.IsDone());
        QVERIFY2(shown.endsWith(QStringLiteral("order")), qPrintable(shown));
    }

    void testSaveRefusesAMissingFolder_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("ending");
        QTest::addColumn<QString>("missing");
        const auto row = [](const char *title, const char *name, const QString &ending,
                            const char *missing) {
            QTest::newRow(title) << QString::fromLatin1(name) << ending
                                 << QString::fromLatin1(missing);
        };
        row("missing", "none/order.csv", QString(), "none");
        row("missing, ending to be added", "none/order", CartEnding, "none");
        row("several missing", "none/nothing/order.csv", CartEnding, "none/nothing");
        row("a file in its place", "file/order.csv", CartEnding, "file");
    }

    void testSaveRefusesAMissingFolder()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, ending);
        QFETCH(const QString, missing);
        MakeFile(QStringLiteral("file"));
        const QString right = folder->filePath(QStringLiteral("order.csv"));
        QString message;
        QString shown;
        // The user reads the message, finds the name as it was typed and mends it.
        DialogDriver driver(
            {Choose(folder->filePath(name)),
             [&message](QDialog &dialog) {
                 message = qobject_cast<QMessageBox *>(&dialog)->text();
                 Answer(QMessageBox::Ok)(dialog);
             },
             [&](QDialog &dialog) {
                 shown = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->text();
                 Choose(right)(dialog);
             }});
        QCOMPARE(FileDialog::ShowSaveDialog(CartFilter, 0, nullptr, ending),
                 QDir::toNativeSeparators(right));
        QVERIFY(driver.IsDone());
        QVERIFY2(message.contains(QDir::toNativeSeparators(folder->filePath(missing)) +
                                  QLatin1Char('\n')),
                 qPrintable(message));
        QVERIFY2(shown.endsWith(name), qPrintable(shown));
    }

    void testOpenOfAnyNameRefusesAMissingFolder()
    {
        DialogDriver driver({Choose(folder->filePath(QStringLiteral("none/prices.txt"))),
                             Answer(QMessageBox::Ok), Cancel});
        QCOMPARE(FileDialog::ShowOpenDialog(PriceFilter, FileDialog::PathMustExist, nullptr),
                 QString());
        QVERIFY(driver.IsDone());
    }

    void testSaveCancelledIsEmpty()
    {
        DialogDriver driver({Cancel});
        QCOMPARE(FileDialog::ShowSaveDialog(PriceFilter, 0, nullptr), QString());
        QVERIFY(driver.IsDone());
    }

    void testSaveLongerPathIsEmpty()
    {
        const QString path = folder->filePath(PathOfLength(128));
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        DialogDriver driver({Choose(path)});
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("longer than 127")));
        QCOMPARE(FileDialog::ShowSaveDialog(PriceFilter, 0, nullptr), QString());
        QVERIFY(driver.IsDone());
    }
};

QTEST_MAIN(TestFileDialog)
#include "TestFileDialog.moc"
