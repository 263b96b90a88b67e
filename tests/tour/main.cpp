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
        Tesk::Tour tour(QDir(arguments[1]).absolutePath(), arguments[2],
                        ParseSize(arguments.value(3)));
        const QStringList failures = tour.Take();
        for (const QString &failure : failures)
            std::fprintf(stderr, "WRONG: %s\n", qPrintable(failure));
        std::printf("The tour's pictures are in %s\n", qPrintable(arguments[2]));
        return failures.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const Tesk::CatalogueError &error) {
        std::fprintf(stderr, "%s\n", qPrintable(error.Message()));
        return EXIT_FAILURE;
    }
}
