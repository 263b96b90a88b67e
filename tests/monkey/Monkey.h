#pragma once

#include "MonkeyActions.h"
#include "MonkeySession.h"

#include <map>
#include <vector>

namespace Tesk {

/// Does random things for a number of actions, and looks at each stop whether all is in order. All
/// choices follow from the seed.
class Monkey final
{
public:
    Monkey(const QString &applicationDirectory, quint32 seed);

    /// Takes its actions and then leaves the program by the menu. False when something was wrong;
    /// what it was, the last actions and the way to repeat them stand on the terminal then.
    bool Run(int actions);

    void PrintSteps() { session.findings.PrintSteps(); }

private:
    const MonkeyAction &Choose(Dice &dice) const;
    void Take(quint32 number);
    void Leave();
    bool Report(quint32 taken, qint64 milliseconds) const;

    quint32 seed;
    MonkeySession session;
    std::vector<MonkeyAction> actions;
    int weights = 0;
    std::map<QString, int> counts;
};

} // namespace Tesk
