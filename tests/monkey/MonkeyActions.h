#pragma once

#include <functional>
#include <vector>

namespace Tesk {

class Dice;
class MonkeySession;

/// Something that a user does. It may find nothing to do it with, and then does nothing.
struct MonkeyAction
{
    const char *name;
    /// How often it is chosen among the others.
    int weight;
    /// Only what the user sees at rest can be told beforehand.
    bool needsRest;
    std::function<void(MonkeySession &session, Dice &dice)> act;
};

/// The window's controls, keys and menus.
std::vector<MonkeyAction> ActionsInTheWindow();
/// The pages of the catalogue.
std::vector<MonkeyAction> ActionsOnPages();
std::vector<MonkeyAction> ActionsInSearches();
/// The cart's page and its buttons.
std::vector<MonkeyAction> ActionsInTheCart();

} // namespace Tesk
