#include "GenerateCommand.h"

#include "UsageError.h"
#include "generator/CatalogueGenerator.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>

namespace Tesk {

namespace {

const QString ProductsOption = QStringLiteral("--products");
const QString SeedOption = QStringLiteral("--seed");

struct OptionalNumber
{
    QLatin1String name;
    std::optional<int> GeneratorOptions::*value;
};

constexpr std::array OptionalNumbers{
    OptionalNumber{QLatin1String("--categories"), &GeneratorOptions::categories},
    OptionalNumber{QLatin1String("--references"), &GeneratorOptions::referenceNumbers},
    OptionalNumber{QLatin1String("--first-category"), &GeneratorOptions::firstLeafProducts},
};

template <typename Number>
Number ToNumber(const QString &option, const QString &text,
                Number (QString::*convert)(bool *, int) const)
{
    bool isNumber = false;
    const Number number = (text.*convert)(&isNumber, 10);
    if (!isNumber)
        throw UsageError(QStringLiteral("%1 takes a whole number, not \"%2\"").arg(option, text));
    return number;
}

} // namespace

int RunGenerate(const QStringList &arguments)
{
    GeneratorOptions options;
    QString file;
    bool hasProducts = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments[i];
        const auto *const number =
            std::ranges::find(OptionalNumbers, argument, &OptionalNumber::name);
        if (argument == ProductsOption) {
            options.products = ToNumber(argument, arguments.value(++i), &QString::toInt);
            hasProducts = true;
        } else if (argument == SeedOption) {
            options.seed = ToNumber(argument, arguments.value(++i), &QString::toUInt);
        } else if (number != OptionalNumbers.end()) {
            options.*number->value = ToNumber(argument, arguments.value(++i), &QString::toInt);
        } else if (argument.startsWith(QLatin1String("--"))) {
            throw UsageError(QStringLiteral("generate has no option %1").arg(argument));
        } else if (file.isEmpty()) {
            file = argument;
        } else {
            throw UsageError(QStringLiteral("generate makes one file at a time"));
        }
    }
    if (file.isEmpty() || !hasProducts)
        throw UsageError(QStringLiteral("generate takes a FILE and --products N"));
    GenerateCatalogue(QFile::encodeName(file).toStdString(), options);
    return EXIT_SUCCESS;
}

} // namespace Tesk
