#include "browser/WebBrowser.h"
#include "support/CatalogueWindow.h"
#include "support/Dialogs.h"
#include "support/EngineTest.h"
#include "support/SampleCatalogue.h"
#include "support/ShownPage.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/MainMenu.h"
#include "ui/main/PageProtocol.h"

#include <QAction>
#include <QComboBox>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

using namespace Tesk;

/// Languages and units, changed while the sample catalogue is read.
class TestLanguages final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testLanguageChangeKeepsTheNodeAndRefillsThePage()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const CategoryNode *const leaf = FindLongLeaf(catalogue);
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        const QString english = leaf->text;
        QTest::mouseClick(catalogue.Window().header->btnLang[0], Qt::LeftButton);
        QCOMPARE(catalogue.Window().CurrentNode(), leaf);
        QVERIFY(leaf->text != english);
        QCOMPARE(catalogue.Window().TreeViewCategories->ItemOf(leaf)->text(0), leaf->text);
        QVERIFY(WaitUntil([&] {
            return InnerText(catalogue, QStringLiteral("caption")).trimmed() == leaf->text;
        }));
        QCOMPARE(catalogue.Window().tabMain->tabText(0),
                 catalogue.GetController().GetText(QStringLiteral("tabControlMain")));
        QCOMPARE(catalogue.GetRegistry().RegGetString(SettingsKey, QStringLiteral("Location")),
                 QStringLiteral("German"));
    }

    void testMenuAndLabelChooseALanguageAlike()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        // Of each language the ground of its button, as it is painted, and the tick of its entry.
        const auto highlight = [&] {
            QString marks;
            for (size_t i = 0; i < 5; ++i) {
                const QImage button = catalogue.Window().header->btnLang[i]->grab().toImage();
                const QColor ground = button.pixelColor(3, button.height() / 2);
                marks += ground == QColor(0xE0, 0xE0, 0xE0)   ? u'1'
                         : ground == QColor(0xFF, 0xFF, 0xFF) ? u'0'
                                                              : u'?';
                marks += QString::number(catalogue.Window().menus->mLanguageSelect[i]->isChecked());
            }
            return marks;
        };
        QCOMPARE(highlight(), QStringLiteral("0011000000"));
        QTest::mouseClick(catalogue.Window().header->btnLang[2], Qt::LeftButton);
        QCOMPARE(highlight(), QStringLiteral("0000110000"));
        catalogue.Window().menus->mLanguageSelect[3]->trigger();
        QCOMPARE(highlight(), QStringLiteral("0000001100"));
        catalogue.Window().menus->mLanguageSelect[3]->trigger();
        QCOMPARE(highlight(), QStringLiteral("0000001100"));
        QTest::mouseClick(catalogue.Window().header->btnLang[3], Qt::LeftButton);
        QCOMPARE(highlight(), QStringLiteral("0000001100"));
        QCOMPARE(catalogue.GetController().Languages().CurrentCode(), QStringLiteral("sp"));
    }

    void testMenuKeepsTheLanguageAndRefillsThePage()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const CategoryNode *const leaf = FindLongLeaf(catalogue);
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        const QString english = leaf->text;
        MainMenu &menus = *catalogue.Window().menus;
        ChooseFromMenu(catalogue, menus.mLanguage, menus.mLanguageSelect[3]);
        QVERIFY(leaf->text != english);
        QVERIFY(WaitUntil([&] { return ShownCaption(catalogue) == leaf->text; }));
        QCOMPARE(catalogue.GetRegistry().RegGetString(SettingsKey, QStringLiteral("Location")),
                 QStringLiteral("Spanish"));
    }

    void testLanguageChangeRefillsThePageBehindAJump()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const CategoryNode *const leaf = FindLongLeaf(catalogue);
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        QSignalSpy filled(&catalogue.Window().Protocol(), &PageProtocol::PageFilled);
        catalogue.Evaluate(QStringLiteral("location.hash = 'contListRow5'"));
        QVERIFY(WaitUntil([&] { return filled.size() == 1; }));
        QVERIFY(catalogue.Window().Protocol().CurrentUrl().endsWith(
            leaf->tag + QLatin1String("#contListRow5")));
        QCOMPARE(RowCount(catalogue), 20);
        const QString english = leaf->text;
        QTest::mouseClick(catalogue.Window().header->btnLang[0], Qt::LeftButton);
        QVERIFY(leaf->text != english);
        QVERIFY(WaitUntil([&] {
            return InnerText(catalogue, QStringLiteral("caption")).trimmed() == leaf->text;
        }));
        QCOMPARE(RowCount(catalogue), 20);
    }

    void testDocumentComesBackInTheNewLanguage()
    {
        CatalogueWindow catalogue(SampleCatalogue, QStringLiteral("German"));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        QSignalSpy complete(catalogue.Window().wbMain, &WebBrowser::DocumentComplete);
        catalogue.Window().wbMain->Navigate(
            catalogue.GetController().GetInfoDocumentUrl(QStringLiteral("hcare")));
        QVERIFY(WaitUntil([&] { return complete.size() == 1; }));
        QVERIFY(catalogue.Window().Protocol().CurrentUrl().endsWith(
            QLatin1String("/Dokumente/info_ge_care.html")));
        QTest::mouseClick(catalogue.Window().header->btnLang[1], Qt::LeftButton);
        QVERIFY(WaitUntil([&] { return complete.size() == 2; }));
        QVERIFY(catalogue.Window().Protocol().CurrentUrl().endsWith(
            QLatin1String("/Dokumente/info_en_care.html")));
    }

    void testInchShowsTheOtherSizes()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const CategoryNode *const leaf = FindLongLeaf(catalogue);
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        const ResultTable rows = catalogue.Window().Protocol().ProductRows();
        const QString cm = GetField(QStringLiteral("p.sCm"), rows, 1);
        const QString inch = GetField(QStringLiteral("p.sInch"), rows, 1);
        QVERIFY(InnerText(catalogue, QStringLiteral("contListRow1")).contains(cm));
        QComboBox *const units = catalogue.Window().header->cbUnitSelection;
        units->setFocus();
        QTest::keyClick(units, Qt::Key_Down);
        QCOMPARE(catalogue.GetController().GetUnit(), 1);
        QVERIFY(WaitUntil(
            [&] { return InnerText(catalogue, QStringLiteral("contListRow1")).contains(inch); }));
        QVERIFY(!InnerText(catalogue, QStringLiteral("contListRow1")).contains(cm));
    }

    void testAllLanguagesFillEveryPage_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("category");
        QTest::addColumn<QString>("description");
        const auto add = [](const char *language, const char *code, const char *category,
                            const char *description) {
            QTest::newRow(language)
                << QString::fromLatin1(language) << QString::fromLatin1(code)
                << QString::fromUtf8(category) << QString::fromUtf8(description);
        };
        // The sample's category 3 and the captions of its lists.
        add("German", "ge", "Präparierscheren", "Beschreibung");
        add("English", "en", "Dissecting scissors", "Description");
        add("French", "fr", "Ciseaux à dissection", "Description");
        add("Spanish", "sp", "Tijeras de disección", "Descripción");
        add("Italian", "it", "Forbici per dissezione", "Descrizione");
    }

    void testAllLanguagesFillEveryPage()
    {
        QFETCH(QString, language);
        QFETCH(QString, code);
        CatalogueWindow catalogue(SampleCatalogue, language);
        QCOMPARE(catalogue.GetController().Languages().CurrentCode(), code);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        const CategoryNode *const leaf = catalogue.Window().Tree().FindByTag(QStringLiteral("3"));
        QVERIFY(leaf != nullptr);
        ClickInTree(catalogue, leaf);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
        QTEST(ShownCaption(catalogue), "category");
        QFETCH(const QString, description);
        const QString list = InnerText(catalogue, QStringLiteral("list"));
        QVERIFY2(list.contains(description), qPrintable(list));
        const ResultTable rows = catalogue.Window().Protocol().ProductRows();
        QVERIFY(catalogue.Click(QStringLiteral("#contListRow1 a.prodItem")));
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_details.html")));
        QCOMPARE(InnerText(catalogue, QStringLiteral("productTitle")).trimmed(),
                 GetField(QStringLiteral("l.name"), rows, 1));
    }

    void testButtonsOfTheDesktopSpeakTheLanguage()
    {
        CatalogueWindow catalogue(SampleCatalogue, QStringLiteral("German"));
        const auto yes = [] {
            QMessageBox box(QMessageBox::NoIcon, QString(), QString(), QMessageBox::Yes);
            return box.button(QMessageBox::Yes)->text().remove(u'&');
        };
        QCOMPARE(yes(), QStringLiteral("Ja"));
        QTest::mouseClick(catalogue.Window().header->btnLang[4], Qt::LeftButton);
        QCOMPARE(yes(), QStringLiteral("Sì"));
        QTest::mouseClick(catalogue.Window().header->btnLang[1], Qt::LeftButton);
        QCOMPARE(yes(), QStringLiteral("Yes"));
    }
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestLanguages>(argc, argv);
}
#include "test_languages.moc"
