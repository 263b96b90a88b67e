#include "Expected.h"
#include "FakePageContext.h"
#include "Tables.h"
#include "pages/HtmlBuilder.h"
#include "support/RecordingDocument.h"

#include <QTest>

using namespace Tesk;

namespace {

const std::vector<QString> Scissors{
    QStringLiteral("20"), QStringLiteral("1"), {}, QStringLiteral("Scissors")};
const std::vector<QString> Dissecting{QStringLiteral("21"), QStringLiteral("2"),
                                      QStringLiteral("1"), QStringLiteral("Dissecting scissors")};
const std::vector<QString> Mayo{QStringLiteral("23"), QStringLiteral("3"), QStringLiteral("2"),
                                QStringLiteral("Mayo")};
const std::vector<QString> Bandage{QStringLiteral("22"), QStringLiteral("4"), QStringLiteral("1"),
                                   QStringLiteral("Bandage scissors")};
const std::vector<QString> Microscopes{
    QStringLiteral("30"), QStringLiteral("5"), {}, QStringLiteral("Microscopes")};
const std::vector<QString> Sets{
    QStringLiteral("40"), QStringLiteral("6"), {}, QStringLiteral("Sets")};
const std::vector<QString> BasicSets{QStringLiteral("41"), QStringLiteral("7"), QStringLiteral("6"),
                                     QStringLiteral("Basic sets")};

} // namespace

class TestStartPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { document = {}; }

    void testIndexNumbersHeadlinesAndLinksTogether();
    void testTopLevelWithoutChildrenIsAHeadlineOnly();
    void testCategoryBehindAnotherTopLevelIsNotListed();
    void testEmptyTreeStillSetsTheTexts();

private:
    QString Index(const std::vector<std::vector<QString>> &rows);

    RecordingDocument document;
};

QString TestStartPage::Index(const std::vector<std::vector<QString>> &rows)
{
    HtmlBuilder(std::make_unique<FakePageContext>())
        .WriteStartPage(document, rows.empty() ? CategoryTree() : MakeTree(rows));
    return document.Html(QStringLiteral("list"));
}

void TestStartPage::testIndexNumbersHeadlinesAndLinksTogether()
{
    QCOMPARE(Index({Scissors, Dissecting, Mayo, Bandage, Microscopes, Sets, BasicSets}),
             ExpectedHtml(QStringLiteral("start_page.html")));
}

void TestStartPage::testTopLevelWithoutChildrenIsAHeadlineOnly()
{
    QCOMPARE(Index({Microscopes}),
             QStringLiteral("<table width=\"100%\" border=\"0\">"
                            "<tr><td class=\"navHeadline\">Microscopes</td></tr></table>"));
}

void TestStartPage::testCategoryBehindAnotherTopLevelIsNotListed()
{
    QCOMPARE(Index({Scissors, Microscopes, Dissecting}),
             QStringLiteral("<table width=\"100%\" border=\"0\">"
                            "<tr><td class=\"navHeadline\">Scissors</td></tr>"
                            "<tr><td class=\"navHeadline\">Microscopes</td></tr></table>"));
}

void TestStartPage::testEmptyTreeStillSetsTheTexts()
{
    QCOMPARE(Index({}), QStringLiteral("<table width=\"100%\" border=\"0\"></table>"));
    QCOMPARE(document.calls.size(), 1);
    QCOMPARE(document.ChangedIds(),
             QStringList({QStringLiteral("list"), QStringLiteral("text"), QStringLiteral("infos"),
                          QStringLiteral("captionHead"), QStringLiteral("captionLeft"),
                          QStringLiteral("captionRight")}));
    QCOMPARE(document.Html(QStringLiteral("text")), QStringLiteral("T(ucWelcomeText)"));
    QCOMPARE(document.Html(QStringLiteral("infos")), QStringLiteral("Liste"));
    QCOMPARE(document.Html(QStringLiteral("captionHead")), QStringLiteral("T(ucWelcomeCaption)"));
    QCOMPARE(document.Html(QStringLiteral("captionLeft")), QStringLiteral("T(ucInfosCaption)"));
    QCOMPARE(document.Html(QStringLiteral("captionRight")),
             QStringLiteral("T(ucCategoriesCaption)"));
}

QTEST_APPLESS_MAIN(TestStartPage)
#include "TestStartPage.moc"
