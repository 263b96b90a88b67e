#include "Figure.h"

#include <QStringList>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace Tesk {

namespace {

constexpr int NameWidth = 58;
constexpr int NumberWidth = 10;

QString Text(double value, Unit unit)
{
    switch (unit) {
    case Unit::Ratio:
        return QString::number(value, 'f', 2);
    case Unit::Milliseconds:
        return QString::number(value, 'f', value < 10 ? 2 : 0) + QLatin1String(" ms");
    case Unit::Percent:
        return QString::number(value, 'f', 1) + QLatin1String(" %");
    }
    return {};
}

void PrintLine(const QString &name, const QStringList &columns, const QString &last)
{
    QString line = name.leftJustified(NameWidth);
    for (const QString &column : columns)
        line += column.rightJustified(NumberWidth);
    std::printf("%s  %s\n", qUtf8Printable(line), qUtf8Printable(last));
    std::fflush(stdout);
}

std::vector<double> Combined(std::vector<double> values, const std::vector<double> &others,
                             const std::function<double(double, double)> &combine)
{
    std::transform(values.begin(), values.end(), others.begin(), values.begin(), combine);
    return values;
}

} // namespace

double Median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

std::vector<double> Ratios(const std::vector<double> &values, const std::vector<double> &others)
{
    return Combined(values, others, std::divides<>());
}

std::vector<double> Differences(const std::vector<double> &values,
                                const std::vector<double> &others)
{
    return Combined(values, others, std::minus<>());
}

void PrintTableHead()
{
    PrintLine(QStringLiteral("figure"),
              {QStringLiteral("target"), QStringLiteral("median"), QStringLiteral("lowest"),
               QStringLiteral("highest"), QStringLiteral("runs")},
              QStringLiteral("target"));
}

void PrintRow(const Figure &figure)
{
    const auto text = [&](double value) { return Text(value, figure.unit); };
    const auto [lowest, highest] = std::ranges::minmax(figure.values);
    const double median = Median(figure.values);
    PrintLine(figure.name,
              {QStringLiteral("≤ ") + text(figure.most), text(median), text(lowest), text(highest),
               QString::number(figure.values.size())},
              median <= figure.most ? QStringLiteral("holds") : QStringLiteral("MISSED"));
    if (!figure.note.isEmpty())
        std::printf("    %s\n", qUtf8Printable(figure.note));
    std::fflush(stdout);
}

} // namespace Tesk
