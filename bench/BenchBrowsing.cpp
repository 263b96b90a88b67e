// Times of the whole program in the real engine, as its user sees them: from the start, or from a
// click, to the filled page. Prints the median of several rounds for the sample catalogue and for
// one of the largest size.
// Usage: bench_browsing [ROUNDS]

#include "Measuring.h"
#include "browser/Engine.h"
#include "support/CatalogueWindow.h"
#include "ui/main/CatalogApplication.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

using namespace Tesk;

namespace {

constexpr int MostProducts = 32767;
constexpr int MostCategories = 400;

void Print(const char *what, const std::vector<double> &times)
{
    std::printf("  %-52s %8.1f ms\n", what, Median(times));
}

const CategoryNode *FirstLeaf(const frmCatalog &window)
{
    const auto &nodes = window.Tree().Nodes();
    const auto leaf = std::find_if(nodes.begin(), nodes.end(),
                                   [](const auto &node) { return !node->HasChildren(); });
    return leaf == nodes.end() ? nullptr : leaf->get();
}

/// The time from the action to the page that contains this in its address, filled.
template <typename Action>
double TimeToFilledPage(CatalogueWindow &catalogue, const QString &addressPart, Action action)
{
    QElapsedTimer timer;
    timer.start();
    action();
    if (!catalogue.WaitForFilledPage(addressPart))
        qFatal("%s was not filled", qPrintable(addressPart));
    return Milliseconds(timer);
}

void Measure(const char *title, const QString &applicationDirectory, int rounds)
{
    std::printf("%s\n", title);
    std::vector<double> firstStart;
    std::vector<double> list;
    std::vector<double> details;
    std::vector<double> language;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        CatalogueWindow catalogue(applicationDirectory);
        if (!catalogue.WaitForFilledPage(QStringLiteral("welcome.html")))
            qFatal("the welcome page was not filled");
        firstStart.push_back(Milliseconds(timer));

        frmCatalog &window = catalogue.Window();
        const CategoryNode *const leaf = FirstLeaf(window);
        list.push_back(TimeToFilledPage(catalogue, QStringLiteral("product_list.html"),
                                        [&] { window.TreeViewCategories_NodeClick(leaf); }));
        details.push_back(TimeToFilledPage(catalogue, QStringLiteral("product_details.html"), [&] {
            catalogue.Click(QStringLiteral("#contListRow1 td:nth-child(2)"));
        }));
        timer.restart();
        catalogue.GetController().Languages().SetLanguage(0);
        window.ApplyGuiTexts();
        language.push_back(Milliseconds(timer));
    }
    Print("window made to welcome page filled, database new", firstStart);
    Print("category click to list filled (200 ms of it timer)", list);
    Print("row click to details filled (200 ms of it timer)", details);
    Print("change of language until the window is free again", language);
}

} // namespace

int main(int argc, char **argv)
{
    ConfigureEngine();
    CatalogApplication application(argc, argv);
    const int rounds = RoundsOf(argc, argv);
    const LargeApplication large(MostProducts, MostCategories);

    std::printf("Medians of %d rounds\n", rounds);
    Measure("Sample catalogue", QStringLiteral(APPLICATION_DIR), rounds);
    Measure("32,767 products in 400 categories", large.Path(), rounds);
    return 0;
}
