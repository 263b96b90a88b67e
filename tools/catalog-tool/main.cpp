#include "BuildCommand.h"
#include "GenerateCommand.h"
#include "SqlCommand.h"
#include "UsageError.h"

#include <QGuiApplication>
#include <QHashFunctions>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>

namespace {

constexpr int UsageStatus = 2;

constexpr char Usage[] = R"(Makes, checks, queries and generates product catalogues.

  catalog-tool build SOURCES APPDIR
      makes an application directory of a catalogue's sources
  catalog-tool check SOURCES
      reports every problem of the sources
  catalog-tool sql [--json] FILE STATEMENT
      prints what the statement finds in a catalogue's database
  catalog-tool generate FILE --products N [--seed S] [--categories N] [--references N]
                        [--first-category N]
      writes a made-up catalogue of N products; equal seeds make equal files. The other numbers
      are those of all categories, of all reference numbers, and of the products in the first
      category
)";

using Command = std::function<int(const QStringList &arguments)>;

/// Runs a command that renders pictures and text. It never shows a window, so it needs no
/// display.
Command WithoutDisplay(const Command &command, int &argc, char **argv)
{
    return [&argc, argv, command](const QStringList &arguments) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        // Qt warns when there is no such folder, as for root; nothing here needs one.
        const QTemporaryDir runtimeFolder;
        if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
            qputenv("XDG_RUNTIME_DIR", runtimeFolder.path().toLocal8Bit());
        // Equal sources are to give equal files, whatever order a hash has.
        QHashSeed::setDeterministicGlobalSeed();
        const QGuiApplication application(argc, argv);
        return command(arguments);
    };
}

int Run(int &argc, char **argv)
{
    const std::map<QString, Command> commands{
        {QStringLiteral("build"), WithoutDisplay(Tesk::RunBuild, argc, argv)},
        {QStringLiteral("check"), Tesk::RunCheck},
        {QStringLiteral("generate"), Tesk::RunGenerate},
        {QStringLiteral("sql"), Tesk::RunSql},
    };

    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    if (arguments.value(0) == QLatin1String("--help")) {
        std::fputs(Usage, stdout);
        return EXIT_SUCCESS;
    }
    const auto command = commands.find(arguments.value(0));
    if (command == commands.end())
        throw Tesk::UsageError(
            arguments.isEmpty() ? QStringLiteral("name a command")
                                : QStringLiteral("there is no command \"%1\"").arg(arguments[0]));
    return command->second(arguments.mid(1));
}

} // namespace

int main(int argc, char **argv)
{
    try {
        return Run(argc, argv);
    } catch (const Tesk::UsageError &error) {
        std::fprintf(stderr, "catalog-tool: %s\n\n%s", error.what(), Usage);
        return UsageStatus;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "catalog-tool: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
