#include "search/SearchDetail.h"
#include "support/TestApplication.h"

#include <QComboBox>
#include <QGroupBox>
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

    // The catalogue knows six scissors of Müller's and none of Möller's.
    void testWordsOfTheDescriptionAreMasked()
    {
        Type(search->tbDescription, QStringLiteral("schere Möller"));
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

    void testAuthorIsNotMasked()
    {
        Type(search->tbDescription, QStringLiteral("schere"));
        Type(search->tbAuthor, QStringLiteral("Möller"));
        QTest::mouseClick(search->btnDetailSearchSubmit, Qt::LeftButton);
        QCOMPARE(results.size(), size_t(1));
        QCOMPARE(results[0].UpperRow(), -1);
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

    void testEnterSearchesFromTheUnitsAndTheCompanies()
    {
        search->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(search.get()));
        Type(search->tbProductLength, QStringLiteral("145"));
        for (QRadioButton *const option : search->rbUnit) {
            results.clear();
            option->setFocus();
            QTest::keyClick(option, Qt::Key_Return);
            QCOMPARE(results.size(), size_t(1));
        }
        Type(search->tbCompanyArtNr, QStringLiteral("BH"));
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            results.clear();
            search->cbCompany->setFocus();
            QTest::keyClick(search->cbCompany, key);
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
        // The entry for all companies has a caption and yet narrows nothing.
        QCOMPARE(search->cbCompany->itemText(0), QStringLiteral("ge:ucSearchDetailAllCompanies"));
        QVERIFY(results[0].HasData());
        // Numbers that begin with BH are Varnholt's.
        QVERIFY(!results[1].HasData());
    }

    void testInitializeEmptiesTheForm()
    {
        const std::array fields{search->tbDescription, search->tbArtNr, search->tbProductLength,
                                search->tbAuthor, search->tbCompanyArtNr};
        for (QLineEdit *const field : fields)
            Type(field, QStringLiteral("x"));
        search->cbCompany->setCurrentIndex(3);
        search->Initialize();
        for (const QLineEdit *const field : fields)
            QVERIFY(field->text().isEmpty());
        QCOMPARE(search->cbCompany->currentIndex(), 0);
        QStringList companies;
        for (int i = 0; i < search->cbCompany->count(); ++i)
            companies << search->cbCompany->itemText(i);
        QCOMPARE(companies, QStringList({QStringLiteral("ge:ucSearchDetailAllCompanies"),
                                         QStringLiteral("Varnholt"), QStringLiteral("Dorvik"),
                                         QStringLiteral("Salvora")}));
        QCOMPARE(search->lblExamplesText->text(),
                 QStringLiteral("Varnholt  BH 020\r\nDorvik  13-120-08\r\nSalvora  15.10.38"));
    }

    void testCaptionsSpeakTheCurrentLanguage()
    {
        UseLanguage(2);
        const auto caption = [](const char *key) {
            return QStringLiteral("fr:ucSearchDetail") + QLatin1String(key);
        };
        QCOMPARE(search->frmDetailSearch->title(), caption("Headline"));
        QCOMPARE(search->lblDescription->text(), caption("Description"));
        QCOMPARE(search->lblProductLength->text(), caption("ProductLength"));
        QCOMPARE(search->lblArtNr->text(), caption("ArtNr"));
        QCOMPARE(search->lblUnit->text(), caption("Unit"));
        QCOMPARE(search->lblAuthor->text(), caption("Author"));
        QCOMPARE(search->btnDetailSearchSubmit->text(), caption("Submit"));
        QCOMPARE(search->frmCompetitionSearch->title(), caption("Competition"));
        QCOMPARE(search->lblCompany->text(), caption("Company"));
        QCOMPARE(search->lblCompanyArtNr->text(), caption("CompanyArtNr"));
        QCOMPARE(search->lblExamples->text(), caption("Examples"));
        QCOMPARE(search->btnCompetitionSearchSubmit->text(), caption("Submit"));
        QCOMPARE(search->rbUnit[2]->text(), QStringLiteral("inch"));
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
