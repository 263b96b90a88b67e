#pragma once

#include <QObject>

#include <optional>

namespace Tesk {

class WebBrowser;

/// Learns from the page itself when it shows what was written into it. The page says so by its
/// title, which the program has no use for.
class ShowingWatch final : public QObject
{
    Q_OBJECT

public:
    enum class Stage { PicturesLoaded, Painted };

    explicit ShowingWatch(WebBrowser &browser);

    /// Call it right after the writing: the page works in the order in which it is told.
    void Ask(Stage stage);
    /// Waits for the page's answer, by the clock of Clock::Now().
    double Time();

private:
    WebBrowser &browser;
    std::optional<double> time;
};

} // namespace Tesk
