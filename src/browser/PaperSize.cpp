#include "browser/PaperSize.h"

#include <algorithm>
#include <array>

namespace Tesk {
namespace {

constexpr std::array LetterTerritories = {
    QLocale::Belize,       QLocale::Canada,     QLocale::Chile,       QLocale::Colombia,
    QLocale::CostaRica,    QLocale::ElSalvador, QLocale::Guatemala,   QLocale::Mexico,
    QLocale::Nicaragua,    QLocale::Panama,     QLocale::Philippines, QLocale::PuertoRico,
    QLocale::UnitedStates, QLocale::Venezuela,
};

} // namespace

QPageSize UsualPaperSize(const QLocale &locale)
{
    const bool isLetter = std::find(LetterTerritories.cbegin(), LetterTerritories.cend(),
                                    locale.territory()) != LetterTerritories.cend();
    return QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4);
}

} // namespace Tesk
