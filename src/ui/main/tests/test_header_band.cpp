#include "ui/main/HeaderBand.h"
#include "ui/main/LogoButton.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Tesk;

/// With captions as long as the longest of the five languages.
class TestHeaderBand final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        band = std::make_unique<HeaderBand>();
        band->cbUnitSelection->setItemText(0, QStringLiteral("Longueurs en cm"));
        band->cbFastSearchType->setItemText(1, QStringLiteral("Numéro d’article"));
        band->btnFastSearch->setText(QStringLiteral("Rechercher"));
    }

    void testNothingIsCut_data()
    {
        QTest::addColumn<int>("width");
        for (const int width : {800, 960, 1100, 1280, 1600})
            QTest::addRow("%d pixels", width) << width;
    }

    void testNothingIsCut()
    {
        QFETCH(int, width);
        band->resize(width, band->height());
        band->show();
        QVERIFY(QTest::qWaitForWindowExposed(band.get()));
        QList<QWidget *> controls{band->imgLogo, band->btnInfo, band->cbUnitSelection,
                                  band->cbFastSearchType, band->btnFastSearch};
        for (QPushButton *const language : band->btnLang)
            controls.append(language);
        for (const QWidget *const control : controls) {
            QVERIFY2(control->width() >= control->sizeHint().width(),
                     qPrintable(control->objectName()));
            QVERIFY(band->rect().contains(Place(control)));
        }
        QVERIFY(band->rect().contains(Place(band->tbFastSearchText)));
    }

    void testSearchStandsBelowTheLanguagesInANarrowBand()
    {
        band->resize(800, band->height());
        band->show();
        QVERIFY(QTest::qWaitForWindowExposed(band.get()));
        QVERIFY(Place(band->tbFastSearchText).top() > Place(band->btnInfo).bottom());
        band->resize(1600, band->height());
        QTRY_VERIFY(Place(band->tbFastSearchText).top() < Place(band->btnInfo).bottom());
    }

private:
    QRect Place(const QWidget *control) const
    {
        return {control->mapTo(band.get(), QPoint()), control->size()};
    }

    std::unique_ptr<HeaderBand> band;
};

QTEST_MAIN(TestHeaderBand)
#include "test_header_band.moc"
