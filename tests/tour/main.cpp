#include "OrderTour.h"
#include "Tour.h"

#include "base/Errors.h"
#include "browser/Engine.h"
#include "ui/main/CatalogApplication.h"

#include <cstdio>
#include <cstdlib>

namespace {

QSize ParseSize(const QString &text)
{
    const QStringList sides = text.split(u'x');
    return sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize(1280, 800);
}

} // namespace

int main(int argc, char **argv)
{
    Tesk::ConfigureEngine();
    Tesk::CatalogApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3) {
        std::fprintf(stderr,
                     "usage: tesk-tour APPLICATION_DIRECTORY PICTURE_FOLDER [WIDTHxHEIGHT]\n");
        return 2;
    }
    try {
        const QString directory = QDir(arguments[1]).absolutePath();
        const QSize size = ParseSize(arguments.value(3));
        QStringList failures = Tesk::Tour(directory, arguments[2], size).Take();
        failures += Tesk::OrderTour(directory, arguments[2], size, QStringLiteral("German"),
                                    QStringLiteral("order-ge-"))
                        .Take();
        failures += Tesk::OrderTour(directory, arguments[2], size, QStringLiteral("French"),
                                    QStringLiteral("order-fr-"))
                        .Take();
        for (const QString &failure : failures)
            std::fprintf(stderr, "WRONG: %s\n", qPrintable(failure));
        std::printf("The tour's pictures are in %s\n", qPrintable(arguments[2]));
        return failures.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const Tesk::CatalogueError &error) {
        std::fprintf(stderr, "%s\n", qPrintable(error.Message()));
        return EXIT_FAILURE;
    }
}
