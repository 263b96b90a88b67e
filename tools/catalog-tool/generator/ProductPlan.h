#pragma once

#include "generator/Random.h"
#include "generator/Vocabulary.h"

#include <string>
#include <unordered_set>

namespace Tesk {

/// Measures of an instrument, as texts.
struct Size
{
    /// Millimetres with a decimal point, as in `115.5`.
    std::string millimetres;
    /// Centimetres with a decimal comma, as in `11,55 cm`.
    std::string centimetres;
    /// Inches in eighths, rounded down, as in `4 1/2"`.
    std::string inches;
};

/// The size texts of a length in tenths of a millimetre.
Size SizeOf(int tenths);

/// Makes up what one product is.
class ProductPlan final
{
public:
    /// A name and a form in every language.
    struct Description
    {
        Words name;
        Words form;
    };

    /// A competitor's number and name.
    struct Reference
    {
        std::string number;
        std::string company;
    };

    ProductPlan(const Vocabulary &words, Random &choices);

    /// A length in tenths of a millimetre such as instruments have.
    int Length();

    /// An article number that was not given before, such as `AB 12-584-14`.
    std::string ArticleNumber(const Kind &kind, int lengthInTenths);

    Description Describe(const Kind &kind);
    Description DescribeSet(const Kind &kind);

    Reference MakeReference();

private:
    /// The pattern with a digit for each `#`.
    std::string Filled(std::string pattern);

    const Vocabulary &vocabulary;
    Random &random;
    std::unordered_set<std::string> articleNumbers;
};

} // namespace Tesk
