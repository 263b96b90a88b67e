// The memory of all processes. The catalogue shows two pages, the welcome page and the cart's, in a
// browser each, so it is compared with two bare windows of one program. The cart's page opens by a
// click, so the catalogue's window is one of the benchmark's own processes.

#include "Figure.h"
#include "Folders.h"
#include "Groups.h"
#include "MeasuredWindow.h"
#include "ProcessTree.h"
#include "SavedPage.h"
#include "WatchedProgram.h"
#include "support/CartTab.h"

#include <QCoreApplication>

#include <cstdio>

namespace Tesk {

namespace {

constexpr auto ShownMark = "both pages are shown";

double MemoryOfBareWindows()
{
    WatchedProgram windows(Folders::BareWindow, {QString::fromUtf8(AddressOf(SavedPage::Welcome)),
                                                 QString::fromUtf8(AddressOf(SavedPage::Cart))});
    windows.WaitFor("shown");
    windows.WaitFor("shown");
    return ProcessTree::SettledMemory(windows.Id());
}

double MemoryOfCatalogue()
{
    WatchedProgram catalogue(QCoreApplication::applicationFilePath(), {QStringLiteral("window")});
    catalogue.WaitFor(ShownMark);
    return ProcessTree::SettledMemory(catalogue.Id());
}

} // namespace

void ShowWindow(const Extent &)
{
    MeasuredWindow window(Folders::Limit);
    if (!CartTab(window.Catalogue()).Open())
        qFatal("the cart's page does not open");
    std::puts(ShownMark);
    std::fflush(stdout);
    QCoreApplication::exec();
}

void MeasureMemory(const Extent &extent)
{
    std::vector<double> bare;
    std::vector<double> catalogue;
    for (int run = 0; run < extent.runs; ++run) {
        bare.push_back(MemoryOfBareWindows());
        catalogue.push_back(MemoryOfCatalogue());
    }
    PrintRow({QStringLiteral("memory of all processes ÷ two bare windows"), Unit::Ratio, 1.25,
              Ratios(catalogue, bare),
              QStringLiteral("bare windows %1 MB, catalogue %2 MB")
                  .arg(qRound(Median(bare)))
                  .arg(qRound(Median(catalogue)))});
}

} // namespace Tesk
