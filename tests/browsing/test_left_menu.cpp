#include "browser/WebBrowser.h"
#include "core/CategoryTree.h"
#include "generator/CatalogueGenerator.h"
#include "support/CatalogueWindow.h"
#include "support/EngineTest.h"
#include "support/SampleCatalogue.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/controls/Breadcrumb.h"
#include "ui/main/controls/NavEntry.h"
#include "ui/main/controls/NavHeading.h"
#include "ui/main/controls/NavLeft.h"
#include "ui/main/controls/Twips.h"

#include <QFile>
#include <QMap>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <array>
#include <utility>

using namespace Tesk;

namespace {

QList<NavEntry *> Entries(CatalogueWindow &catalogue)
{
    return catalogue.Window().ucNavLeft->findChildren<NavEntry *>();
}

QList<NavHeading *> Headings(CatalogueWindow &catalogue)
{
    return catalogue.Window().ucNavLeft->findChildren<NavHeading *>();
}

NavEntry *EntryOf(CatalogueWindow &catalogue, const QString &tag)
{
    const auto entries = Entries(catalogue);
    const auto entry = std::ranges::find(entries, tag, &NavEntry::Tag);
    return entry == entries.end() ? nullptr : *entry;
}

QStringList GreyTags(CatalogueWindow &catalogue)
{
    QStringList tags;
    const auto entries = Entries(catalogue);
    for (const NavEntry *const entry : entries) {
        if (entry->IsGrey())
            tags.append(entry->Tag());
    }
    return tags;
}

/// The captions from top to bottom, those of headings in brackets.
QStringList ShownCaptions(CatalogueWindow &catalogue)
{
    QMap<int, QString> captions;
    const auto headings = Headings(catalogue);
    for (const NavHeading *const heading : headings)
        captions[heading->y()] = u'[' + heading->accessibleName() + u']';
    const auto entries = Entries(catalogue);
    for (const NavEntry *const entry : entries)
        captions[entry->y()] = entry->Caption();
    return captions.values();
}

/// What the menu must show of the tree.
QStringList ExpectedCaptions(CatalogueWindow &catalogue)
{
    QStringList captions;
    for (const auto &top : catalogue.Window().Tree().Nodes()) {
        if (top->parent != nullptr)
            continue;
        captions.append(u'[' + top->text + u']');
        for (const CategoryNode *const child : top->children)
            captions.append(child->text);
    }
    captions.append(u'[' + catalogue.GetController().GetText(QStringLiteral("searchHeadline")) +
                    u']');
    captions.append(catalogue.GetController().GetText(QStringLiteral("searchDetail")));
    return captions;
}

/// Whether each item stands below the one before it at the distance that its height asks for.
void VerifyPlaces(CatalogueWindow &catalogue)
{
    QMap<int, QWidget *> items;
    const auto headings = Headings(catalogue);
    for (NavHeading *const heading : headings)
        items[heading->y()] = heading;
    const auto entries = Entries(catalogue);
    for (NavEntry *const entry : entries)
        items[entry->y()] = entry;
    QCOMPARE(items.size(), headings.size() + entries.size());
    int y = 0; // twips
    for (QWidget *const item : std::as_const(items)) {
        if (const auto *const entry = qobject_cast<NavEntry *>(item)) {
            QCOMPARE(entry->y(), Twips::ToPixels(y));
            y += entry->CaptionHeight() + 50;
        } else {
            if (y > 0)
                y += 200;
            QCOMPARE(item->y(), Twips::ToPixels(y));
            y += qobject_cast<NavHeading *>(item)->BandHeight() + 50;
        }
    }
}

} // namespace

/// The left menu in the real window, used with mouse, wheel and keyboard.
class TestLeftMenu final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        catalogue = std::make_unique<CatalogueWindow>(SampleCatalogue);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
    }

    void cleanup() { catalogue.reset(); }

    void testShowsTwoLevelsOfTheTreeAndTheSearch()
    {
        QCOMPARE(ShownCaptions(*catalogue), ExpectedCaptions(*catalogue));
        VerifyPlaces(*catalogue);
        QCOMPARE(GreyTags(*catalogue), QStringList());
    }

    void testClickOpensTheCategoryAndMarksItsEntry()
    {
        const QString tag = Entries(*catalogue)[1]->Tag();
        ClickOn(Entries(*catalogue)[1]);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("id=") + tag));
        QCOMPARE(catalogue->Window().CurrentNode()->tag, tag);
        QVERIFY(catalogue->Window().TreeViewCategories->IsBold(catalogue->Window().CurrentNode()));
        QVERIFY(EntryOf(*catalogue, tag)->IsMarked());
        // A click on the arrow is one on its entry.
        const QString next = Entries(*catalogue)[2]->Tag();
        ClickOn(Entries(*catalogue)[2], QPoint(7, 9));
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("id=") + next));
        QVERIFY(!EntryOf(*catalogue, tag)->IsMarked());
        QVERIFY(EntryOf(*catalogue, next)->IsMarked());
    }

    void testClickOnAHeadingOpensNothing()
    {
        ClickOn(Headings(*catalogue)[0]);
        QVERIFY(catalogue->Window().CurrentNode() == nullptr);
        QVERIFY(QApplication::overrideCursor() == nullptr);
        QCOMPARE(GreyTags(*catalogue), QStringList());
    }

    void testSearchEntryShowsTheForm()
    {
        frmCatalog &window = catalogue->Window();
        NavEntry *const entry = EntryOf(*catalogue, QStringLiteral("searchDetail"));
        QVERIFY(TurnWheelTo(window.ucNavLeft, entry));
        ClickOn(entry);
        QCOMPARE(window.tabMain->currentIndex(), int(frmCatalog::SearchTab));
        const QList<Crumb> expected{{QStringLiteral("tesk-shop"), QStringLiteral("default.html")},
                                    {QStringLiteral("Detailsuche"), QString()}};
        QCOMPARE(window.ucBreadcrumb->list(), expected);
        QVERIFY(QApplication::overrideCursor() == nullptr);
        QCOMPARE(GreyTags(*catalogue), QStringList{QStringLiteral("searchDetail")});
    }

    void testDeepCategoryMarksTheEntryAboveIt()
    {
        const auto &nodes = catalogue->Window().Tree().Nodes();
        const auto deep = std::ranges::find_if(nodes, [](const auto &node) {
            return node->parent != nullptr && node->parent->parent != nullptr;
        });
        QVERIFY(deep != nodes.end());
        ClickInTree(*catalogue, deep->get());
        QCOMPARE(GreyTags(*catalogue), QStringList{(*deep)->SecondLevelAncestor()->tag});
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("id=") + (*deep)->tag));

        ClickOn(catalogue->Window().header->btnInfo);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
        QVERIFY(WaitUntil([&] { return GreyTags(*catalogue).isEmpty(); }));
    }

    void testClickOnATopLevelCategoryLeavesTheMark()
    {
        const QString tag = Entries(*catalogue)[0]->Tag();
        ClickOn(Entries(*catalogue)[0]);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("id=") + tag));
        ClickInTree(*catalogue, catalogue->Window().Tree().FindByTag(tag)->parent);
        MovePointerTo(catalogue->Window().header);
        QCOMPARE(GreyTags(*catalogue), QStringList{tag});
    }

    void testHoverFollowsThePointerAndEndsOutside()
    {
        frmCatalog &window = catalogue->Window();
        const auto entries = Entries(*catalogue);
        const QString marked = entries[0]->Tag();
        ClickOn(entries[0]);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("id=") + marked));
        const std::array<QWidget *, 5> outside{window.header, window.tabMain, window.ucBreadcrumb,
                                               window.wbMain, Headings(*catalogue)[0]};
        for (QWidget *const place : outside) {
            MovePointerTo(entries[1]);
            QCOMPARE(GreyTags(*catalogue), QStringList({marked, entries[1]->Tag()}));
            MovePointerTo(entries[2]);
            QCOMPARE(GreyTags(*catalogue), QStringList({marked, entries[2]->Tag()}));
            MovePointerTo(place);
            QCOMPARE(GreyTags(*catalogue), QStringList{marked});
        }
    }

    void testKeysOpenAnEntry()
    {
        NavLeft *const menu = catalogue->Window().ucNavLeft;
        const auto entries = Entries(*catalogue);
        entries[0]->setFocus(Qt::TabFocusReason);
        PressKey(menu, Qt::Key_Down);
        PressKey(menu, Qt::Key_Return);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("id=") + entries[1]->Tag()));
        PressKey(menu, Qt::Key_End);
        PressKey(menu, Qt::Key_Space);
        QCOMPARE(catalogue->Window().tabMain->currentIndex(), int(frmCatalog::SearchTab));
    }

    void testNewLanguageCaptionsThePlacesAnew_data()
    {
        QTest::addColumn<int>("language");
        for (const int index : {0, 2, 3, 4})
            QTest::addRow("language %d", index) << index;
    }

    void testNewLanguageCaptionsThePlacesAnew()
    {
        QFETCH(const int, language);
        const auto entries = Entries(*catalogue);
        const QStringList before = ShownCaptions(*catalogue);
        ClickOn(entries[0]);
        ClickOn(catalogue->Window().header->btnLang[size_t(language)]);
        QCOMPARE(Entries(*catalogue), entries);
        QVERIFY(ShownCaptions(*catalogue) != before);
        QCOMPARE(ShownCaptions(*catalogue), ExpectedCaptions(*catalogue));
        VerifyPlaces(*catalogue);
        QCOMPARE(GreyTags(*catalogue), QStringList());
    }

    void testLongMenuIsReachedByWheelAndKeys()
    {
        catalogue.reset();
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("app"));
        GeneratorOptions options;
        options.products = 300;
        options.categories = 200;
        const QString database = folder.filePath(QStringLiteral("long.db"));
        GenerateCatalogue(QFile::encodeName(database).toStdString(), options);
        QVERIFY(CopyWithDatabase(SampleCatalogue, path, database));
        catalogue = std::make_unique<CatalogueWindow>(path);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
        QCOMPARE(ShownCaptions(*catalogue), ExpectedCaptions(*catalogue));
        VerifyPlaces(*catalogue);

        NavLeft *const menu = catalogue->Window().ucNavLeft;
        NavEntry *const first = Entries(*catalogue).first();
        NavEntry *const search = Entries(*catalogue).last();
        QVERIFY(IsWhollyVisible(first));
        QVERIFY(search->visibleRegion().isEmpty());
        QVERIFY(TurnWheelTo(menu, search));
        ClickOn(search);
        QCOMPARE(catalogue->Window().tabMain->currentIndex(), int(frmCatalog::SearchTab));

        QVERIFY(TurnWheelTo(menu, first));
        first->setFocus(Qt::TabFocusReason);
        PressKey(menu, Qt::Key_End);
        QVERIFY(IsWhollyVisible(search));
        PressKey(menu, Qt::Key_Up);
        NavEntry *const last = Entries(*catalogue)[Entries(*catalogue).size() - 2];
        QVERIFY(last->hasFocus());
        QVERIFY(IsWhollyVisible(last));
        PressKey(menu, Qt::Key_Return);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("id=") + last->Tag()));
        QVERIFY(last->IsMarked());
    }

private:
    std::unique_ptr<CatalogueWindow> catalogue;
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestLeftMenu>(argc, argv);
}
#include "test_left_menu.moc"
