#include "search/SearchDetail.h"
#include "support/TestApplication.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

using namespace Tesk;

/// Row counts are those that the version 2 engine gave for the same statements on this database.
class TestSearchDetail final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        application = std::make_unique<TestApplication>(QStringLiteral(SAMPLES_DIR "/catalog.db"));
        UseLanguage(0);
    }

    void testWordsOfTheDescriptionAreMasked()
    {
        Type(search->tbDescription, QStringLiteral("schere Müller"));
        QTest::mouseClick(search->btnDetailSearchSubmit, Qt::LeftButton);
        QCOMPARE(results.size(), size_t(1));
        QCOMPARE(results[0].UpperRow(), 6);
    }

    void testAuthorIsSearchedAsFurtherWords()
    {
        Type(search->tbDescription, QStringLiteral(" schere "));
        Type(search->tbAuthor, QStringLiteral(" Müller "));
        QTest::mouseClick(search->btnDetailSearchSubmit, Qt::LeftButton);
        QCOMPARE(results.size(), size_t(1));
        QCOMPARE(results[0].UpperRow(), 6);
    }

    void testAuthorAloneSearches()
    {
        Type(search->tbAuthor, QStringLiteral("Müller"));
        QTest::mouseClick(search->btnDetailSearchSubmit, Qt::LeftButton);
        QCOMPARE(results.size(), size_t(1));
        QVERIFY(results[0].UpperRow() >= 6);
        for (int row = 1; row <= results[0].UpperRow(); ++row)
            QVERIFY(GetField(QStringLiteral("l.name"), results[0], row)
                        .contains(QStringLiteral("Müller")));
    }

    void testLengthAloneSearches()
    {
        Type(search->tbProductLength, QStringLiteral("145"));
        QTest::mouseClick(search->btnDetailSearchSubmit, Qt::LeftButton);
        QCOMPARE(results.size(), size_t(1));
        QCOMPARE(results[0].UpperRow(), 8);
    }

    void testUnitIsTheChosenOption()
    {
        QVERIFY(search->rbUnit[0]->isChecked());
        QTest::mouseClick(search->rbUnit[1], Qt::LeftButton, {},
                          QPoint(8, search->rbUnit[1]->height() / 2));
        QVERIFY(search->rbUnit[1]->isChecked());
        Type(search->tbProductLength, QLocale::system().toString(14.5));
        QTest::mouseClick(search->btnDetailSearchSubmit, Qt::LeftButton);
        QCOMPARE(results.size(), size_t(1));
        QCOMPARE(results[0].UpperRow(), 8);
    }

    void testEnterSearchesFromEveryField()
    {
        QLineEdit *const fields[] = {search->tbDescription, search->tbArtNr,
                                     search->tbProductLength, search->tbAuthor};
        for (QLineEdit *const field : fields) {
            search->Initialize();
            results.clear();
            Type(field, QStringLiteral("12"));
            QTest::keyClick(field, Qt::Key_Return);
            QCOMPARE(results.size(), size_t(1));
        }
    }

    void testEmptyFormDoesNothing()
    {
        Type(search->tbDescription, QStringLiteral("   "));
        QTest::mouseClick(search->btnDetailSearchSubmit, Qt::LeftButton);
        QCOMPARE(results.size(), size_t(0));
    }

    void testCompetitorsNumberLosesItsBlanks()
    {
        UseLanguage(1);
        Type(search->tbCompanyArtNr, QStringLiteral("B H0"));
        QTest::keyClick(search->tbCompanyArtNr, Qt::Key_Return);
        QCOMPARE(results.size(), size_t(1));
        QCOMPARE(results[0].UpperRow(), 10);
    }

    void testOneCharacterOfACompetitorsNumberDoesNothing()
    {
        Type(search->tbCompanyArtNr, QStringLiteral("B"));
        QTest::mouseClick(search->btnCompetitionSearchSubmit, Qt::LeftButton);
        QCOMPARE(results.size(), size_t(0));
    }

    void testCompanyNarrowsTheSearch()
    {
        Type(search->tbCompanyArtNr, QStringLiteral("BH"));
        QTest::mouseClick(search->btnCompetitionSearchSubmit, Qt::LeftButton);
        search->cbCompany->setCurrentIndex(2);
        QCOMPARE(search->cbCompany->currentText(), QStringLiteral("Dorvik"));
        QTest::mouseClick(search->btnCompetitionSearchSubmit, Qt::LeftButton);
        QCOMPARE(results.size(), size_t(2));
        QVERIFY(results[0].HasData());
        // Numbers that begin with BH are Varnholt's.
        QVERIFY(!results[1].HasData());
    }

    void testInitializeEmptiesTheForm()
    {
        Type(search->tbDescription, QStringLiteral("x"));
        search->cbCompany->setCurrentIndex(3);
        search->Initialize();
        QVERIFY(search->tbDescription->text().isEmpty());
        QCOMPARE(search->cbCompany->currentIndex(), 0);
        QCOMPARE(search->cbCompany->count(), 4);
        QCOMPARE(search->lblExamplesText->text(),
                 QStringLiteral("Varnholt  BH 020\r\nDorvik  13-120-08\r\nSalvora  15.10.38"));
    }

private:
    void UseLanguage(qint16 index)
    {
        Controller &controller = application->GetController();
        controller.Languages().SetLanguage(index);
        search = std::make_unique<SearchDetail>(controller.Queries(), controller.Languages());
        search->Initialize();
        search->show();
        results.clear();
        connect(search.get(), &SearchDetail::OnNewSearchResults, this,
                [this](const ResultTable &rows) { results.push_back(rows); });
    }

    static void Type(QLineEdit *field, const QString &text)
    {
        field->setFocus();
        // Qt Test types plain ASCII only, unless the key's text is given.
        for (const QChar &character : text)
            QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(character),
                                Qt::NoModifier);
    }

    std::unique_ptr<TestApplication> application;
    std::unique_ptr<SearchDetail> search;
    std::vector<ResultTable> results;
};

QTEST_MAIN(TestSearchDetail)
#include "test_search_detail.moc"
