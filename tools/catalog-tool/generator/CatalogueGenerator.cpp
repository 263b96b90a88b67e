#include "generator/CatalogueGenerator.h"

#include "base/Errors.h"
#include "generator/CategoryPlan.h"
#include "generator/ProductPlan.h"
#include "sqlite2/Error.h"
#include "sqlite2/Writer.h"

#include <algorithm>
#include <cstdint>
#include <set>

namespace Tesk {

namespace {

using Sqlite2::Row;
using Sqlite2::Value;

constexpr int MaxProducts = 32767;
constexpr int MaxCategories = 32767;
constexpr int MaxReferenceNumbers = 1'000'000;

constexpr int ProductsPerCategory = 80;
constexpr int FewestCategories = 12;
constexpr int MostCategories = 400;
constexpr int ReferenceNumbersPerProduct = 2;

constexpr int SetOneIn = 50;
constexpr int FewestSetMembers = 3;
constexpr int SetMemberRange = 10;
constexpr int MaxMemberAmount = 9;
/// So often a product lies in the first leaf, whatever its own: about 500 of 32,000.
constexpr int FirstLeafOneIn = 85;
constexpr int SecondCategoryOneIn = 20;
/// More than a kind has pictures.
constexpr int PictureRange = 20;

constexpr std::array Schema{
    "CREATE TABLE categories (ID INTEGER PRIMARY KEY, TREE_ID INTEGER, parent VARCHAR(10), "
    "title_ge VARCHAR(255), title_en VARCHAR(255), title_fr VARCHAR(255), title_sp VARCHAR(255), "
    "title_it VARCHAR(255), firstLevelId INTEGER, catLevel2 INTEGER, catLevel3 INTEGER, "
    "catLevel4 INTEGER, catLevel5 INTEGER)",
    "CREATE TABLE products_global (ID INTEGER PRIMARY KEY, artNr VARCHAR(50), isSet VARCHAR(5), "
    "length DOUBLE, sCm VARCHAR(50), sInch VARCHAR(50), availability INTEGER, "
    "filePath VARCHAR(255), groupId INTEGER, helpId VARCHAR(50), img1 VARCHAR(100), "
    "img1Scale DOUBLE, img2 VARCHAR(100), img2Scale DOUBLE, img3 VARCHAR(100), img3Scale DOUBLE)",
    "CREATE TABLE products_localized (ID INTEGER, lang VARCHAR(2), name VARCHAR(255), "
    "form VARCHAR(255))",
    "CREATE TABLE products2categories (prodID INTEGER, catID INTEGER)",
    "CREATE TABLE products2sets (iSetID INTEGER, iProdGlobId INTEGER, iAmount INTEGER, "
    "iOrder INTEGER)",
    "CREATE TABLE reference_numbers (ID INTEGER, sRefNo VARCHAR(50), sUnternehmen VARCHAR(100))",
};

constexpr std::array Indexes{
    "CREATE INDEX i1 ON products_localized (ID, lang)",
    "CREATE INDEX i2 ON products2categories (catID)",
    "CREATE INDEX i3 ON products2sets (iSetID)",
    "CREATE INDEX i4 ON reference_numbers (ID)",
    "CREATE INDEX i5 ON products_global (artNr)",
};

void RequireRange(const QString &what, int number, int least, int most)
{
    if (number < least || number > most)
        throw CatalogueError(
            QStringLiteral("A catalogue cannot have %1 %2: give a number from %3 to %4.")
                .arg(number)
                .arg(what)
                .arg(least)
                .arg(most));
}

class Generator final
{
public:
    explicit Generator(const GeneratorOptions &generatorOptions)
        : options(generatorOptions)
        , random(generatorOptions.seed)
        , vocabulary(MakeVocabulary())
        , products(vocabulary, random)
    {
        for (const char *statement : Schema)
            writer.CreateTable(statement);
        for (const char *statement : Indexes)
            writer.CreateIndex(statement);
    }

    void Write(const std::filesystem::path &file)
    {
        AddCategories();
        for (int id = 1; id <= options.products; ++id)
            AddProduct(id);
        AddReferenceNumbers();
        writer.Finish(file);
    }

private:
    void AddCategories()
    {
        const int byProducts =
            std::clamp(options.products / ProductsPerCategory, FewestCategories, MostCategories);
        for (const Category &category :
             PlanCategories(options.categories.value_or(byProducts), vocabulary, random)) {
            Row row{std::to_string(category.id), std::to_string(category.treeId),
                    category.parentTreeId == 0 ? "" : std::to_string(category.parentTreeId)};
            for (const std::string &title : category.titles)
                row.emplace_back(title);
            for (const int level : category.levels)
                row.emplace_back(std::to_string(level));
            writer.InsertRow("categories", row);
            if (category.isLeaf)
                leaves.push_back(category);
        }
    }

    void AddProduct(int id)
    {
        const Category &category = LeafOf(id);
        const Kind &kind = vocabulary.kinds[category.kind];
        const bool isSet = id % SetOneIn == 0;
        const int length = products.Length();
        const Size size = SizeOf(length);
        const auto picture = static_cast<std::size_t>(random.Below(PictureRange));
        const std::string &mainPicture = kind.pictures[picture % kind.pictures.size()];
        const bool hasDetailPicture = random.Below(2) == 0 && !kind.detailPictures.empty();
        const std::string detailPicture =
            hasDetailPicture ? kind.detailPictures[picture % kind.detailPictures.size()] : "";
        const bool hasHelp = random.OneIn(5);
        writer.InsertRow("products_global",
                         {std::to_string(id), products.ArticleNumber(kind, length),
                          isSet ? "True" : "False", isSet ? Value() : size.millimetres,
                          isSet ? "" : size.centimetres, isSet ? "" : size.inches,
                          random.Pick(stocks), kind.folder, std::to_string(1 + random.Below(4)),
                          hasHelp ? "xlist" : "", mainPicture, random.Pick(scales), detailPicture,
                          hasDetailPicture ? "1.5" : "0", "", "0"});

        const auto description = isSet ? products.DescribeSet(kind) : products.Describe(kind);
        for (std::size_t i = 0; i < LanguageCount; ++i)
            writer.InsertRow("products_localized", {std::to_string(id), LanguageCodes[i],
                                                    description.name[i], description.form[i]});
        AddToCategories(id, category.id);
        if (isSet)
            AddMembers(id);
    }

    const Category &LeafOf(int id)
    {
        if (!options.firstLeafProducts)
            return random.OneIn(FirstLeafOneIn) ? leaves.front() : random.Pick(leaves);
        // Evenly among the ids.
        const auto countUpTo = [this](std::int64_t ids) {
            return ids * *options.firstLeafProducts / options.products;
        };
        const bool isInFirst = leaves.size() == 1 || countUpTo(id) != countUpTo(id - 1);
        return isInFirst ? leaves.front() : OtherLeaf();
    }

    /// One that is not the first; needs two leaves.
    const Category &OtherLeaf()
    {
        return leaves[1 +
                      static_cast<std::size_t>(random.Below(static_cast<int>(leaves.size()) - 1))];
    }

    void AddToCategories(int id, int category)
    {
        const auto add = [&](int catId) {
            writer.InsertRow("products2categories", {std::to_string(id), std::to_string(catId)});
        };
        add(category);
        const bool isFirstLeafFull = options.firstLeafProducts && leaves.size() > 1;
        const int other = isFirstLeafFull ? OtherLeaf().id : random.Pick(leaves).id;
        if (random.OneIn(SecondCategoryOneIn) && other != category)
            add(other);
    }

    /// A set's members are single products with smaller ids.
    void AddMembers(int id)
    {
        const int count = FewestSetMembers + random.Below(SetMemberRange);
        std::set<int> members;
        while (static_cast<int>(members.size()) < count) {
            const int member = 1 + random.Below(id - 1);
            if (member % SetOneIn == 0 || !members.insert(member).second)
                continue;
            writer.InsertRow("products2sets", {std::to_string(id), std::to_string(member),
                                               std::to_string(1 + random.Below(MaxMemberAmount)),
                                               std::to_string(members.size())});
        }
    }

    void AddReferenceNumbers()
    {
        const int total =
            options.referenceNumbers.value_or(options.products * ReferenceNumbersPerProduct);
        std::vector<int> ids;
        ids.reserve(static_cast<std::size_t>(total));
        for (int i = 0; i < total; ++i)
            ids.push_back(1 + random.Below(options.products));
        std::ranges::sort(ids);
        for (const int id : ids) {
            const auto reference = products.MakeReference();
            writer.InsertRow("reference_numbers",
                             {std::to_string(id), reference.number, reference.company});
        }
    }

    GeneratorOptions options;
    Random random;
    Vocabulary vocabulary;
    ProductPlan products;
    Sqlite2::Writer writer;
    std::vector<Category> leaves;
    const std::vector<std::string> stocks{"0", "1", "1", "1", "5"};
    const std::vector<std::string> scales{"0", "0.25", "0.5", "1", "2"};
};

} // namespace

void GenerateCatalogue(const std::filesystem::path &file, const GeneratorOptions &options)
{
    RequireRange(QStringLiteral("products"), options.products, 1, MaxProducts);
    if (options.categories)
        RequireRange(QStringLiteral("categories"), *options.categories, 1, MaxCategories);
    if (options.referenceNumbers)
        RequireRange(QStringLiteral("reference numbers"), *options.referenceNumbers, 0,
                     MaxReferenceNumbers);
    if (options.firstLeafProducts)
        RequireRange(QStringLiteral("products in the first category"), *options.firstLeafProducts,
                     0, options.products);
    try {
        Generator(options).Write(file);
    } catch (const Sqlite2::Error &error) {
        throw FileError(QStringLiteral("The catalogue could not be made: %1.")
                            .arg(QString::fromLocal8Bit(error.what())));
    }
}

} // namespace Tesk
