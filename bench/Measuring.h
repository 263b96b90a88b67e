#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTemporaryDir>

#include <vector>

namespace Tesk {

constexpr int DefaultRounds = 9;

/// The rounds that the command line asks for: its first argument, else DefaultRounds.
int RoundsOf(int argc, char **argv);

double Median(std::vector<double> times);

double Milliseconds(const QElapsedTimer &timer);

/// The sample application directory with a generated catalogue in place of its own, in a folder
/// that goes with this object.
class LargeApplication final
{
public:
    /// With 0 categories the generator decides how many.
    explicit LargeApplication(int products, int categories = 0);

    QString Path() const { return folder.filePath(QStringLiteral("large")); }

private:
    QTemporaryDir folder;
};

} // namespace Tesk
