#include "RandomTexts.h"

#include "Dice.h"

#include <QStringList>

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace Tesk::RandomTexts {

namespace {

const QStringList Pieces{QStringLiteral("OP 2"),      QStringLiteral("Müller"),
                         QStringLiteral("Größe"),     QStringLiteral("a;b"),
                         QStringLiteral("Saal: 4"),   QStringLiteral("\"x\""),
                         QStringLiteral("it's"),      QStringLiteral("<b>bold</b>"),
                         QStringLiteral("&uuml;"),    QStringLiteral("{0}"),
                         QStringLiteral("%1"),        QStringLiteral("100%"),
                         QStringLiteral("a\\b"),      QStringLiteral("</td></tr>"),
                         QStringLiteral("--"),        QStringLiteral("Ωμέγα"),
                         QStringLiteral("€ 5"),       QStringLiteral("'); x('"),
                         QStringLiteral("delItem:0"), QStringLiteral("shoppingCart:1"),
                         QStringLiteral("7"),         QStringLiteral("\U0001F600"),
                         QStringLiteral("#?&="),      QStringLiteral("_0_1")};

const QStringList FilePieces{QStringLiteral("cart"),   QStringLiteral("Wägen"),
                             QStringLiteral("a b"),    QStringLiteral("x;y"),
                             QStringLiteral("50%"),    QStringLiteral("it's"),
                             QStringLiteral("v1.2"),   QStringLiteral("#1"),
                             QStringLiteral("OP.csv"), QStringLiteral("Ωμέγα")};

const QStringList SearchPieces{
    QStringLiteral("AB"),        QStringLiteral("AB 10/116"), QStringLiteral("ab10"),
    QStringLiteral("Schere"),    QStringLiteral("scissors"),  QStringLiteral("Metzenbaum"),
    QStringLiteral("set"),       QStringLiteral("TS 90/100"), QStringLiteral("forceps 14"),
    QStringLiteral("SA010"),     QStringLiteral("11"),        QStringLiteral("180"),
    QStringLiteral("18,5"),      QStringLiteral("%"),         QStringLiteral("no such thing"),
    QStringLiteral("Mayo knife")};

const std::vector<Amount> &Amounts()
{
    // Halves are rounded to the even neighbour.
    static const std::vector<Amount> amounts{
        {QStringLiteral("1"), 1, 1, 1},
        {QStringLiteral("7"), 7, 7, 7},
        {QStringLiteral("12"), 12, 12, 12},
        {QStringLiteral("250"), 250, 250, 250},
        {QStringLiteral("999"), 999, 999, 999},
        {QStringLiteral(" 5 "), 5, 5, 5},
        {QStringLiteral("2,5"), 2, 2, 2},
        {QStringLiteral("3,5"), 4, 4, 4},
        {QStringLiteral("0"), {}, {}, 1},
        {QStringLiteral("-3"), {}, {}, 1},
        {QStringLiteral("1000"), {}, {}, 999},
        {QStringLiteral("1.000"), {}, {}, 1},
        {QStringLiteral("99999999"), {}, {}, 999},
        {QStringLiteral("abc"), {}, {}, 1},
        {QStringLiteral("<b>"), {}, {}, 1},
        {QStringLiteral("3:4"), {}, {}, 1},
    };
    return amounts;
}

QString Joined(Dice &dice, const QStringList &pieces, int most)
{
    QStringList chosen;
    for (int left = dice.Between(1, most); left > 0; --left)
        chosen.append(dice.Pick(pieces));
    return chosen.join(u' ');
}

} // namespace

QString Any(Dice &dice)
{
    constexpr int longText = 30; // pieces
    return Joined(dice, Pieces, dice.OneIn(12) ? longText : 3);
}

QString OfKeys(Dice &dice)
{
    for (;;) {
        QString text = Any(dice);
        if (text.toUcs4().size() == text.size())
            return text;
    }
}

QString FileName(Dice &dice)
{
    return Joined(dice, FilePieces, 2) + (dice.OneIn(2) ? QStringLiteral(".csv") : QString());
}

QString SearchText(Dice &dice)
{
    return dice.OneIn(3) ? Any(dice) : Joined(dice, SearchPieces, 1);
}

const Amount &AnyAmount(Dice &dice)
{
    return dice.Pick(Amounts());
}

const Amount &AmountOf(const QString &text)
{
    const auto &amounts = Amounts();
    const auto found = std::find_if(amounts.begin(), amounts.end(),
                                    [&](const Amount &amount) { return amount.text == text; });
    if (found == amounts.end())
        throw std::runtime_error("\"" + text.toStdString() + "\" is none of the monkey's amounts");
    return *found;
}

} // namespace Tesk::RandomTexts
