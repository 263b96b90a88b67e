// The memory of all processes once the welcome page is shown. The catalogue has two browsers, so it
// is compared with two bare windows of one program.

#include "Figure.h"
#include "Folders.h"
#include "Groups.h"
#include "ProcessTree.h"
#include "SavedPage.h"
#include "UserFolders.h"
#include "WatchedProgram.h"

namespace Tesk {

namespace {

double MemoryOfBareWindows()
{
    WatchedProgram windows(Folders::BareWindow, {QString::fromUtf8(AddressOf(SavedPage::Welcome)),
                                                 QString::fromUtf8(AddressOf(SavedPage::Cart))});
    windows.WaitFor("shown");
    windows.WaitFor("shown");
    return ProcessTree::SettledMemory(windows.Id());
}

double MemoryOfCatalogue(const UserFolders &user)
{
    WatchedProgram catalogue(Folders::Limit + QLatin1String("/tesk-catalog"), {},
                             user.Environment());
    catalogue.WaitFor("welcome.html");
    return ProcessTree::SettledMemory(catalogue.Id());
}

} // namespace

void MeasureMemory(const Extent &extent)
{
    const UserFolders user;
    MemoryOfCatalogue(user);

    std::vector<double> bare;
    std::vector<double> catalogue;
    for (int run = 0; run < extent.runs; ++run) {
        bare.push_back(MemoryOfBareWindows());
        catalogue.push_back(MemoryOfCatalogue(user));
    }
    PrintRow({QStringLiteral("memory of all processes ÷ two bare windows"), Unit::Ratio, 1.25,
              Ratios(catalogue, bare),
              QStringLiteral("bare windows %1 MB, catalogue %2 MB")
                  .arg(qRound(Median(bare)))
                  .arg(qRound(Median(catalogue)))});
}

} // namespace Tesk
