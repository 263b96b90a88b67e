#include "PaneWindow.h"
#include "browser/WebBrowser.h"
#include "support/EngineTest.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"

#include <QPushButton>

using namespace Tesk;

/// The buttons of the toolbars: captions, keys, places.
class TestPaneButtons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init();
    void cleanup() { pane.reset(); }

    void testButtonsAreReachedByKeys();
    void testMnemonicPressesAButtonWhilePageHasFocus();
    void testCaptionsFollowTheLanguage();
    void testNoButtonIsHiddenInANarrowWindow_data();
    void testNoButtonIsHiddenInANarrowWindow();

private:
    std::unique_ptr<PaneWindow> pane;
};

void TestPaneButtons::init()
{
    pane = std::make_unique<PaneWindow>();
    pane->Add(PaneWindow::Scissors, 3, QStringLiteral("OR 2"));
    QVERIFY(pane->ShowCart());
}

void TestPaneButtons::testButtonsAreReachedByKeys()
{
    const QList<const char *> names{"btnSave",        "btnLoad",      "btnManual", "btnPrint",
                                    "btnSendRequest", "btnSendOrder", "btnDelete"};
    pane->Button(names.first())->setFocus(Qt::TabFocusReason);
    for (const char *const name : names) {
        QCOMPARE(QApplication::focusWidget(), pane->Button(name));
        QTest::keyClick(pane->Window().windowHandle(), Qt::Key_Tab);
    }
    QVERIFY(pane->Pane().Browser()->isAncestorOf(QApplication::focusWidget()));
    // Enter and Space press the button.
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        pane->Button("btnManual")->setFocus(Qt::TabFocusReason);
        DialogDriver driver({Cancel});
        QTest::keyClick(pane->Window().windowHandle(), key);
        QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    }
}

void TestPaneButtons::testMnemonicPressesAButtonWhilePageHasFocus()
{
    QVERIFY(pane->Type(QStringLiteral("#fld_0"), QStringLiteral("9")));
    DialogDriver driver({Cancel});
    // "&Add articles …"
    QTest::keyClick(pane->Window().windowHandle(), Qt::Key_A, Qt::AltModifier);
    QVERIFY(WaitUntil([&] { return driver.IsDone(); }));
    QCOMPARE(pane->Cart().Entries().At(0)->Amount, qint16{9});
}

void TestPaneButtons::testCaptionsFollowTheLanguage()
{
    QCOMPARE(pane->Button("btnSendOrder")->text(), QStringLiteral("Send or&der"));
    QCOMPARE(pane->Button("btnSendOrder")->toolTip(), QStringLiteral("Send order (Alt+D)"));
    pane->GetController().Languages().SetLanguage(0);
    pane->Pane().InitGui();
    const QHash<const char *, QString> captions{
        {"btnSave", QStringLiteral("S&peichern")},
        {"btnLoad", QStringLiteral("&Laden")},
        {"btnManual", QStringLiteral("&Artikel hinzufügen …")},
        {"btnPrint", QStringLiteral("D&rucken")},
        {"btnSendRequest", QStringLiteral("A&nfrage senden")},
        {"btnSendOrder", QStringLiteral("&Bestellung senden")},
        {"btnDelete", QStringLiteral("Warenkorb l&eeren")},
    };
    for (auto caption = captions.begin(); caption != captions.end(); ++caption)
        QCOMPARE(pane->Button(caption.key())->text(), caption.value());
}

void TestPaneButtons::testNoButtonIsHiddenInANarrowWindow_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("language");
    for (const int width : {320, 520, 590, 800, 1280}) {
        for (int language = 0; language < LanguageSupport::LanguageCount; ++language)
            QTest::addRow("%d, language %d", width, language) << width << language;
    }
}

void TestPaneButtons::testNoButtonIsHiddenInANarrowWindow()
{
    QFETCH(const int, width);
    QFETCH(const int, language);
    pane->GetController().Languages().SetLanguage(static_cast<qint16>(language));
    pane->Pane().InitGui();
    pane->Window().resize(width, 600);
    QCoreApplication::processEvents();
    QCOMPARE(pane->Window().width(), width);
    QList<QRect> places;
    const auto buttons = pane->Pane().findChildren<QPushButton *>();
    QCOMPARE(buttons.size(), qsizetype{7});
    for (QPushButton *const button : buttons) {
        QVERIFY2(IsWhollyVisible(button), qPrintable(button->objectName()));
        QVERIFY(button->width() >= button->sizeHint().width());
        const QRect place(button->mapTo(&pane->Pane(), QPoint()), button->size());
        for (const QRect &other : std::as_const(places))
            QVERIFY(!place.intersects(other));
        places.append(place);
    }
}

int main(int argc, char **argv)
{
    return RunEngineTest<TestPaneButtons>(argc, argv);
}

#include "TestPaneButtons.moc"
