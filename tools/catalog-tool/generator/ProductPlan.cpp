#include "generator/ProductPlan.h"

#include <numeric>

namespace Tesk {

namespace {

constexpr int Shortest = 900;
constexpr int Steps = 45;
constexpr int StepLength = 50;
/// Some lengths lie half a millimetre beside a step.
constexpr int OddLength = 5;
constexpr int OddLengthOneIn = 12;

constexpr int StraightOneIn = 2;
constexpr int DetailOneIn = 8;

constexpr int TenthsPerCentimetre = 100;
constexpr int TenthsPerInch = 254;
constexpr int Eighths = 8;

std::string TwoDigits(int number)
{
    return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

/// The number divided by a power of ten, without zeros at its end.
std::string Decimal(int number, int divisor, char point)
{
    std::string text = std::to_string(number / divisor);
    int rest = number % divisor;
    if (rest != 0)
        text += point;
    for (; rest != 0; rest = rest * 10 % divisor)
        text += static_cast<char>('0' + rest * 10 / divisor);
    return text;
}

std::string Inches(int tenths)
{
    const int inEighths = tenths * Eighths / TenthsPerInch;
    std::string text = std::to_string(inEighths / Eighths);
    if (const int rest = inEighths % Eighths; rest != 0) {
        const int common = std::gcd(rest, Eighths);
        text += ' ' + std::to_string(rest / common) + '/' + std::to_string(Eighths / common);
    }
    return text + '"';
}

} // namespace

Size SizeOf(int tenths)
{
    return {Decimal(tenths, 10, '.'), Decimal(tenths, TenthsPerCentimetre, ',') + " cm",
            Inches(tenths)};
}

ProductPlan::ProductPlan(const Vocabulary &words, Random &choices)
    : vocabulary(words)
    , random(choices)
{}

int ProductPlan::Length()
{
    const int length = Shortest + StepLength * random.Below(Steps);
    return random.OneIn(OddLengthOneIn) ? length + OddLength : length;
}

std::string ProductPlan::ArticleNumber(const Kind &kind, int lengthInTenths)
{
    const std::string ending = '-' + TwoDigits(lengthInTenths / TenthsPerCentimetre);
    while (true) {
        std::string number = kind.prefix + Filled(" ##-###") + ending;
        if (articleNumbers.insert(number).second)
            return number;
    }
}

ProductPlan::Description ProductPlan::Describe(const Kind &kind)
{
    const std::string &inventor = random.Pick(vocabulary.inventors);
    // Straight instruments are the most common and do not say so in their names.
    const bool isStraight = random.OneIn(StraightOneIn);
    const Words &shape = isStraight ? vocabulary.shapes.front() : random.Pick(vocabulary.shapes);
    const Words &detail = random.Pick(vocabulary.details);
    const bool hasDetail = random.OneIn(DetailOneIn);
    Description description;
    for (std::size_t i = 0; i < LanguageCount; ++i) {
        description.name[i] = kind.name[i] + ' ' + inventor;
        if (!isStraight)
            description.name[i] += ' ' + shape[i];
        if (hasDetail)
            description.name[i] += ", " + detail[i];
        description.form[i] = shape[i];
    }
    return description;
}

ProductPlan::Description ProductPlan::DescribeSet(const Kind &kind)
{
    const std::string &inventor = random.Pick(vocabulary.inventors);
    Description description;
    for (std::size_t i = 0; i < LanguageCount; ++i)
        description.name[i] = vocabulary.set[i] + ' ' + kind.name[i] + ' ' + inventor;
    return description;
}

ProductPlan::Reference ProductPlan::MakeReference()
{
    switch (random.Below(3)) {
    case 0:
        return {Filled("BH###"), "Varnholt"};
    case 1:
        return {Filled("##-###-##"), "Dorvik"};
    default:
        return {Filled("##.##.##"), "Salvora"};
    }
}

std::string ProductPlan::Filled(std::string pattern)
{
    for (char &c : pattern) {
        if (c == '#')
            c = static_cast<char>('0' + random.Below(10));
    }
    return pattern;
}

} // namespace Tesk
