#pragma once

#include <QString>

/// What the build has laid ready for the benchmark.
namespace Tesk::Folders {

/// An application directory with 32,767 products, 400 categories and 65,000 reference numbers. The
/// first category holds LargeCategory products.
inline const QString Limit = QStringLiteral(BENCH_DIR "/limit");
inline constexpr int LargeCategory = 1000;
/// The same with 100 products.
inline const QString Small = QStringLiteral(BENCH_DIR "/small");

inline const QString BareWindow = QStringLiteral(BENCH_DIR "/bare_window");
/// Finished pages, saved with all that they refer to.
inline const QString Pages = QStringLiteral(BENCH_DIR "/pages");

} // namespace Tesk::Folders
