#include "base/Errors.h"
#include "cart/file/CartFileCommands.h"
#include "cart/file/tests/CartFiles.h"
#include "core/tests/DialogDriver.h"

#include <QFileDialog>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Tesk;
using namespace Tesk::CartFiles;

namespace {

const QByteArray CartBytes("1;AB 1;Clamp;3;\r\n\r\n\r\n");
const QByteArray OldBytes("old");

} // namespace

/// Saving and loading as the user asks for it, through the file dialogs.
class TestCartFileCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init();

    void testNameWithoutEndingGetsIt();
    void testEndingInCapitalsIsKept();
    void testBothDialogsOfferCartFiles();
    void testCancelledSaveWritesNothing();
    void testReplacementIsAskedForTheNameThatIsWritten();
    void testRefusedReplacementKeepsTheFile();
    void testFileOfTheTypedNameIsNotAskedForNorTouched();
    void testLoad();
    void testCancelledLoadKeepsTheCart();
    void testFailedSaveIsAnError();

private:
    QString PathOf(const char *name) const { return folder->filePath(QLatin1String(name)); }

    std::unique_ptr<QTemporaryDir> folder;
    clsShoppingCart cart;
};

void TestCartFileCommands::init()
{
    folder = std::make_unique<QTemporaryDir>();
    cart.Clear();
    cart.AddItem(MakeItem(QStringLiteral("1"), QStringLiteral("AB 1"), QStringLiteral("Clamp"), 3));
}

void TestCartFileCommands::testNameWithoutEndingGetsIt()
{
    DialogDriver driver({Choose(PathOf("order"))});
    QVERIFY(CartFileCommands::AskAndSave(cart, nullptr));
    QCOMPARE(BytesOf(PathOf("order.csv")), CartBytes);
    QVERIFY(!QFile::exists(PathOf("order")));
}

void TestCartFileCommands::testEndingInCapitalsIsKept()
{
    DialogDriver driver({Choose(PathOf("Order.CSV"))});
    QVERIFY(CartFileCommands::AskAndSave(cart, nullptr));
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files), QStringList(QStringLiteral("Order.CSV")));
}

void TestCartFileCommands::testBothDialogsOfferCartFiles()
{
    QList<QStringList> filters;
    QList<QFileDialog::FileMode> modes;
    const auto look = [&](QDialog &dialog) {
        const auto *const files = qobject_cast<QFileDialog *>(&dialog);
        filters.append(files->nameFilters());
        modes.append(files->fileMode());
        dialog.reject();
    };
    DialogDriver driver({look, look});
    QVERIFY(!CartFileCommands::AskAndSave(cart, nullptr));
    QVERIFY(!CartFileCommands::AskAndLoad(cart, nullptr));
    const QStringList cartFiles(QStringLiteral("Tesk Shopping Cart (*.csv)"));
    QCOMPARE(filters, (QList<QStringList>{cartFiles, cartFiles}));
    QCOMPARE(modes,
             (QList<QFileDialog::FileMode>{QFileDialog::AnyFile, QFileDialog::ExistingFile}));
}

void TestCartFileCommands::testCancelledSaveWritesNothing()
{
    DialogDriver driver({Cancel});
    QVERIFY(!CartFileCommands::AskAndSave(cart, nullptr));
    QVERIFY(QDir(folder->path()).isEmpty());
}

void TestCartFileCommands::testReplacementIsAskedForTheNameThatIsWritten()
{
    WriteBytes(PathOf("order.csv"), OldBytes);
    DialogDriver driver({Choose(PathOf("order")), Answer(QMessageBox::Yes)});
    QVERIFY(CartFileCommands::AskAndSave(cart, nullptr));
    QVERIFY(driver.IsDone());
    QCOMPARE(BytesOf(PathOf("order.csv")), CartBytes);
}

void TestCartFileCommands::testRefusedReplacementKeepsTheFile()
{
    WriteBytes(PathOf("order.csv"), OldBytes);
    DialogDriver driver({Choose(PathOf("order")), Answer(QMessageBox::No), Cancel});
    QVERIFY(!CartFileCommands::AskAndSave(cart, nullptr));
    QVERIFY(driver.IsDone());
    QCOMPARE(BytesOf(PathOf("order.csv")), OldBytes);
}

void TestCartFileCommands::testFileOfTheTypedNameIsNotAskedForNorTouched()
{
    WriteBytes(PathOf("order"), OldBytes);
    DialogDriver driver({Choose(PathOf("order")), Cancel});
    QVERIFY(CartFileCommands::AskAndSave(cart, nullptr));
    QVERIFY(!driver.IsDone());
    QCOMPARE(BytesOf(PathOf("order.csv")), CartBytes);
    QCOMPARE(BytesOf(PathOf("order")), OldBytes);
}

void TestCartFileCommands::testLoad()
{
    WriteBytes(PathOf("order.csv"), "2;AB 2;Case;1;left\r\n\r\n\r\n");
    DialogDriver driver({Choose(PathOf("order.csv"))});
    QVERIFY(CartFileCommands::AskAndLoad(cart, nullptr));
    QCOMPARE(LinesOf(cart), QStringList(QStringLiteral("2|AB 2|Case|1|left")));
}

void TestCartFileCommands::testCancelledLoadKeepsTheCart()
{
    DialogDriver driver({Cancel});
    QVERIFY(!CartFileCommands::AskAndLoad(cart, nullptr));
    QCOMPARE(LinesOf(cart), QStringList(QStringLiteral("1|AB 1|Clamp|3|")));
}

void TestCartFileCommands::testFailedSaveIsAnError()
{
    QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("order.csv")));
    DialogDriver driver({Choose(PathOf("order"))});
    QVERIFY_THROWS_EXCEPTION(FileError, CartFileCommands::AskAndSave(cart, nullptr));
}

QTEST_MAIN(TestCartFileCommands)
#include "TestCartFileCommands.moc"
