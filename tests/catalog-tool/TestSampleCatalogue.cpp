#include "build/ContainerReader.h"
#include "core/CategoryTree.h"
#include "core/Controller.h"
#include "core/Registry.h"
#include "sources/ProgramNeeds.h"

#include <QDir>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Tesk;

namespace {

const QString Directory = QStringLiteral(APPLICATION_DIRECTORY);

/// A column of a result, without its name.
QStringList Column(const ResultTable &table, const char *name)
{
    QStringList texts;
    for (int row = 1; row <= table.UpperRow(); ++row)
        texts.append(GetField(QLatin1String(name), table, row));
    return texts;
}

int LevelOf(const CategoryNode &node)
{
    return node.parent ? LevelOf(*node.parent) + 1 : 1;
}

} // namespace

/// The sample catalogue shows every case that the program knows. It is read as the program reads
/// it: in the built application directory, by the program's own parts.
class TestSampleCatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        controller.InitApplication();
        tree.Fill(controller.Queries().QueryCategories());
        container = std::make_unique<ContainerReader>(Directory + QLatin1String("/resources.chm"));
        for (const auto &node : tree.Nodes()) {
            if (!node->HasChildren())
                lists.push_back(controller.Queries().QueryProductsOfCategory(node->tag));
        }
    }

    // Later tests expect German, the one that they find.
    void init() { controller.Languages().SetLanguage(0); }

    void testHasManyProductsAndSets()
    {
        QSet<QString> products;
        QSet<QString> sets;
        for (const ResultTable &list : lists) {
            for (int row = 1; row <= list.UpperRow(); ++row) {
                const bool isSet =
                    GetField(QStringLiteral("p.isSet"), list, row) == QLatin1String("True");
                (isSet ? sets : products).insert(GetField(QStringLiteral("p.ID"), list, row));
            }
        }
        QVERIFY2(products.size() >= 400, qPrintable(QString::number(products.size())));
        QVERIFY2(sets.size() >= 15, qPrintable(QString::number(sets.size())));
    }

    void testTreeHasThreeToFourLevels()
    {
        QSet<int> leafLevels;
        for (const auto &node : tree.Nodes()) {
            if (!node->HasChildren())
                leafLevels.insert(LevelOf(*node));
        }
        QVERIFY(leafLevels.contains(3));
        QVERIFY(*std::ranges::max_element(leafLevels) <= 4);
    }

    void testHasListsOfEveryLength()
    {
        QList<int> lengths;
        for (const ResultTable &list : lists)
            lengths.append(std::max(0, list.UpperRow()));
        QVERIFY(*std::ranges::max_element(lengths) > 60);
        QVERIFY(lengths.contains(20));
        QVERIFY(!lengths.contains(0));
    }

    void testHasListsOfSetsAloneAndOfBoth()
    {
        bool hasSetsAlone = false;
        bool hasBoth = false;
        for (const ResultTable &list : lists) {
            const QStringList isSet = Column(list, "p.isSet");
            const bool hasSets = isSet.contains(QLatin1String("True"));
            const bool hasSingles = isSet.contains(QLatin1String("False"));
            hasSetsAlone = hasSetsAlone || (hasSets && !hasSingles);
            hasBoth = hasBoth || (hasSets && hasSingles);
        }
        QVERIFY(hasSetsAlone);
        QVERIFY(hasBoth);
    }

    void testSetsListTheirMembersInEveryLanguage()
    {
        for (const ResultTable &list : lists) {
            for (int row = 1; row <= list.UpperRow(); ++row) {
                if (GetField(QStringLiteral("p.isSet"), list, row) != QLatin1String("True"))
                    continue;
                const QString id = GetField(QStringLiteral("p.ID"), list, row);
                QSet<int> memberCounts;
                for (qint16 language = 0; language < LanguageSupport::LanguageCount; ++language) {
                    controller.Languages().SetLanguage(language);
                    memberCounts.insert(controller.Queries().QuerySetMembers(id).UpperRow());
                }
                QCOMPARE(memberCounts.size(), 1);
                QVERIFY2(*memberCounts.begin() >= 2, qPrintable(id));
            }
        }
    }

    void testNamesAreSpelledWithTheLettersOfTheirLanguages_data()
    {
        QTest::addColumn<qint16>("language");
        QTest::addColumn<QString>("letter");
        QTest::newRow("ge") << qint16(0) << QStringLiteral("ß");
        QTest::newRow("fr") << qint16(2) << QStringLiteral("œ");
        QTest::newRow("sp") << qint16(3) << QStringLiteral("ñ");
        QTest::newRow("it") << qint16(4) << QStringLiteral("à");
    }
    void testNamesAreSpelledWithTheLettersOfTheirLanguages()
    {
        QFETCH(qint16, language);
        QFETCH(QString, letter);
        controller.Languages().SetLanguage(language);
        const ResultTable all = controller.Queries().SearchByArtNr(QStringLiteral(" "));
        QVERIFY(all.UpperRow() >= 415);
        QStringList texts = Column(all, "l.name");
        for (const QString &key : ProgramNeeds::TextKeys())
            texts.append(controller.GetText(key));
        QVERIFY(texts.join(QLatin1Char(' ')).contains(letter));
    }

    void testTreeHasTitlesInEveryLanguage()
    {
        QSet<QString> titles;
        for (qint16 language = 0; language < LanguageSupport::LanguageCount; ++language) {
            controller.Languages().SetLanguage(language);
            CategoryTree translated;
            translated.Fill(controller.Queries().QueryCategories());
            QCOMPARE(translated.Nodes().size(), tree.Nodes().size());
            titles.insert(translated.Nodes().front()->text);
        }
        QCOMPARE(titles.size(), 5);
    }

    void testLengthsAreShownInBothUnits()
    {
        for (const ResultTable &list : lists) {
            for (int row = 1; row <= list.UpperRow(); ++row) {
                if (GetField(QStringLiteral("p.isSet"), list, row) == QLatin1String("True"))
                    continue;
                QVERIFY(!GetField(QStringLiteral("p.sCm"), list, row).isEmpty());
                QVERIFY(!GetField(QStringLiteral("p.sInch"), list, row).isEmpty());
            }
        }
    }

    void testHasArticlesInStockAndOthers()
    {
        QSet<bool> isInStock;
        for (const ResultTable &list : lists) {
            for (const QString &availability : Column(list, "p.availability"))
                isInStock.insert(availability.toDouble() > 0);
        }
        QCOMPARE(isInStock.size(), 2);
    }

    void testCompetitorsNumbersAreFound_data()
    {
        QTest::addColumn<QString>("company");
        for (const char *company : {"Varnholt", "Dorvik", "Salvora"})
            QTest::newRow(company) << QString::fromLatin1(company);
    }
    void testCompetitorsNumbersAreFound()
    {
        QFETCH(QString, company);
        QVERIFY(controller.Queries().SearchCompetition(QStringLiteral("1"), company).UpperRow() >
                10);
    }

    void testEveryPictureIsInTheContainer()
    {
        QSet<QString> severalPictures;
        for (const ResultTable &list : lists) {
            for (int row = 1; row <= list.UpperRow(); ++row) {
                const QString folder = GetField(QStringLiteral("p.filePath"), list, row);
                const QString first = GetField(QStringLiteral("p.img1"), list, row);
                QVERIFY2(IsInContainer(QStringLiteral("/Grafiken/klein%1/%2").arg(folder, first)),
                         qPrintable(folder + first));
                for (const char *column : {"p.img1", "p.img2", "p.img3"}) {
                    const QString picture = GetField(QLatin1String(column), list, row);
                    const QString path =
                        QStringLiteral("/Grafiken/gross%1/%2").arg(folder, picture);
                    QVERIFY2(picture.isEmpty() || IsInContainer(path), qPrintable(path));
                }
                if (!GetField(QStringLiteral("p.img2"), list, row).isEmpty())
                    severalPictures.insert(GetField(QStringLiteral("p.ID"), list, row));
            }
        }
        QVERIFY(severalPictures.size() > 10);
    }

    void testWelcomeAndHelpPagesAreInTheContainer()
    {
        QSet<QString> helpIds;
        for (const ResultTable &list : lists) {
            for (const QString &helpId : Column(list, "p.helpId"))
                helpIds.insert(helpId);
        }
        helpIds.remove(QString());
        QVERIFY(!helpIds.isEmpty());
        for (qint16 language = 0; language < LanguageSupport::LanguageCount; ++language) {
            controller.Languages().SetLanguage(language);
            QVERIFY(IsInContainer(MemberOf(controller.GetWelcomeDocumentUrl())));
            for (const QString &helpId : std::as_const(helpIds))
                QVERIFY2(IsInContainer(MemberOf(controller.GetInfoDocumentUrl(helpId))),
                         qPrintable(helpId));
        }
    }

    void testDataSheetsBelongToArticles()
    {
        int count = 0;
        const ResultTable all = controller.Queries().SearchByArtNr(QStringLiteral(" "));
        for (const QString &artNr : Column(all, "p.artNr"))
            count += controller.HasPdfDocument(artNr) ? 1 : 0;
        const QDir sheets(Directory + QLatin1String("/PDF"));
        QCOMPARE(count, sheets.entryList({QStringLiteral("*.pdf")}, QDir::Files).size());
        QVERIFY(count >= 3);
    }

    void testPriceListLoads()
    {
        controller.Prices().LoadPriceList(Directory + QLatin1String("/price_list.txt"));
        const ResultTable list = controller.Queries().SearchByArtNr(QStringLiteral("AB 10/115"));
        QVERIFY(list.HasData());
        QVERIFY(controller.GetPrice(GetField(QStringLiteral("p.artNr"), list, 1))
                    .endsWith(QLatin1String("&nbsp;EUR")));
    }

private:
    QString MemberOf(const QString &url) const
    {
        return url.mid(controller.GetResourceBaseUrl().size());
    }

    bool IsInContainer(const QString &path) const { return container->Read(path).has_value(); }

    QTemporaryDir ownFolder;
    Registry registry{ownFolder.filePath(QStringLiteral("settings.json"))};
    Controller controller{Directory, registry, ownFolder.filePath(QStringLiteral("cache")),
                          QLocale(QLocale::German, QLocale::Germany)};
    CategoryTree tree;
    std::vector<ResultTable> lists; ///< the products of each category without sub-categories
    std::unique_ptr<ContainerReader> container;
};

QTEST_GUILESS_MAIN(TestSampleCatalogue)
#include "TestSampleCatalogue.moc"
