#pragma once

#include "core/CategoryTree.h"
#include "core/ResultTable.h"
#include "ui/main/controls/NavEntry.h"
#include "ui/main/controls/NavHeading.h"
#include "ui/main/controls/NavLeft.h"

#include <QHBoxLayout>
#include <QTest>
#include <QWindow>

#include <memory>
#include <vector>

namespace Tesk {

/// A category's ID, TREE_ID, parent's TREE_ID and title.
using Row = std::vector<QString>;

inline Row Category(int id, const QString &title, int parent = 0)
{
    return {QString::number(id), QString::number(id),
            parent == 0 ? QString() : QString::number(parent), title};
}

inline ResultTable Categories(const std::vector<Row> &rows)
{
    ResultTable table({QStringLiteral("ID"), QStringLiteral("TREE_ID"), QStringLiteral("parent"),
                       QStringLiteral("title")});
    for (const Row &row : rows)
        table.AddRow(row);
    return table;
}

inline const std::vector<Row> TwoLevels = {
    Category(1, QStringLiteral("Scissors")),       Category(11, QStringLiteral("Operating"), 1),
    Category(12, QStringLiteral("Dissecting"), 1), Category(13, QStringLiteral("Ligature"), 1),
    Category(2, QStringLiteral("Forceps")),        Category(21, QStringLiteral("Tissue"), 2),
    Category(22, QStringLiteral("Dressing"), 2)};

/// A menu of two headings with three and two entries in a window of 500 by 600 pixels, the pointer
/// in its corner.
class NavLeftFixture
{
protected:
    void SetUp()
    {
        tree = {};
        searchCaption = QStringLiteral("Detail search");
        window = std::make_unique<QWidget>();
        menu = new NavLeft(
            [this](const QString &key) {
                return key == QLatin1String("searchDetail") ? searchCaption : key;
            },
            window.get());
        QFont small;
        small.setPixelSize(11);
        menu->setFont(small);
        auto *const layout = new QHBoxLayout(window.get());
        layout->addWidget(menu);
        layout->addStretch();
        window->resize(500, 600);
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        Initialize(TwoLevels);
        MovePointer(window.get(), QPoint(490, 590));
    }

    void Initialize(const std::vector<Row> &rows)
    {
        tree.Fill(Categories(rows));
        menu->Initialize(tree);
        QCoreApplication::processEvents();
    }

    QList<NavHeading *> Headings() const { return menu->findChildren<NavHeading *>(); }
    QList<NavEntry *> Entries() const { return menu->findChildren<NavEntry *>(); }

    QStringList GreyCaptions() const
    {
        QStringList captions;
        for (const NavEntry *entry : Entries()) {
            if (entry->IsGrey())
                captions.append(entry->Caption());
        }
        return captions;
    }

    /// Moves the pointer to the point of the widget as the window system would.
    void MovePointer(QWidget *target, const QPoint &point)
    {
        QTest::mouseMove(window->windowHandle(), target->mapTo(window.get(), point));
        QCoreApplication::processEvents();
    }

    std::unique_ptr<QWidget> window;
    NavLeft *menu = nullptr;
    CategoryTree tree;
    QString searchCaption;
};

} // namespace Tesk
