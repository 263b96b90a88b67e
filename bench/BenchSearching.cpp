// How long a search takes its user in a catalogue of 32,000 products, in the real engine: from the
// press of Enter to the result page's completion, to be under 60 ms; and from the tick of the
// loader's timer to the elements written in the page, to be under 30 ms. Prints medians.
// Usage: bench_searching [ROUNDS]

#include "Measuring.h"
#include "browser/Engine.h"
#include "browser/WebBrowser.h"
#include "search/SearchDetail.h"
#include "support/CatalogueWindow.h"
#include "support/WaitUntil.h"
#include "ui/main/CatalogApplication.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/PageProtocol.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

using namespace Tesk;

namespace {

constexpr int ProductCount = 32'000;
constexpr int ArticleNumberType = 2;

const QString ListPage = QStringLiteral("product_list.html");

/// The time by the clock that the page's own can be compared with, in milliseconds.
double Now()
{
    using Milliseconds = std::chrono::duration<double, std::milli>;
    return Milliseconds(std::chrono::system_clock::now().time_since_epoch()).count();
}

/// Notes the time by the same clock when the page's list has been written.
const QString NoteWriting =
    QStringLiteral("new MutationObserver(() => {"
                   " window.teskWritten = performance.timeOrigin + performance.now() })"
                   ".observe(document.getElementById('list'), { childList: true })");

/// Tells when the loader's timer ticks, before the tick is handled.
class TickWatch final : public QObject
{
public:
    TickWatch() { qApp->installEventFilter(this); }

    std::function<void()> onTick;

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Timer && onTick) {
            const auto *const timer = qobject_cast<QTimer *>(object);
            if (timer && timer->isSingleShot() && timer->interval() == PageProtocol::LoaderInterval)
                onTick();
        }
        return false;
    }
};

/// What the user fills in; the answer is the field in which he presses Enter.
using Input = std::function<QLineEdit *(frmCatalog &window)>;

struct Times
{
    std::vector<double> search;
    std::vector<double> complete;
    std::vector<double> fill;
};

class Bench final
{
public:
    Bench(const QString &applicationDirectory, int rounds)
        : catalogue(applicationDirectory)
        , rounds(rounds)
    {}

    void Fast(const char *title, const QString &text, int type = 0);
    void Detail(const char *title, const QString &words, const QString &length = {});
    void Competition(const char *title, const QString &number);

    bool AreTargetsMet() const { return areTargetsMet; }

private:
    void Measure(const char *title, const Input &input);
    void TakeRound(const Input &input, Times &times);
    void GoHome();

    CatalogueWindow catalogue;
    TickWatch ticks;
    int rounds;
    bool areTargetsMet = true;
};

void Bench::Fast(const char *title, const QString &text, int type)
{
    Measure(title, [=](frmCatalog &window) {
        window.header->cbFastSearchType->setCurrentIndex(type);
        window.header->tbFastSearchText->setText(text);
        return window.header->tbFastSearchText;
    });
}

void Bench::Detail(const char *title, const QString &words, const QString &length)
{
    Measure(title, [=](frmCatalog &window) {
        window.tabMain->setCurrentIndex(frmCatalog::SearchTab);
        window.ucSearchDetail->tbDescription->setText(words);
        window.ucSearchDetail->tbProductLength->setText(length);
        return window.ucSearchDetail->tbDescription;
    });
}

void Bench::Competition(const char *title, const QString &number)
{
    Measure(title, [=](frmCatalog &window) {
        window.tabMain->setCurrentIndex(frmCatalog::SearchTab);
        window.ucSearchDetail->tbCompanyArtNr->setText(number);
        return window.ucSearchDetail->tbCompanyArtNr;
    });
}

void Bench::Measure(const char *title, const Input &input)
{
    Times times;
    for (int round = 0; round < rounds; ++round)
        TakeRound(input, times);
    constexpr double mostToComplete = 60; // milliseconds
    constexpr double mostToFill = 30;     // milliseconds
    const double complete = Median(times.complete);
    const double fill = Median(times.fill);
    const bool isMet = complete < mostToComplete && fill < mostToFill;
    areTargetsMet = areTargetsMet && isMet;
    std::printf("%-44s %6d %9.1f %9.1f %9.1f%s\n", title,
                std::max(0, catalogue.Window().Protocol().ProductRows().UpperRow()),
                Median(times.search), complete, fill, isMet ? "" : "  MISSED");
}

void Bench::GoHome()
{
    catalogue.Window().GoHome();
    catalogue.Window().ucSearchDetail->Initialize();
    if (!catalogue.WaitForFilledPage(QStringLiteral("welcome.html")))
        qFatal("the welcome page was not filled");
    catalogue.WaitForPaint();
}

void Bench::TakeRound(const Input &input, Times &times)
{
    GoHome();
    frmCatalog &window = catalogue.Window();
    QLineEdit *const field = input(window);
    field->setFocus();

    double complete = 0;
    double tick = 0;
    double written = 0;
    QElapsedTimer timer;
    QObject context;
    QObject::connect(window.wbMain, &WebBrowser::DocumentComplete, &context,
                     [&](const QString &address) {
                         if (!address.contains(ListPage))
                             return;
                         complete = Milliseconds(timer);
                         window.wbMain->RunScript(NoteWriting);
                     });
    ticks.onTick = [&] { tick = Now(); };
    QObject::connect(&window.Protocol(), &PageProtocol::PageFilled, &context, [&] {
        window.wbMain->RunScript(QStringLiteral("window.teskWritten"), [&](const QVariant &time) {
            if (time.isNull())
                qFatal("the result page was not filled");
            written = time.toDouble();
        });
    });

    timer.start();
    QTest::keyClick(field, Qt::Key_Return);
    times.search.push_back(Milliseconds(timer));
    if (!WaitUntil([&] { return written > 0; }))
        qFatal("no results were shown");
    ticks.onTick = {};
    times.complete.push_back(complete);
    times.fill.push_back(written - tick);

    const int rows = std::max(0, window.Protocol().ProductRows().UpperRow());
    const int shown =
        catalogue.Evaluate(QStringLiteral("document.querySelectorAll('tr.contListRow').length"))
            .toInt();
    if (shown != std::min<int>(rows, HtmlBuilder::ProductsPerPage))
        qFatal("%d of %d results are shown", shown, rows);
}

} // namespace

int main(int argc, char **argv)
{
    ConfigureEngine();
    CatalogApplication application(argc, argv);
    const int rounds = RoundsOf(argc, argv);
    const LargeApplication large(ProductCount);
    Bench bench(large.Path(), rounds);

    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    std::printf("Medians of %d rounds in milliseconds, %d products\n", rounds, ProductCount);
    std::printf("%-44s %6s %9s %9s %9s\n", "", "rows", "search", "complete", "fill");
    bench.Fast("fast: nothing found", QStringLiteral("qqqq"));
    bench.Fast("fast: a name", QStringLiteral("needle holder adelmann curved"));
    bench.Fast("fast: two letters in most names", QStringLiteral("er"));
    bench.Fast("fast: every product", QStringLiteral("%%"));
    bench.Fast("fast, article number: nothing found", QStringLiteral("QQ 99"), ArticleNumberType);
    bench.Fast("fast, article number: one page", QStringLiteral("41-5"), ArticleNumberType);
    bench.Fast("fast, article number: every product", QStringLiteral("%-"), ArticleNumberType);
    bench.Detail("detail: words, nothing found", QStringLiteral("qqqq"));
    bench.Detail("detail: words, one page", QStringLiteral("needle holder adelmann curved"));
    bench.Detail("detail: words, most products", QStringLiteral("er"));
    bench.Detail("detail: length, nothing found", {}, QStringLiteral("9999"));
    bench.Detail("detail: length", {}, QStringLiteral("150"));
    bench.Detail("detail: length, then with tolerance", {}, QStringLiteral("151"));
    bench.Detail("detail: word and length with tolerance", QStringLiteral("er"),
                 QStringLiteral("203"));
    bench.Competition("competition: nothing found", QStringLiteral("QQ 99"));
    bench.Competition("competition: one page", QStringLiteral("BH 020"));
    bench.Competition("competition: thousands", QStringLiteral("BH"));
    return bench.AreTargetsMet() ? EXIT_SUCCESS : EXIT_FAILURE;
}
