#include "support/CartTab.h"
#include "support/CatalogueWindow.h"
#include "support/Dialogs.h"
#include "support/EngineTest.h"
#include "support/SampleCatalogue.h"
#include "support/WaitUntil.h"
#include "ui/main/MainMenu.h"

#include <QAction>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Tesk;

namespace {

QPushButton *Button(QWidget *dialog, QMessageBox::StandardButton which)
{
    auto *const box = qobject_cast<QMessageBox *>(dialog);
    return box == nullptr ? nullptr : qobject_cast<QPushButton *>(box->button(which));
}

} // namespace

/// The ways out of the program.
class TestExit final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testClosingWithNoKeepsTheCart()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        catalogue.GetController().AddProductToCart(2, 7, QStringLiteral("OR 2"));
        CartTab cart(catalogue);
        QVERIFY(cart.Open());
        QVERIFY(cart.Page().TypeInto(QStringLiteral("#fld_0"), QStringLiteral("12")));
        QString question;
        QVERIFY(CatalogueWindow::AnswerDialogs([&] { catalogue.Window().close(); },
                                               {PressButton(QMessageBox::No, &question)}));
        QCOMPARE(question,
                 QStringLiteral("Do you want to close the catalogue?\nA shopping cart that has not "
                                "been saved will be lost."));
        QVERIFY(catalogue.Window().isVisible());
        catalogue.Window().GoHome();
        QVERIFY(cart.Open());
        QVERIFY(cart.WaitForLines(
            {QStringLiteral("AB 10/116|Operating scissors, straight, sharp/blunt|OR 2|12")}));
    }

    void testClosingWithNoKeepsTheWindowOpen()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QString question;
        const auto close = [&] { catalogue.Window().close(); };
        QVERIFY(CatalogueWindow::AnswerDialogs(close, {[&](QWidget *box) {
                                                   question =
                                                       qobject_cast<QMessageBox *>(box)->text();
                                                   QTest::mouseClick(Button(box, QMessageBox::No),
                                                                     Qt::LeftButton);
                                               }}));
        QVERIFY(catalogue.Window().isVisible());
        QVERIFY(!question.isEmpty());
        QVERIFY(!question.contains(QLatin1String("{nl}")));
        QVERIFY(CatalogueWindow::AnswerDialogs(close, {[&](QWidget *box) {
                                                   QTest::mouseClick(Button(box, QMessageBox::Yes),
                                                                     Qt::LeftButton);
                                               }}));
        QVERIFY(!catalogue.Window().isVisible());
    }

    void testClosingWithYesEndsTheProgram()
    {
        CatalogueWindow catalogue(SampleCatalogue);
        QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
        QTimer::singleShot(0, this, [&] {
            QVERIFY(CatalogueWindow::AnswerDialogs([&] { catalogue.Window().close(); },
                                                   {PressButton(QMessageBox::Yes)}));
        });
        // Without the end that the closing brings about, the program would run on to this one.
        constexpr int stillRunning = 99;
        QTimer limit;
        connect(&limit, &QTimer::timeout, &limit, [] { QApplication::exit(stillRunning); });
        limit.start(WaitLimit);
        QCOMPARE(QApplication::exec(), 0);
        QVERIFY(!catalogue.Window().isVisible());
    }

    void testExitMenuEndsTheProgramWhateverTheAnswer_data()
    {
        QTest::addColumn<QMessageBox::StandardButton>("answer");
        QTest::addColumn<bool>("isDatabaseOpen");
        QTest::newRow("Yes") << QMessageBox::Yes << false;
        QTest::newRow("No") << QMessageBox::No << true;
    }

    void testExitMenuEndsTheProgramWhateverTheAnswer()
    {
        QFETCH(QMessageBox::StandardButton, answer);
        QFETCH(bool, isDatabaseOpen);
        CatalogueWindow catalogue(SampleCatalogue);
        catalogue.GetController().AddProductToCart(2, 7, QStringLiteral("OR 2"));
        int questions = 0;
        QTimer answerer;
        QObject::connect(&answerer, &QTimer::timeout, &answerer, [&] {
            if (QWidget *const box = QApplication::activeModalWidget()) {
                ++questions;
                QTest::mouseClick(Button(box, answer), Qt::LeftButton);
            }
        });
        answerer.start(10);
        QTimer::singleShot(0, catalogue.Window().menus->mExit, &QAction::trigger);
        QCOMPARE(QApplication::exec(), 0);
        QCOMPARE(questions, 1);
        QCOMPARE(catalogue.GetController().Queries().QueryCategories().HasData(), isDatabaseOpen);
    }
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestExit>(argc, argv);
}
#include "test_exit.moc"
