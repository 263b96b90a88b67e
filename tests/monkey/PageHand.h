#pragma once

#include <QPoint>
#include <QString>

#include <optional>

class QWidget;

namespace Tesk {

class Dice;
class WebBrowser;

/// A hand on the page of one browser, which may be just being left: nothing here waits for long.
class PageHand final
{
public:
    /// `browser` outlives the object.
    explicit PageHand(WebBrowser &browser);

    bool IsInSight() const;
    /// Clicks one of the elements that match and can be seen; the result tells it by its link or
    /// id, and is empty without one.
    QString ClickOneOf(const QString &selector, Dice &dice,
                       Qt::MouseButton button = Qt::LeftButton);
    QString HoverOneOf(const QString &selector, Dice &dice);
    /// A place of the page that is in sight.
    QPoint AnyPlace(Dice &dice) const;
    /// The engine's own widget, which takes what the user does.
    QWidget *Target() const;

private:
    struct Element
    {
        QPoint place;
        QString name;
    };

    std::optional<Element> OneOf(const QString &selector, Dice &dice);

    WebBrowser &browser;
};

} // namespace Tesk
