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
    /// An area of the window that is never found is not tried out.
    void CheckFinds(quint32 taken);
    void Leave();
    bool Report(quint32 taken, qint64 milliseconds) const;

    quint32 seed;
    MonkeySession session;
    std::vector<MonkeyAction> actions;
    int weights = 0;
    struct Count
    {
        int taken = 0;
        int looked = 0;
        int found = 0;
    };

    std::map<QString, Count> counts;
};

} // namespace Tesk
