// From the start of a process to the filled welcome page.

#include "Figure.h"
#include "Folders.h"
#include "Groups.h"
#include "SavedPage.h"
#include "UserFolders.h"
#include "WatchedProgram.h"

#include <chrono>
#include <thread>

namespace Tesk {

namespace {

double TimeOfBareWindow()
{
    return WatchedProgram(Folders::BareWindow, {QString::fromUtf8(AddressOf(SavedPage::Welcome))})
        .WaitFor("shown");
}

double TimeOfCatalogue(const QString &applicationDirectory, const UserFolders &user)
{
    return WatchedProgram(applicationDirectory + QLatin1String("/tesk-catalog"), {},
                          user.Environment())
        .WaitFor("welcome.html");
}

QString Medians(const std::vector<std::pair<const char *, std::vector<double>>> &times)
{
    QStringList texts;
    for (const auto &[what, values] : times)
        texts.append(
            QStringLiteral("%1 %2 ms").arg(QLatin1String(what)).arg(qRound(Median(values))));
    return texts.join(QLatin1String(", "));
}

/// Starts both catalogues until a start finds all that starts before have laid ready: a database
/// that was opened once, and checked again when its files were not new any more.
void MakeKnown(const UserFolders &user)
{
    constexpr std::chrono::seconds ageOfNewFiles{4};
    for (const bool isLast : {false, true}) {
        TimeOfCatalogue(Folders::Limit, user);
        TimeOfCatalogue(Folders::Small, user);
        if (!isLast)
            std::this_thread::sleep_for(ageOfNewFiles);
    }
}

} // namespace

void MeasureStart(const Extent &extent)
{
    const UserFolders user;
    const UserFolders newUser;
    MakeKnown(user);
    TimeOfBareWindow();

    std::vector<double> bare;
    std::vector<double> known;
    std::vector<double> small;
    std::vector<double> first;
    for (int run = 0; run < extent.runs; ++run) {
        bare.push_back(TimeOfBareWindow());
        known.push_back(TimeOfCatalogue(Folders::Limit, user));
        small.push_back(TimeOfCatalogue(Folders::Small, user));
        newUser.ForgetDatabases();
        first.push_back(TimeOfCatalogue(Folders::Limit, newUser));
    }
    PrintRow({QStringLiteral("start to the welcome page ÷ bare window"), Unit::Ratio, 1.3,
              Ratios(known, bare),
              Medians({{"bare window", bare},
                       {"catalogue", known},
                       {"with 100 products", small},
                       {"the first time", first}})});
    PrintRow({QStringLiteral("start for the first time, more than later"), Unit::Milliseconds, 800,
              Differences(first, known)});
    PrintRow({QStringLiteral("start with 32,767 products ÷ with 100"), Unit::Ratio, 1.05,
              Ratios(known, small)});
}

} // namespace Tesk
