#pragma once

#include <QString>

#include <optional>

namespace Tesk {

class Dice;

/// What people type, and what they should not.
namespace RandomTexts {

/// Words, umlauts, quotation marks, signs of markup and of the program's own formats, long texts;
/// one line, never empty.
QString Any(Dice &dice);
/// One without characters beyond 16 bits, which no key types.
QString OfKeys(Dice &dice);
/// The name of a file without its folder.
QString FileName(Dice &dice);
/// The beginning of an article number, a whole one, or a word of a product's name.
QString SearchText(Dice &dice);

/// A text for an amount and what each place makes of it; nothing where it is refused.
struct Amount
{
    QString text;
    std::optional<int> inAmountDialog;
    std::optional<int> inAddDialog;
    int inCartPage;
};

const Amount &AnyAmount(Dice &dice);
/// The amount of this text, which must be one of those that AnyAmount gives.
const Amount &AmountOf(const QString &text);

} // namespace RandomTexts

} // namespace Tesk
