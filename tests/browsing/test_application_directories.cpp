#include "base/Errors.h"
#include "support/CatalogueWindow.h"
#include "support/EngineTest.h"
#include "support/Files.h"
#include "support/SampleCatalogue.h"
#include "support/ShownPage.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/MainMenu.h"
#include "ui/main/PageProtocol.h"

#include <QAction>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Tesk;

/// The program in application directories other than the sample's own.
class TestApplicationDirectories final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testFolderWithBlanksAndAnUmlaut()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("Lenas' Katalog für 100% #1"));
        QVERIFY(CopyApplicationDirectory(SampleCatalogue, path));
        CatalogueWindow catalogue(path);
        QVERIFY(catalogue.WaitForFilledPage(
            QStringLiteral("Lenas' Katalog für 100% #1/content/welcome.html")));
        const CategoryNode *const leaf = FindLongLeaf(catalogue);
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        QVERIFY(catalogue.Click(QStringLiteral("#contListRow1 td:nth-child(2)")));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_details.html")));
        QVERIFY(catalogue.WaitFor(
            QStringLiteral("product_details"),
            QStringLiteral("document.querySelector('#productImages img') !== null &&"
                           " [...document.images].every("
                           "i => i.complete && i.naturalWidth > 0)")));
    }

    void testDatabaseOfTheVersion2Engine()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("app"));
        QVERIFY(CopyApplicationDirectory(SampleCatalogue, path));
        QVERIFY(QFile::remove(path + QLatin1String("/catalog.db")));
        QVERIFY(QFile::copy(QStringLiteral(SAMPLES_DIR "/catalog.db"),
                            path + QLatin1String("/catalog.db")));
        CatalogueWindow catalogue(path);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        QCOMPARE(catalogue.Window().Tree().Nodes().size(), size_t(22));
        const CategoryNode *const leaf = catalogue.Window().Tree().FindByTag(QStringLiteral("2"));
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        QCOMPARE(RowCount(catalogue), 12);
        QVERIFY(InnerText(catalogue, QStringLiteral("contListRow1"))
                    .contains(QStringLiteral("Scissors Ibáñez straight")));
    }

    void testMissingPageLeavesNoHourglass()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("app"));
        QVERIFY(CopyApplicationDirectory(SampleCatalogue, path));
        QVERIFY(QFile::remove(path + QLatin1String("/content/product_list.html")));
        CatalogueWindow catalogue(path);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        ClickInTree(catalogue, FindLongLeaf(catalogue));
        QVERIFY(QApplication::overrideCursor() != nullptr);
        QVERIFY(WaitUntil([] { return QApplication::overrideCursor() == nullptr; }));
        const CategoryNode *const top = catalogue.Window().Tree().Nodes().front().get();
        ClickInTree(catalogue, top);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("category_list.html")));
        QVERIFY(WaitUntil([] { return QApplication::overrideCursor() == nullptr; }));
    }

    void testMissingVersionFileIsAnError()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("app"));
        QVERIFY(CopyApplicationDirectory(SampleCatalogue, path));
        QVERIFY(QFile::remove(path + QLatin1String("/version")));
        QVERIFY_THROWS_EXCEPTION(FileError, CatalogueWindow{path});
    }

    void testFailedPriceListOfTheMenuIsToldAndTheProgramGoesOn()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("twice.txt"));
        WriteBytes(path, "AB 1\t1,00\r\nAB1\t2,00\r\n");
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        QString message;
        QVERIFY(CatalogueWindow::AnswerDialogs(
            [&] {
                QTimer::singleShot(0, catalogue.Window().menus->mLoadPriceList, &QAction::trigger);
            },
            {[&](QWidget *dialog) {
                 auto *const name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
                 QVERIFY(name != nullptr);
                 name->setText(path);
                 QTest::keyClick(name, Qt::Key_Return);
             },
             [&](QWidget *box) {
                 message = qobject_cast<QMessageBox *>(box)->text();
                 QTest::keyClick(box, Qt::Key_Return);
             }}));
        QVERIFY2(message.contains(path) && message.contains(QLatin1String("AB1")),
                 qPrintable(message));
        QCOMPARE(catalogue.GetRegistry().RegGetString(SettingsKey, QStringLiteral("PriceListPath")),
                 QString());
        ClickInTree(catalogue, FindLongLeaf(catalogue));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
    }
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestApplicationDirectories>(argc, argv);
}
#include "test_application_directories.moc"
