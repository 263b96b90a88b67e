#include "Monkey.h"

#include "base/Errors.h"
#include "browser/Engine.h"
#include "support/SampleCatalogue.h"
#include "ui/main/CatalogApplication.h"

#include <QCommandLineParser>

#include <cstdio>
#include <cstdlib>

namespace {

const QString Seed = QStringLiteral("seed");
const QString Actions = QStringLiteral("actions");
const QString Steps = QStringLiteral("steps");

void AddOptions(QCommandLineParser &parser)
{
    parser.addHelpOption();
    parser.addOption({Seed, QStringLiteral("What all choices follow from."),
                      QStringLiteral("number"), QStringLiteral("1")});
    parser.addOption({Actions, QStringLiteral("How many actions to take."),
                      QStringLiteral("number"), QStringLiteral("10000")});
    parser.addOption({Steps, QStringLiteral("Prints every step when it is taken.")});
}

} // namespace

/// Uses the program at random. The exit status is 0 when nothing was wrong.
int main(int argc, char **argv)
{
    Tesk::ConfigureEngine();
    Tesk::CatalogApplication application(argc, argv);
    QCommandLineParser parser;
    AddOptions(parser);
    parser.process(application);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    try {
        Tesk::Monkey monkey(Tesk::SampleCatalogue, parser.value(Seed).toUInt());
        if (parser.isSet(Steps))
            monkey.PrintSteps();
        return monkey.Run(parser.value(Actions).toInt()) ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const Tesk::CatalogueError &error) {
        std::fprintf(stderr, "%s\n", qPrintable(error.Message()));
        return EXIT_FAILURE;
    }
}
