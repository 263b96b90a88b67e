#pragma once

#include <QString>

#include <vector>

namespace Tesk {

enum class Unit { Ratio, Milliseconds, Percent };

/// One row of the table: a figure measured over and over, and what its median must not exceed.
struct Figure
{
    QString name;
    Unit unit = Unit::Ratio;
    double most = 0; ///< the target
    std::vector<double> values;
    /// What the values were made of, for who wants to know why.
    QString note = {};
};

/// Of at least one value.
double Median(std::vector<double> values);

/// The quotient of each pair: both values of one were measured one right after the other.
std::vector<double> Ratios(const std::vector<double> &values, const std::vector<double> &others);
std::vector<double> Differences(const std::vector<double> &values,
                                const std::vector<double> &others);

void PrintTableHead();
void PrintRow(const Figure &figure);

} // namespace Tesk
