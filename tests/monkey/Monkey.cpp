#include "Monkey.h"

#include "Dice.h"

#include "support/Dialogs.h"
#include "ui/main/MainMenu.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <cstdio>

namespace Tesk {

namespace {

/// One of so many actions is followed by the next at once.
constexpr int Haste = 4;

/// Who has looked so often for something should have found it once.
constexpr int ManyLooks = 100;
constexpr quint32 ManyActions = 1000;

} // namespace

Monkey::Monkey(const QString &applicationDirectory, quint32 seed)
    : seed(seed)
    , session(applicationDirectory)
{
    for (const auto &area :
         {ActionsInTheWindow(), ActionsOnPages(), ActionsInSearches(), ActionsInTheCart()})
        actions.insert(actions.end(), area.begin(), area.end());
    for (const MonkeyAction &action : actions)
        weights += action.weight;
}

const MonkeyAction &Monkey::Choose(Dice &dice) const
{
    int place = dice.Below(weights);
    auto action = actions.begin();
    while (place >= action->weight)
        place -= (action++)->weight;
    return *action;
}

void Monkey::Take(quint32 number)
{
    Dice dice(seed, number);
    const MonkeyAction &action = Choose(dice);
    const bool isHasty = dice.OneIn(Haste);
    if (action.needsRest)
        session.Rest();
    if (!session.findings.Failures().isEmpty())
        return;
    session.findings.Begin(static_cast<int>(number), QLatin1String(action.name));
    session.dialogs.Begin(seed, number);
    action.act(session, dice);
    session.dialogs.End();
    Count &count = counts[QLatin1String(action.name)];
    const std::optional<bool> hasFound = session.findings.HasFound();
    ++count.taken;
    count.looked += hasFound ? 1 : 0;
    count.found += hasFound.value_or(false) ? 1 : 0;
    if (!isHasty)
        session.Rest();
}

void Monkey::CheckFinds(quint32 taken)
{
    for (const auto &[name, count] : counts) {
        if (count.looked >= ManyLooks && count.found == 0)
            session.findings.Fail(
                QStringLiteral("\"%1\" found nothing %2 times").arg(name).arg(count.looked));
    }
    if (taken >= ManyActions && session.dialogs.Answered() == 0)
        session.findings.Fail(QStringLiteral("no dialog was answered"));
}

void Monkey::Leave()
{
    session.Rest();
    session.WaitForPrints();
    const MainMenu &menus = *session.Window().menus;
    // Whatever the question is answered with.
    QTimer::singleShot(0, &session,
                       [&] { ChooseFromMenu(session.catalogue, menus.mFile, menus.mExit); });
    if (QApplication::exec() != 0)
        session.findings.Fail(QStringLiteral("the program did not end in order"));
}

bool Monkey::Run(int count)
{
    QElapsedTimer clock;
    clock.start();
    quint32 taken = 0;
    const Findings &findings = session.findings;
    while (taken < static_cast<quint32>(count) && findings.Failures().isEmpty())
        Take(++taken);
    if (findings.Failures().isEmpty())
        CheckFinds(taken);
    if (findings.Failures().isEmpty())
        Leave();
    return Report(taken, clock.elapsed());
}

bool Monkey::Report(quint32 taken, qint64 milliseconds) const
{
    const QStringList failures = session.findings.Failures();
    if (!failures.isEmpty()) {
        for (const QString &action : session.findings.LastActions())
            std::fprintf(stderr, "%s\n", qPrintable(action));
        for (const QString &failure : failures)
            std::fprintf(stderr, "WRONG: %s\n", qPrintable(failure));
        std::fprintf(stderr, "Again: monkey --seed %u --actions %u\n", seed, taken);
    }
    for (const auto &[name, count] : counts) {
        std::printf("%6d  %s", count.taken, qPrintable(name));
        if (count.looked > 0)
            std::printf(" (%d of %d found)", count.found, count.looked);
        std::printf("\n");
    }
    std::printf("seed %u: %u actions in %.1f s (%.1f a second), %d dialogs answered, %lld mails, "
                "%lld lines in the cart\n",
                seed, taken, static_cast<double>(milliseconds) / 1000,
                1000.0 * taken / static_cast<double>(milliseconds), session.dialogs.Answered(),
                static_cast<long long>(session.catalogue.MailAddresses().size()),
                static_cast<long long>(session.model.Lines().size()));
    return failures.isEmpty();
}

} // namespace Tesk
