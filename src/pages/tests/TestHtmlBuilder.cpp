#include "core/Controller.h"
#include "core/Registry.h"
#include "core/ResultTable.h"
#include "pages/HtmlBuilder.h"
#include "support/RecordingDocument.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;

/// The builder on the controller of an application directory.
class TestHtmlBuilder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void testPagesTakeTheControllersAnswers();
    void testPagesFollowTheUnit();

private:
    void WriteFile(const QString &name, const QByteArray &bytes) const;
    QString Facts() const;

    QTemporaryDir folder;
    std::unique_ptr<Registry> registry;
    std::unique_ptr<Controller> controller;
};

void TestHtmlBuilder::WriteFile(const QString &name, const QByteArray &bytes) const
{
    QVERIFY(QDir().mkpath(QFileInfo(folder.filePath(name)).path()));
    QFile file(folder.filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

void TestHtmlBuilder::initTestCase()
{
    WriteFile(QStringLiteral("app/resources.chm"), "container");
    WriteFile(QStringLiteral("app/catalog.db"), "no database");
    WriteFile(QStringLiteral("app/PDF/AB_12.pdf"), "data sheet");
    for (const char *code : {"ge", "en", "fr", "sp", "it"}) {
        WriteFile(QStringLiteral("app/content/loc_%1.txt").arg(QLatin1String(code)),
                  QByteArray("productListAddToShoppingCart=cart ") + code + "\r\n");
    }
    WriteFile(QStringLiteral("prices.txt"), "AB 12\t9,50\r\n");

    registry = std::make_unique<Registry>(folder.filePath(QStringLiteral("settings.json")));
    registry->RegSetString(SettingsKey, QStringLiteral("Location"), QStringLiteral("French"));
    controller = std::make_unique<Controller>(
        QDir::toNativeSeparators(folder.filePath(QStringLiteral("app"))), *registry,
        folder.filePath(QStringLiteral("cache")));
    controller->InitApplication();
    controller->Prices().LoadPriceList(folder.filePath(QStringLiteral("prices.txt")));
}

/// The line of facts of the article AB 12, 10 cm or 4 inches long.
QString TestHtmlBuilder::Facts() const
{
    ResultTable table({QStringLiteral("p.ID"), QStringLiteral("p.artNr"), QStringLiteral("p.sCm"),
                       QStringLiteral("p.sInch"), QStringLiteral("p.helpId"),
                       QStringLiteral("p.filePath"), QStringLiteral("p.img1"),
                       QStringLiteral("l.name")});
    table.AddRow({QStringLiteral("12"), QStringLiteral("AB 12"), QStringLiteral("10 cm"),
                  QStringLiteral("4 in"), QStringLiteral("xclamps"), QStringLiteral("/k"),
                  QStringLiteral("a.gif"), QStringLiteral("Pince")});
    RecordingDocument document;
    HtmlBuilder(*controller).WriteProductDetails(document, table, {}, nullptr);
    return document.Html(QStringLiteral("productDetails")) +
           document.Html(QStringLiteral("productImages"));
}

void TestHtmlBuilder::testPagesTakeTheControllersAnswers()
{
    const QString expected =
        QStringLiteral("<table width=\"100%\" border=\"0\"><tr class=\"contListRow\">"
                       "<td class=\"prodItem\" valign=\"top\">AB 12</td>"
                       "<td class=\"prodItem\" valign=\"top\">Pince</td>"
                       "<td width=\"50\" class=\"prodItem\" valign=\"top\">10 cm</td>"
                       "<td width=\"50\" class=\"prodItem\" valign=\"top\"></td>"
                       "<td width=\"50\" class=\"prodItem\" valign=\"top\">9,50&nbsp;EUR</td>"
                       "<td width=\"25\" valign=\"top\"><a href=\"[content]/PDF/AB_12.pdf\">"
                       "<img src=\"img/pdf_icon.gif\" border=\"0\"></a></td>"
                       "<td width=\"25\" valign=\"top\">"
                       "<a href=\"[resources]/Dokumente/info_fr_clamps.html\">"
                       "<img src=\"img/help.gif\" border=\"0\"></a></td>"
                       "<td width=\"25\" valign=\"top\"><a href=\"javascript:setStatusbar(12)\">"
                       "<img src=\"img/contWarenkorb.gif\" border=\"0\" alt=\"cart fr\"></a></td>"
                       "</tr></table>"
                       "<table><tr><td class=\"prodItem\">"
                       "<img src=\"[resources]/Grafiken/gross/k/a.gif\"><br></td></tr></table>");
    QString facts = Facts();
    facts.replace(controller->GetContentBaseUrl(), QStringLiteral("[content]"));
    facts.replace(controller->GetResourceBaseUrl(), QStringLiteral("[resources]"));
    QCOMPARE(facts, expected);
}

void TestHtmlBuilder::testPagesFollowTheUnit()
{
    controller->SetUnit(1);
    QVERIFY(Facts().contains(QStringLiteral("valign=\"top\">4 in</td>")));
    controller->SetUnit(0);
    QVERIFY(Facts().contains(QStringLiteral("valign=\"top\">10 cm</td>")));
}

QTEST_GUILESS_MAIN(TestHtmlBuilder)
#include "TestHtmlBuilder.moc"
