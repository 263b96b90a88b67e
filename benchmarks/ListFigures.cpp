// Rows and pages without a window.

#include "Clock.h"
#include "Figure.h"
#include "Folders.h"
#include "Groups.h"
#include "core/CategoryTree.h"
#include "core/Controller.h"
#include "core/Registry.h"
#include "pages/HtmlBuilder.h"
#include "support/RecordingDocument.h"

#include <QTemporaryDir>

namespace Tesk {

namespace {

/// The id of the category with so many products.
QString CategoryWith(int products, const CategoryTree &tree, const CatalogueQueries &queries)
{
    for (const auto &node : tree.Nodes()) {
        if (queries.QueryProductsOfCategory(node->tag).UpperRow() == products)
            return node->tag;
    }
    qFatal("no category has %d products", products);
}

/// The mean over many repetitions, in time of the processor: this waits for nothing, and so takes
/// as long on a machine without other work.
template <typename Action>
double TimeOf(Action action, int repetitions)
{
    const double begin = Clock::Processor();
    for (int i = 0; i < repetitions; ++i)
        action();
    return (Clock::Processor() - begin) / repetitions;
}

} // namespace

void MeasureLists(const Extent &extent)
{
    constexpr int repetitions = 20;
    const QTemporaryDir folder;
    Registry registry(folder.filePath(QStringLiteral("settings.json")));
    Controller controller(Folders::Limit, registry, folder.filePath(QStringLiteral("cache")));
    controller.InitApplication();
    const CatalogueQueries &queries = controller.Queries();
    CategoryTree tree;
    tree.Fill(queries.QueryCategories());
    const QString category = CategoryWith(Folders::LargeCategory, tree, queries);
    const CategoryNode *const node = tree.FindByTag(category);
    const HtmlBuilder builder(controller);

    RecordingDocument page;
    const auto build = [&](const ResultTable &rows, bool hasSingleProducts) {
        page.calls.clear();
        builder.WriteProductList(page, node->text, rows, 1, category, hasSingleProducts, node);
    };
    const auto queryAndBuild = [&] {
        build(queries.QueryProductsOfCategory(category), queries.HasSingleProducts(category));
    };
    queryAndBuild();

    const ResultTable rows = queries.QueryProductsOfCategory(category);
    const bool hasSingleProducts = queries.HasSingleProducts(category);
    std::vector<double> all;
    std::vector<double> building;
    for (int run = 0; run < extent.runs; ++run) {
        all.push_back(TimeOf(queryAndBuild, repetitions));
        building.push_back(TimeOf([&] { build(rows, hasSingleProducts); }, repetitions));
    }
    PrintRow(
        {QStringLiteral("category of 1,000 products: query and page"), Unit::Milliseconds, 5, all});
    PrintRow({QStringLiteral("page of 20 rows from its table"), Unit::Milliseconds, 0.2, building});
}

} // namespace Tesk
