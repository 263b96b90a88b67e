#include "MeasuredWindow.h"

#include "Clock.h"
#include "ShowingWatch.h"
#include "browser/WebBrowser.h"
#include "support/SampleCatalogue.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/PageProtocol.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>

namespace Tesk {

namespace {

/// Tells when the loader's timer ticks, before the tick is handled.
class TickWatch final : public QObject
{
public:
    explicit TickWatch(std::function<void()> action)
        : onTick(std::move(action))
    {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Timer) {
            const auto *const timer = qobject_cast<QTimer *>(object);
            if (timer && timer->isSingleShot() && timer->interval() == PageProtocol::LoaderInterval)
                onTick();
        }
        return false;
    }

private:
    std::function<void()> onTick;
};

} // namespace

MeasuredWindow::MeasuredWindow(const QString &applicationDirectory)
    : catalogue(applicationDirectory)
{
    if (!catalogue.WaitForFilledPage(QStringLiteral("welcome.html")))
        qFatal("the welcome page was not filled");
}

void MeasuredWindow::GoHome()
{
    const QSignalSpy fills(&catalogue.Window().Protocol(), &PageProtocol::WelcomePageFilled);
    catalogue.Window().GoHome();
    if (!WaitUntil([&] { return !fills.isEmpty(); }))
        qFatal("the welcome page was not filled again");
    catalogue.WaitForPaint();
}

const CategoryNode *MeasuredWindow::LeafWith(int products)
{
    const CategoryNode *const leaf = FindLeaf(
        catalogue, [products](const ResultTable &rows) { return rows.UpperRow() == products; });
    if (leaf == nullptr)
        qFatal("no category has %d products", products);
    return leaf;
}

void MeasuredWindow::PointTo(const CategoryNode *node)
{
    const frmCatalog &window = catalogue.Window();
    QTabBar *const tabs = window.tabMain->tabBar();
    ClickOn(tabs, tabs->tabRect(frmCatalog::CategoriesTab).center());
    CategoryTreeView *const tree = window.TreeViewCategories;
    tree->ExpandNodePath(node->parent);
    tree->scrollToItem(tree->ItemOf(node));
}

void MeasuredWindow::Click(const CategoryNode *node)
{
    const CategoryTreeView *const tree = catalogue.Window().TreeViewCategories;
    ClickOn(tree->viewport(), tree->visualItemRect(tree->ItemOf(node)).center());
}

PageTimes MeasuredWindow::TimesOf(const QString &addressPart, const std::function<void()> &action)
{
    frmCatalog &window = catalogue.Window();
    ShowingWatch showing(*window.wbMain);
    bool isFilled = false;
    double complete = 0;
    double tick = 0;
    double tickProcessor = 0;
    PageTimes times;

    QObject context;
    QObject::connect(window.wbMain, &WebBrowser::DocumentComplete, &context,
                     [&](const QString &address) {
                         if (address.contains(addressPart))
                             complete = Clock::Now();
                     });
    const TickWatch ticks([&] {
        tick = Clock::Now();
        tickProcessor = Clock::Processor();
    });
    QObject::connect(&window.Protocol(), &PageProtocol::PageFilled, &context, [&] {
        times.processor += Clock::Processor() - tickProcessor;
        showing.Ask(ShowingWatch::Stage::PicturesLoaded);
        isFilled = true;
    });

    const double begin = Clock::Now();
    const double beginProcessor = Clock::Processor();
    action();
    times.processor += Clock::Processor() - beginProcessor;
    if (!WaitUntil([&] { return isFilled; }) || complete == 0)
        qFatal("%s was not filled", qPrintable(addressPart));
    times.loading = complete - begin;
    times.filling = showing.Time() - tick;
    return times;
}

} // namespace Tesk
