// Measures the figures of one group and prints their rows. ../bench runs it for each group.
// Usage: tesk-bench [--quick] GROUP

#include "Figure.h"
#include "Groups.h"
#include "browser/Engine.h"
#include "ui/main/CatalogApplication.h"

#include <cstdio>
#include <map>

using namespace Tesk;

namespace {

/// For a look at the figures: too few runs to rely on.
constexpr Extent QuickExtent{3, 600};

const std::map<QString, void (*)(const Extent &)> Groups{
    {QStringLiteral("head"), [](const Extent &) { PrintTableHead(); }},
    {QStringLiteral("pages"), &SavePages},
    {QStringLiteral("window"), &ShowWindow},
    {QStringLiteral("start"), &MeasureStart},
    {QStringLiteral("browsing"), &MeasureBrowsing},
    {QStringLiteral("searches"), &MeasureSearches},
    {QStringLiteral("lists"), &MeasureLists},
    {QStringLiteral("cart"), &MeasureCart},
    {QStringLiteral("memory"), &MeasureMemory},
    {QStringLiteral("growth"), &MeasureGrowth},
};

} // namespace

int main(int argc, char **argv)
{
    ConfigureEngine();
    const CatalogApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    const bool isQuick = arguments.removeAll(QStringLiteral("--quick")) > 0;
    const auto group = Groups.find(arguments.value(0));
    if (arguments.size() != 1 || group == Groups.end()) {
        std::fputs("usage: tesk-bench [--quick] GROUP\n", stderr);
        return EXIT_FAILURE;
    }
    group->second(isQuick ? QuickExtent : Extent());
    return EXIT_SUCCESS;
}
