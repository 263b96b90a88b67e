#include "TinySources.h"

#include "check/CatalogueChecker.h"
#include "sources/CatalogueSources.h"
#include "sources/Problems.h"

#include <QTest>

#include <algorithm>

using namespace Tesk;

namespace {

/// `file:line: message` for each problem of the sources.
QStringList Check(const TinySources &tiny)
{
    Problems problems;
    const CatalogueSources sources(tiny.Path(), problems);
    CheckCatalogue(sources, problems);
    QStringList texts;
    for (const Problem &problem : problems.Sorted())
        texts.append(
            QStringLiteral("%1:%2: %3").arg(problem.file).arg(problem.line).arg(problem.message));
    return texts;
}

struct Fault
{
    const char *name;
    const char *file;
    const char *from;
    const char *to;
    const char *problem; ///< what one of the problems has to say
};

const QList<Fault> Faults{
    // Tables
    {"row with a cell too many", "tables/products2sets.tsv", "3\t2\t1\t1", "3\t2\t1\t1\t1",
     "tables/products2sets.tsv:2: the row has 5 cells, the first line names 4 columns;"},
    {"row with a cell too few", "tables/products2sets.tsv", "3\t2\t1\t1", "3\t2\t1",
     "tables/products2sets.tsv:2: the row has 3 cells, the first line names 4 columns;"},
    {"character outside the code page", "tables/products_localized.tsv", "Tijera niño",
     "Tijera ni\xE2\x82\xBD",
     "tables/products_localized.tsv:5: the character \"\xE2\x82\xBD\" (U+20BD) does not exist in "
     "Windows-1252"},
    {"character outside the basic plane", "tables/products_localized.tsv", "Tijera niño",
     "Tijera \xF0\x9F\x98\x80",
     "tables/products_localized.tsv:5: the character \"\xF0\x9F\x98\x80\" (U+1F600) does not "
     "exist in Windows-1252"},
    {"control character", "tables/products_localized.tsv", "Tijera niño", "Tijera \x01",
     "tables/products_localized.tsv:5: the text holds the control character U+0001;"},
    {"text that is not UTF-8", "tables/products_localized.tsv", "Tijera niño", "Tijera ni\xF1o",
     "tables/products_localized.tsv:5: the line is not UTF-8;"},
    {"CR LF line end", "tables/products2sets.tsv", "iOrder\n", "iOrder\r\n",
     "tables/products2sets.tsv:1: the line ends in CR LF;"},
    {"byte-order mark", "tables/products2sets.tsv", "iSetID", "\xEF\xBB\xBFiSetID",
     "tables/products2sets.tsv:1: the file begins with a byte-order mark;"},
    {"doubled column", "tables/products2categories.tsv", "prodID\tcatID\n",
     "prodID\tcatID\tcatID\n",
     "tables/products2categories.tsv:1: the column \"catID\" stands twice;"},
    {"column missing in a table", "tables/products2sets.tsv", "iOrder\n", "order\n",
     "tables/products2sets.tsv:1: schema.sql declares no column \"order\";"},

    // Schema
    {"column missing in the schema", "tables/schema.sql", ", iAmount INTEGER, iOrder INTEGER)",
     ", iAmount INTEGER)", "tables/products2sets.tsv:1: schema.sql declares no column \"iOrder\";"},
    {"table without declaration", "tables/schema.sql",
     "CREATE TABLE reference_numbers (ID INTEGER, sRefNo VARCHAR(50), sUnternehmen VARCHAR(100));",
     "", "tables/reference_numbers.tsv:0: schema.sql declares no table \"reference_numbers\";"},
    {"id not in the first column", "tables/schema.sql",
     "    ID INTEGER PRIMARY KEY, artNr VARCHAR(50),", "    artNr VARCHAR(50), ID INTEGER,",
     "tables/schema.sql:0: the first column of \"products_global\" is \"artNr\"; put ID first"},
    {"other statement", "tables/schema.sql", "CREATE INDEX", "DROP INDEX",
     "tables/schema.sql:18: only CREATE TABLE and CREATE INDEX may stand here;"},
    {"statement that cannot be read", "tables/schema.sql", "CREATE TABLE products2categories (",
     "CREATE TABLE products2categories ((",
     "tables/schema.sql:15: the database cannot make this: "},

    // Categories
    {"category id above 16 bits", "tables/categories.tsv", "1\t100\t", "32768\t100\t",
     "tables/categories.tsv:2: ID is \"32768\"; write a whole number from 1 to 32767"},
    {"category id of 0", "tables/categories.tsv", "1\t100\t", "0\t100\t",
     "tables/categories.tsv:2: ID is \"0\"; write a whole number from 1 to 32767"},
    {"category id that is no number", "tables/categories.tsv", "1\t100\t", "A\t100\t",
     "tables/categories.tsv:2: ID is \"A\"; write a whole number from 1 to 32767"},
    {"category id with a leading zero", "tables/categories.tsv", "1\t100\t", "01\t100\t",
     "tables/categories.tsv:2: ID is \"01\"; write a whole number from 1 to 32767"},
    {"doubled category id", "tables/categories.tsv", "1\t100\t", "2\t100\t",
     "tables/categories.tsv:3: the ID 2 stands in line 2 already;"},
    {"doubled tree id", "tables/categories.tsv", "3\t120\t", "3\t110\t",
     "tables/categories.tsv:4: the TREE_ID 110 stands in line 3 already;"},
    {"unknown parent", "tables/categories.tsv", "3\t120\t100", "3\t120\t7",
     "tables/categories.tsv:4: no category has the TREE_ID 7 of parent, and the program would "
     "not start;"},
    {"sort key that is no number", "tables/categories.tsv", "Set\t1\t2", "Set\t1\tb",
     "tables/categories.tsv:4: catLevel2 is \"b\"; write a whole number from 0 to 32767"},
    {"empty title", "tables/categories.tsv", "Juegos", "",
     "tables/categories.tsv:4: title_sp is empty;"},
    {"title with a quotation mark", "tables/categories.tsv", "Juegos", "Juegos \"A\"",
     "tables/categories.tsv:4: title_sp holds the character \","},
    {"parent behind its child", "tables/categories.tsv", "Forbici\t1", "Forbici\t2",
     "tables/categories.tsv:3: in the order of the sort keys (language ge) the category comes "
     "before its parent 100;"},

    // Products
    {"product id above 16 bits", "tables/products_global.tsv", "3\tSET 1", "40000\tSET 1",
     "tables/products_global.tsv:4: ID is \"40000\"; write a whole number from 1 to 32767"},
    {"doubled article number", "tables/products_global.tsv", "AB 10/2", "AB10/1",
     "tables/products_global.tsv:3: the article number \"AB10/1\" stands in line 2 already;"},
    {"article number that no search finds", "tables/products_global.tsv", "SET 1", "SET1",
     "tables/products_global.tsv:4: no search finds the article number \"SET1\"; write \"SET 1\""},
    {"article number with an apostrophe", "tables/products_global.tsv", "SET 1", "SET 1'",
     "tables/products_global.tsv:4: artNr holds the character '"},
    {"isSet in another spelling", "tables/products_global.tsv", "AB 10/2\tFalse", "AB 10/2\tfalse",
     "tables/products_global.tsv:3: isSet is \"false\"; write True or False"},
    {"length that is no number", "tables/products_global.tsv", "False\t130", "False\t13 cm",
     "tables/products_global.tsv:3: length is \"13 cm\"; write a number with a decimal point"},
    {"availability that is missing", "tables/products_global.tsv", "5 1/8\"\t0", "5 1/8\"\t\\N",
     "tables/products_global.tsv:3: availability is \"\\N\"; write a number"},
    {"scale with a comma", "tables/products_global.tsv", "Straight.svg\t0.5", "Straight.svg\t0,5",
     "tables/products_global.tsv:2: img1Scale is \"0,5\"; write a number with a decimal point"},
    {"empty scale without a picture", "tables/products_global.tsv", "photo.jpg\t1\t\t0",
     "photo.jpg\t1\t\t", "tables/products_global.tsv:3: img2Scale is \"\"; write a number"},
    {"language missing", "tables/products_localized.tsv", "2\tfr\tCiseaux\tx\n", "",
     "tables/products_global.tsv:3: the product 2 has no name in the language fr"},
    {"doubled language", "tables/products_localized.tsv", "2\tfr\tCiseaux\tx\n",
     "2\tfr\tCiseaux\tx\n2\tfr\tCiseaux\tx\n",
     "tables/products_localized.tsv:10: the product 2 in the language fr stands in line 9 "
     "already;"},
    {"unknown language", "tables/products_localized.tsv", "3\tit\tSet\t\\N\n",
     "3\tit\tSet\t\\N\n3\tde\tSet\t\\N\n",
     "tables/products_localized.tsv:17: lang is \"de\"; write one of ge, en, fr, sp, it"},
    {"name of no product", "tables/products_localized.tsv", "3\tit\tSet\t\\N\n",
     "3\tit\tSet\t\\N\n9\tit\tSet\t\\N\n",
     "tables/products_localized.tsv:17: products_global has no product with the ID 9;"},
    {"empty name", "tables/products_localized.tsv", "Juego", "",
     "tables/products_localized.tsv:15: name is empty;"},
    {"name with an apostrophe", "tables/products_localized.tsv", "Ciseaux œil", "Pince d'œil",
     "tables/products_localized.tsv:4: name holds the character '"},
    {"name with a tag", "tables/products_localized.tsv", "Ciseaux œil", "Ciseaux <b>œil",
     "tables/products_localized.tsv:4: name holds the character <"},

    // Relations
    {"product in no known category", "tables/products2categories.tsv", "3\t3", "3\t4",
     "tables/products2categories.tsv:4: categories has no category with the ID \"4\" of catID;"},
    {"product in an inner category", "tables/products2categories.tsv", "3\t3", "3\t1",
     "tables/products2categories.tsv:4: the category 1 has sub-categories"},
    {"unknown product in a category", "tables/products2categories.tsv", "3\t3", "4\t3",
     "tables/products2categories.tsv:4: products_global has no product with the ID \"4\" of "
     "prodID;"},
    {"product twice in a category", "tables/products2categories.tsv", "2\t2", "1\t2",
     "tables/products2categories.tsv:3: the product 1 in the category 2 stands in line 2 already;"},
    {"member that is a set", "tables/products2sets.tsv", "3\t2\t1", "3\t3\t1",
     "tables/products2sets.tsv:2: the member 3 is a set itself;"},
    {"unknown member", "tables/products2sets.tsv", "3\t2\t1", "3\t9\t1",
     "tables/products2sets.tsv:2: products_global has no product with the ID \"9\" of "
     "iProdGlobId;"},
    {"members of no set", "tables/products2sets.tsv", "3\t1\t2", "2\t1\t2",
     "tables/products2sets.tsv:3: the product 2 of iSetID is no set;"},
    {"set without members", "tables/products2sets.tsv", "3\t2\t1\t1\n3\t1\t2\t2\n", "",
     "tables/products_global.tsv:4: the set 3 has no members;"},
    {"amount of 0", "tables/products2sets.tsv", "3\t2\t1\t1", "3\t2\t0\t1",
     "tables/products2sets.tsv:2: iAmount is \"0\"; write a whole number from 1 to 32767"},
    {"reference number with a blank", "tables/reference_numbers.tsv", "BH020", "BH 020",
     "tables/reference_numbers.tsv:2: no search finds the reference number \"BH 020\";"},
    {"reference number of no product", "tables/reference_numbers.tsv", "1\tBH020", "9\tBH020",
     "tables/reference_numbers.tsv:2: products_global has no product with the ID \"9\" of ID;"},
    {"company that no search offers", "tables/reference_numbers.tsv", "Varnholt", "Varnhold",
     "tables/reference_numbers.tsv:2: the search offers no company \"Varnhold\"; write one of "
     "Varnholt, Dorvik, Salvora"},

    // Language files
    {"empty text", "languages/loc_fr.txt", "mHelp=fr œ mHelp",
     "mHelp=", "the text of \"mHelp\" is empty;"},
    {"key missing in one language", "languages/loc_it.txt", "mHelp=it œ mHelp\n", "",
     "languages/loc_it.txt:0: the key \"mHelp\" is missing"},
    {"apostrophe in a tool tip", "languages/loc_fr.txt", "fr œ mShoppingCartItemDelete\n",
     "l'article\n",
     "the text of \"mShoppingCartItemDelete\" stands inside quotation marks on a page and holds "
     "the character '"},

    // Pictures
    {"picture that is missing", "tables/products_global.tsv", "Straight.svg\t0.5",
     "straight.svg\t0.5",
     "tables/products_global.tsv:2: the picture \"/scissors/straight.svg\" of img1 exists neither "
     "as drawings/scissors/straight.svg nor as pictures/"},
    {"folder without a slash", "tables/products_global.tsv", "0\t/photos", "0\tphotos",
     "tables/products_global.tsv:3: filePath is \"photos\"; write \"/folder\""},
    {"drawing that is no XML", "drawings/scissors/tip.svg", "</svg>", "</sv>",
     "drawings/scissors/tip.svg:1: the drawing is no well-formed XML ("},
    {"drawing without a viewBox", "drawings/scissors/tip.svg", "viewBox", "box",
     "drawings/scissors/tip.svg:1: the root element has no viewBox"},
    {"drawing without the name space", "drawings/scissors/Straight.svg",
     " xmlns=\"http://www.w3.org/2000/svg\"", "",
     "drawings/scissors/Straight.svg:3: the root element is no <svg xmlns="},

    // Documents
    {"welcome document that leads nowhere", "documents/welcome_sp.html", "welcome.html", "x.html",
     "documents/welcome_sp.html:0: the document does not lead on to content/welcome.html"},
    {"help page that is missing", "tables/products_global.tsv", "hcare", "hmicro",
     "tables/products_global.tsv:2: the help page documents/info_"},
    {"reference to a missing picture", "documents/info_en_care.html", "Straight.svg", "Bent.svg",
     "documents/info_en_care.html:1: \"../Grafiken/gross/scissors/Bent.svg\" leads to "
     "\"Grafiken/gross/scissors/Bent.svg\", which is no file of the catalogue;"},

    // Content
    {"page without an element", "content/order_form.html", "id=\"summary\"", "id=\"sum\"",
     "content/order_form.html:0: the page has no element with id=\"summary\""},
    {"page with a wrong reference", "content/welcome.html", "page.css", "pages.css",
     "content/welcome.html:1: \"pages.css\" leads to \"content/pages.css\""},
    {"style with a wrong reference", "content/page.css", "own.gif", "other.gif",
     "content/page.css:1: \"img/other.gif\" leads to \"content/img/other.gif\""},

    // Data sheets and prices
    {"data sheet of no product", "tables/products_global.tsv", "AB 10/1", "AB 10-1",
     "datasheets/AB_10-1.html:0: the name stands for the article number \"AB 10/1\", which no "
     "product has;"},
    {"data sheet without its picture", "datasheets/AB_10-1.html", "Straight.svg", "Bent.svg",
     "datasheets/AB_10-1.html:4: there is no file \"drawings/scissors/Bent.svg\";"},
    {"price of no product", "prices.tsv", "AB 10/2", "AB 10/3",
     "prices.tsv:3: no product has the article number \"AB 10/3\";"},
    {"doubled price", "prices.tsv", "AB 10/2", "AB10/1",
     "prices.tsv:3: the article number \"AB10/1\" stands in line 2 already, and the list would "
     "not load;"},
    {"empty price", "prices.tsv", "9.90", "", "prices.tsv:3: the price of \"AB 10/2\" is empty;"},
    {"price line with two tabs", "prices.tsv", "9.90", "9.90\t",
     "prices.tsv:3: the line has 2 tabs;"},
    {"price list without column names", "prices.tsv", "artNr\tprice\n", "",
     "prices.tsv:1: the first line has to name the columns artNr and price"},
    {"version in two lines", "version", "(2026)", "\n(2026)", "version:0: the file has 2 lines;"},
};

} // namespace

class TestChecks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testAcceptsGoodSources() { QCOMPARE(Check(TinySources()), QStringList()); }

    void testReportsFault_data()
    {
        QTest::addColumn<Fault>("fault");
        for (const Fault &fault : Faults)
            QTest::newRow(fault.name) << fault;
    }
    void testReportsFault()
    {
        QFETCH(Fault, fault);
        const TinySources tiny;
        tiny.Replace(QString::fromLatin1(fault.file), fault.from, fault.to);
        const QStringList problems = Check(tiny);
        const QString expected = QString::fromUtf8(fault.problem);
        QVERIFY2(std::ranges::any_of(problems,
                                     [&](const QString &text) { return text.contains(expected); }),
                 qPrintable(problems.join(QLatin1Char('\n'))));
    }

    void testReportsEveryMissingFile()
    {
        for (const char *file :
             {"version", "tables/schema.sql", "tables/categories.tsv", "languages/loc_sp.txt",
              "content/welcome.html", "content/img/help.svg", "documents/welcome_fr.html"}) {
            const TinySources tiny;
            tiny.Remove(QString::fromLatin1(file));
            const QString expected = QStringLiteral("%1:0: ").arg(QLatin1String(file));
            QVERIFY2(Check(tiny).join(QLatin1Char('\n')).contains(expected), file);
        }
    }

    void testAcceptsSourcesWithoutPricesAndDataSheets()
    {
        const TinySources tiny;
        tiny.Remove(QStringLiteral("prices.tsv"));
        QDir(tiny.Path(QStringLiteral("datasheets"))).removeRecursively();
        QCOMPARE(Check(tiny), QStringList());
    }

    void testReportsAllProblemsAtOnce()
    {
        const TinySources tiny;
        tiny.Replace(QStringLiteral("tables/reference_numbers.tsv"), "BH020", "BH 020");
        tiny.Replace(QStringLiteral("tables/products2sets.tsv"), "3\t2\t1", "3\t9\t1");
        QCOMPARE(Check(tiny).size(), 2);
    }

    void testReportsTextWithSecondEqualsSign()
    {
        const TinySources tiny;
        tiny.Write(QStringLiteral("languages/loc_en.txt"),
                   "first=1\n" + tiny.Read(QStringLiteral("languages/loc_en.txt")) +
                       "a=b=c\nword\n");
        const QStringList problems = Check(tiny);
        // 1 line before, a comment, an empty line and 132 keys.
        QVERIFY(problems.contains(QStringLiteral("languages/loc_en.txt:136: the line has 2 times "
                                                 "\"=\", so the program skips it; write key=text "
                                                 "with exactly one \"=\"")));
        QVERIFY(problems.contains(QStringLiteral("languages/loc_en.txt:137: the line has 0 times "
                                                 "\"=\", so the program skips it; write key=text "
                                                 "with exactly one \"=\"")));
        QVERIFY(problems.contains(QStringLiteral("languages/loc_it.txt:0: the key \"first\" is "
                                                 "missing, so nothing would show in its place; add "
                                                 "it")));
    }

    void testReportsDoubledKeyWithBothLines()
    {
        const TinySources tiny;
        tiny.Write(QStringLiteral("languages/loc_en.txt"),
                   "mHelp=Help\n" + tiny.Read(QStringLiteral("languages/loc_en.txt")));
        const QString problems = Check(tiny).join(QLatin1Char('\n'));
        QVERIFY2(problems.contains(QLatin1String("the key \"mHelp\" stands in line 1 already")),
                 qPrintable(problems));
    }

    void testReportsBlanksAroundKey()
    {
        const TinySources tiny;
        tiny.Replace(QStringLiteral("languages/loc_en.txt"), "mHelp=", "mHelp =");
        const QString problems = Check(tiny).join(QLatin1Char('\n'));
        QVERIFY2(problems.contains(QLatin1String("the key \"mHelp \" is empty or has blanks")),
                 qPrintable(problems));
    }

    void testReportsQuotationMarksOnlyWherePagesQuote()
    {
        const TinySources tiny;
        tiny.Replace(QStringLiteral("languages/loc_fr.txt"), "mExitConfirm=", "mExitConfirm=l'");
        QCOMPARE(Check(tiny), QStringList());
        tiny.Replace(QStringLiteral("languages/loc_fr.txt"),
                     "productListAddToShoppingCart=", "productListAddToShoppingCart=l'");
        const QStringList problems = Check(tiny);
        QCOMPARE(problems.size(), 1);
        QVERIFY(problems.first().contains(
            QLatin1String("the text of \"productListAddToShoppingCart\" stands inside quotation "
                          "marks on a page and holds the character '")));
    }

    void testReportsValueMarkInOneLanguageOnly()
    {
        const TinySources tiny;
        tiny.Replace(QStringLiteral("languages/loc_fr.txt"),
                     "ucShoppingCartAddSuccess2=", "ucShoppingCartAddSuccess2={0}");
        const QStringList problems = Check(tiny);
        QCOMPARE(problems.size(), 1);
        QVERIFY(problems.first().contains(
            QLatin1String("the text of \"ucShoppingCartAddSuccess2\" has the marks {0}")));
    }

    void testReportsOneOfSeveralValueMarksMissing()
    {
        const TinySources tiny;
        const QByteArray key = "ucShoppingCartAddSuccess2=";
        for (const char *const code : {"ge", "en", "fr", "sp", "it"})
            tiny.Replace(QStringLiteral("languages/loc_%1.txt").arg(QLatin1String(code)), key,
                         key + "{1}{0}");
        QCOMPARE(Check(tiny), QStringList());
        tiny.Replace(QStringLiteral("languages/loc_it.txt"), "{1}{0}", "{0}");
        const QStringList problems = Check(tiny);
        QCOMPARE(problems.size(), 1);
        QVERIFY(problems.first().contains(QLatin1String("has the marks {0}, in ")));
        QVERIFY(problems.first().contains(QLatin1String(" it has {0} {1};")));
    }

    void testTextOfAnErrorStandsInAllLanguagesOrNone()
    {
        const TinySources tiny;
        tiny.Replace(QStringLiteral("languages/loc_it.txt"), "mHelp=", "errorOfItsOwn=x\nmHelp=");
        const QStringList problems = Check(tiny);
        QCOMPARE(problems.size(), 4);
        for (const QString &problem : problems)
            QVERIFY2(problem.contains(QLatin1String("the key \"errorOfItsOwn\" is missing, so this "
                                                    "error would be told in English;")),
                     qPrintable(problem));
    }

    void testOnlyWhatBecomesADataSheetCanBeReferredTo()
    {
        const TinySources tiny;
        tiny.Write(QStringLiteral("datasheets/figures.css"), "x");
        tiny.Write(
            QStringLiteral("content/own.css"),
            "a { background: url(../PDF/AB_10-1.pdf) } b { background: url(../PDF/figures.pdf) }");
        const QStringList problems = Check(tiny);
        QCOMPARE(problems.size(), 1);
        QVERIFY2(problems.first().contains(QLatin1String("figures.pdf")),
                 qPrintable(problems.first()));
    }

    void testTitlesDecideTheOrderOfEqualSortKeys()
    {
        // With the parent's own sort keys, a child named before it in one language comes first.
        const TinySources tiny;
        tiny.Replace(QStringLiteral("tables/categories.tsv"), "Rette\t1\t1", "Aaa\t1\t\\N");
        const QStringList problems = Check(tiny);
        QCOMPARE(problems.size(), 1);
        QVERIFY(problems.first().startsWith(
            QLatin1String("tables/categories.tsv:3: in the order of the sort keys (language ge)")));
    }

    void testSortKeysCompareByValueInNumericColumns()
    {
        const TinySources tiny;
        tiny.Replace(QStringLiteral("tables/categories.tsv"), "Forbici\t1", "Forbici\t9");
        tiny.Replace(QStringLiteral("tables/categories.tsv"), "Rette\t1", "Rette\t10");
        tiny.Replace(QStringLiteral("tables/categories.tsv"), "Set\t1", "Set\t10");
        QCOMPARE(Check(tiny), QStringList());
    }

    void testSortKeysCompareByBytesInTextColumns()
    {
        const TinySources tiny;
        tiny.Replace(QStringLiteral("tables/schema.sql"), "firstLevelId INTEGER",
                     "firstLevelId VARCHAR(5)");
        tiny.Replace(QStringLiteral("tables/categories.tsv"), "Forbici\t1", "Forbici\t9");
        tiny.Replace(QStringLiteral("tables/categories.tsv"), "Rette\t1", "Rette\t10");
        tiny.Replace(QStringLiteral("tables/categories.tsv"), "Set\t1", "Set\t10");
        QCOMPARE(Check(tiny).size(), 2);
    }

    void testReportsDrawingAndPictureAtTheSamePlace()
    {
        const TinySources tiny;
        tiny.Write(QStringLiteral("pictures/klein/scissors/TIP.svg"), "x");
        const QStringList problems = Check(tiny);
        QCOMPARE(problems.size(), 1);
        QVERIFY(problems.first().startsWith(
            QLatin1String("pictures/klein/scissors/TIP.svg:0: \"drawings/scissors/tip.svg\" takes "
                          "the same place in the container")));
    }

    void testReportsUnsafeNamesInTheContainer()
    {
        const TinySources tiny;
        tiny.Write(QStringLiteral("documents/a b.html"), "x");
        const QStringList problems = Check(tiny);
        QCOMPARE(problems.size(), 1);
        QVERIFY(problems.first().startsWith(QLatin1String("documents/a b.html:0: ")));
    }

    void testReportsPictureAndDrawingOfOnePageImage()
    {
        const TinySources tiny;
        tiny.Write(QStringLiteral("content/img/help.gif"), "x");
        const QStringList problems = Check(tiny);
        QCOMPARE(problems.size(), 1);
        QVERIFY(problems.first().contains(QLatin1String("makes the same file")));
    }

    void testReportsTwoDataSheetsOfOneArticleNumber()
    {
        const TinySources tiny;
        tiny.Write(QStringLiteral("datasheets/AB 10-1.pdf"), "x");
        const QStringList problems = Check(tiny);
        QCOMPARE(problems.size(), 1);
        QVERIFY(problems.first().contains(
            QLatin1String("stands for the same article number \"AB 10/1\", and the program would "
                          "not start")));
    }

    void testDataSheetNamesAreReadInUpperCase()
    {
        const TinySources tiny;
        tiny.Write(QStringLiteral("datasheets/set_1.pdf"), "x");
        QCOMPARE(Check(tiny), QStringList());
    }
};

QTEST_GUILESS_MAIN(TestChecks)
#include "TestChecks.moc"
