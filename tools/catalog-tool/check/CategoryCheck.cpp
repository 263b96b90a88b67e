#include "base/CodePage.h"
#include "check/CatalogueChecker.h"
#include "check/CellChecks.h"
#include "sources/CatalogueSources.h"
#include "sources/Problems.h"
#include "sources/ProgramNeeds.h"

#include <algorithm>
#include <array>

namespace Tesk {

namespace {

constexpr std::array SortKeys{QLatin1String("firstLevelId"), QLatin1String("catLevel2"),
                              QLatin1String("catLevel3"), QLatin1String("catLevel4"),
                              QLatin1String("catLevel5")};

QString TitleColumn(const QString &languageCode)
{
    return QStringLiteral("title_%1").arg(languageCode);
}

int Sign(double difference)
{
    return (difference > 0) - (difference < 0);
}

/// Below 0 when `left` comes first, above 0 when `right` does. NULL comes before everything.
/// Numbers compare by value in a numeric column; texts compare by the bytes of the code page, as do
/// numbers in a text column.
int Compare(const Cell &left, const Cell &right, Sqlite2::TypeClass typeClass)
{
    if (!left || !right)
        return static_cast<int>(left.has_value()) - static_cast<int>(right.has_value());
    bool isLeftNumber = false;
    bool isRightNumber = false;
    const double leftNumber = left->toDouble(&isLeftNumber);
    const double rightNumber = right->toDouble(&isRightNumber);
    if (typeClass == Sqlite2::TypeClass::Numeric && isLeftNumber && isRightNumber)
        return Sign(leftNumber - rightNumber);
    return CodePage::ToBytes(*left).compare(CodePage::ToBytes(*right));
}

/// The categories in the order in which the program reads them.
class CategoryOrder final
{
public:
    CategoryOrder(const CatalogueSources &sources, const QString &languageCode)
        : schema(sources.Schema().FindTable(QStringLiteral("categories")))
        , titleColumn(TitleColumn(languageCode).toLatin1())
    {}

    bool operator()(const TableRow &left, const TableRow &right) const
    {
        for (const QLatin1String key : SortKeys) {
            const int order = Compare(left.At(key), right.At(key), ClassOf(key));
            if (order != 0)
                return order < 0;
        }
        const QLatin1String title(titleColumn);
        return Compare(left.At(title), right.At(title), ClassOf(title)) < 0;
    }

private:
    Sqlite2::TypeClass ClassOf(QLatin1String column) const
    {
        if (!schema)
            return Sqlite2::TypeClass::Numeric;
        const auto found = std::ranges::find(
            schema->columns, std::string(column.data(), static_cast<size_t>(column.size())),
            &Sqlite2::Column::name);
        return found == schema->columns.end() ? Sqlite2::TypeClass::Numeric : found->Class();
    }

    const Sqlite2::Table *schema;
    QByteArray titleColumn;
};

void CheckSortKeys(const TableRow &row, Problems &problems)
{
    for (const QLatin1String key : SortKeys) {
        if (row.At(key))
            CheckWholeNumber(row, key, 0, problems);
    }
}

void CheckOrder(const CatalogueSources &sources, const QString &languageCode, Problems &problems)
{
    std::vector<TableRow> rows = sources.Table(QStringLiteral("categories")).Rows();
    std::ranges::stable_sort(rows, CategoryOrder(sources, languageCode));

    QHash<QString, qsizetype> positions;
    for (const TableRow &row : rows)
        positions.insert(row.Text(QLatin1String("TREE_ID")), positions.size());
    for (const TableRow &row : rows) {
        const QString parent = row.Text(QLatin1String("parent"));
        const auto parentPosition = positions.constFind(parent);
        if (parent.isEmpty() || parentPosition == positions.constEnd() ||
            *parentPosition < positions.value(row.Text(QLatin1String("TREE_ID"))))
            continue;
        problems.Add(row.Source().File(), row.Line(),
                     QStringLiteral("in the order of the sort keys (language %1) the category "
                                    "comes before its parent %2; give the parent smaller keys")
                         .arg(languageCode, parent));
    }
}

} // namespace

void CheckCategories(const CatalogueSources &sources, Problems &problems)
{
    const TableSource &categories = sources.Table(QStringLiteral("categories"));
    UniqueKeys ids;
    UniqueKeys treeIds;
    for (const TableRow &row : categories.Rows()) {
        const QString id = row.Text(QLatin1String("ID"));
        if (CheckWholeNumber(row, QLatin1String("ID"), 1, problems))
            ids.Add(id, QStringLiteral("the ID %1").arg(id), row, problems);
        const QString treeId = row.Text(QLatin1String("TREE_ID"));
        if (CheckWholeNumber(row, QLatin1String("TREE_ID"), 1, problems))
            treeIds.Add(treeId, QStringLiteral("the TREE_ID %1").arg(treeId), row, problems);
        CheckSortKeys(row, problems);
        for (const QString &code : ProgramNeeds::LanguageCodes())
            CheckShownText(row, QLatin1String(TitleColumn(code).toLatin1()), problems);
    }

    for (const TableRow &row : categories.Rows()) {
        const QString parent = row.Text(QLatin1String("parent"));
        if (!parent.isEmpty() && !treeIds.Contains(parent))
            problems.Add(row.Source().File(), row.Line(),
                         QStringLiteral("no category has the TREE_ID %1 of parent, and the program "
                                        "would not start; correct it")
                             .arg(parent));
    }

    const qsizetype before = problems.Count();
    for (const QString &code : ProgramNeeds::LanguageCodes()) {
        CheckOrder(sources, code, problems);
        // The order rarely differs by language: the first one's problems say it all.
        if (problems.Count() > before)
            return;
    }
}

} // namespace Tesk
