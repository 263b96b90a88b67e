#include "Measuring.h"

#include "generator/CatalogueGenerator.h"
#include "support/CatalogueWindow.h"

#include <QFile>

#include <algorithm>
#include <cstdlib>

namespace Tesk {

int RoundsOf(int argc, char **argv)
{
    return argc > 1 ? std::max(1, std::atoi(argv[1])) : DefaultRounds;
}

double Median(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

double Milliseconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

LargeApplication::LargeApplication(int products, int categories)
{
    if (!CopyApplicationDirectory(QStringLiteral(APPLICATION_DIR), Path()))
        qFatal("the sample catalogue cannot be copied");
    const QString database = Path() + QLatin1String("/catalog.db");
    QFile::remove(database);
    GeneratorOptions options;
    options.products = products;
    if (categories > 0)
        options.categories = categories;
    GenerateCatalogue(database.toStdString(), options);
}

} // namespace Tesk
