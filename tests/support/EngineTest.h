#pragma once

#include "browser/Engine.h"
#include "ui/main/CatalogApplication.h"

#include <QTest>

namespace Tesk {

/// Runs the test class with the browser engine and the program's own application object; the result
/// is the exit status.
template <typename Test>
int RunEngineTest(int argc, char **argv)
{
    ConfigureEngine();
    CatalogApplication application(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace Tesk
