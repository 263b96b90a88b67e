#pragma once

#include <array>
#include <string>
#include <vector>

namespace Tesk {

inline constexpr std::size_t LanguageCount = 5;
inline constexpr std::array<const char *, LanguageCount> LanguageCodes{"ge", "en", "fr", "sp",
                                                                       "it"};

/// A word or phrase in the order of the language codes, in the code page of the catalogue.
using Words = std::array<std::string, LanguageCount>;

/// A kind of instrument.
struct Kind
{
    Words name;
    /// The letters that its article numbers begin with.
    std::string prefix;
    /// The folder of its pictures, and the pictures: those of the sample catalogue, so that they
    /// are there where a generated database takes the place of its own.
    std::string folder;
    std::vector<std::string> pictures;
    std::vector<std::string> detailPictures; ///< may be empty
};

/// What names of categories and products are made of.
struct Vocabulary
{
    std::vector<Kind> kinds;
    /// The first is "straight".
    std::vector<Words> shapes;
    std::vector<Words> details;
    std::vector<std::string> inventors;
    Words set;
};

Vocabulary MakeVocabulary();

} // namespace Tesk
